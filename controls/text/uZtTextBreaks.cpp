#include "uZtTextBreaks.h"

#include "uZtStringList.h"

namespace {

QLatin1StringView BreakOf(TZtLineEnding AEnding)
{
    switch (AEnding) {
    case TZtLineEnding::leCrLf:
        return QLatin1StringView("\r\n");
    case TZtLineEnding::leCr:
        return QLatin1StringView("\r");
    case TZtLineEnding::leLf:
        break;
    }
    return QLatin1StringView("\n");
}

// The length of the break that ends a line at `AAt`; 0 at the end of the text.
qsizetype BreakAt(QStringView S, qsizetype AAt)
{
    if (AAt >= S.size())
        return 0;
    return S[AAt] == u'\r' && AAt + 1 < S.size() && S[AAt + 1] == u'\n' ? 2 : 1;
}

bool IsBreak(QChar C) { return C == u'\n' || C == u'\r'; }

// Whether the lines are those of a text, whatever ends them.
bool AreLinesOf(QStringView S, const TStringList &ALines)
{
    qsizetype at = 0;
    for (int i = 0; i < ALines.GetCount(); ++i) {
        const QAnyStringView line = ALines.View(i);
        if (at >= S.size() || line.size() > S.size() - at ||
            QAnyStringView(S.sliced(at, line.size())) != line)
            return false;
        at += line.size();
        if (at < S.size() && !IsBreak(S[at]))
            return false;
        at += BreakAt(S, at);
    }
    return at == S.size();
}

} // namespace

void TZtTextBreaks::Take(const QString &S)
{
    FFormat = {};
    FExact = QString();
    if (ZtFindLineEndings(FFormat, S) == 0)
        FFormat.LineEnding = FUsual;
    const bool loneBreak = S.size() == BreakAt(S, 0) && FFormat.FinalLineBreak;
    if (FFormat.MixedLineEndings || loneBreak)
        FExact = S;
}

void TZtTextBreaks::Take(const TZtStringStream &AStream)
{
    constexpr qsizetype loneBreak = 8; // the bytes of CR LF in the widest encoding
    const bool lone = AStream.LineEndings() == 1 && AStream.Content().size() <= loneBreak;
    if (AStream.GetFormat().MixedLineEndings || lone)
        return Take(AStream.GetWString());
    FFormat = AStream.GetFormat();
    FExact = QString();
    if (AStream.LineEndings() == 0)
        FFormat.LineEnding = FUsual;
}

TZtTextFormat TZtTextBreaks::FormatOf(const TStringList &ALines) const
{
    TZtTextFormat format;
    GiveTo(format, ALines);
    return format;
}

void TZtTextBreaks::GiveTo(TZtTextFormat &AFormat, const TStringList &ALines) const
{
    const bool empty = ALines.GetCount() == 1 && ALines.GetLength(0) == 0;
    AFormat.LineEnding = FFormat.LineEnding;
    AFormat.FinalLineBreak = FFormat.FinalLineBreak && !empty;
}

QString TZtTextBreaks::Join(const TStringList &ALines) const
{
    if (!FExact.isNull() && AreLinesOf(FExact, ALines))
        return FExact;
    const TZtTextFormat format = FormatOf(ALines);
    const QLatin1StringView lineBreak = BreakOf(format.LineEnding);
    qsizetype size = 0;
    for (int i = 0; i < ALines.GetCount(); ++i)
        size += ALines.GetLength(i) + lineBreak.size();
    QString text;
    text.reserve(size);
    for (int i = 0; i < ALines.GetCount(); ++i) {
        ALines.AppendTo(i, text);
        if (i + 1 < ALines.GetCount() || format.FinalLineBreak)
            text.append(lineBreak);
    }
    return text;
}

bool TZtTextBreaks::Gives(const QString &S, const TStringList &ALines) const
{
    if (!AreLinesOf(S, ALines))
        return false;
    if (!FExact.isNull() && AreLinesOf(FExact, ALines))
        return S == FExact;
    TZtTextFormat other;
    const qsizetype breaks = ZtFindLineEndings(other, S);
    const TZtTextFormat format = FormatOf(ALines);
    return !other.MixedLineEndings && (breaks == 0 || other.LineEnding == format.LineEnding) &&
           other.FinalLineBreak == (format.FinalLineBreak && ALines.GetCount() > 0);
}
