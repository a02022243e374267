// What a lexer reads otherwise when a host has switched it on: words, comments and strings as the
// language has them.
#include "uZtCodeParser.h"

#include <algorithm>
#include <utility>

namespace {

char16_t Upper(char16_t C)
{
    if (C < 0x80)
        return C >= u'a' && C <= u'z' ? char16_t(C - 0x20) : C;
    return QChar::toUpper(C);
}

bool EndsLine(char16_t C) { return C == u'\r' || C == u'\n' || C == u'\0'; }

} // namespace

void TZtLangParser::SetAllKeyWords(bool Value)
{
    FAllKeyWords = Value;
    CorrectionsChanged();
}

void TZtLangParser::SetExtraKeyWords(const QStringList &Value)
{
    FExtraKeyWords = Value;
    CorrectionsChanged();
}

void TZtLangParser::CorrectionsChanged()
{
    FWords.clear();
    FWordSieve = {};
    if (FGrammar.HasWords()) {
        if (FAllKeyWords)
            for (const std::u16string_view Word : FGrammar.Words)
                AddMoreWord(Word);
        for (const QString &Word : std::as_const(FExtraKeyWords))
            AddMoreWord({reinterpret_cast<const char16_t *>(Word.utf16()), size_t(Word.size())});
        std::ranges::sort(FWords, {}, &TMoreWord::Number);
    }
    FMoreWords = !FWords.isEmpty();
    FCorrected = FMoreWords || FClosedRemarks;
}

void TZtLangParser::AddMoreWord(std::u16string_view AWord)
{
    if (AWord.empty())
        return;
    const size_t Number = NumberOf(AWord);
    FWords.append({Number, AWord});
    FWordSieve[Number / 64] |= quint64(1) << (Number % 64);
}

void TZtLangParser::SetClosedRemarks(bool Value)
{
    // The numbers that are carried mean something else then.
    if (FClosedRemarks != Value)
        SetState({});
    FClosedRemarks = Value;
    CorrectionsChanged();
}

void TZtLangParser::SetState(const TZtLexerState &Value)
{
    RemarkEnd = Value.RemarkEnd;
    LineKind = Value.LineKind;
    InRemark = Value.InRemark;
    FBefore = u'\0';
    FPeriods = 0;
    SetOwnState(Value.Own);
}

bool TZtLangParser::IsListed(std::u16string_view AWord, size_t ANumber) const
{
    const auto Same = [this](char16_t A, char16_t B) {
        return A == B || (!FGrammar.MatchCase && Upper(A) == Upper(B));
    };
    auto Word = std::ranges::lower_bound(FWords, ANumber, {}, &TMoreWord::Number);
    for (; Word != FWords.end() && Word->Number == ANumber; ++Word)
        if (std::ranges::equal(Word->Text, AWord, Same))
            return true;
    return false;
}

int TZtLangParser::ReadBreakOrSpan(char16_t C, QString &AToken, bool ASpans)
{
    if (C == u'\r' || C == u'\n') {
        ReadBreak(C, AToken);
        return FGrammar.LineBreak;
    }
    if (C == u'\0' || !ASpans)
        return -1;
    TZtTokenText Text;
    PushChar(C);
    size_t Span = size_t(LineKind) - 1;
    if (Span >= FGrammar.Spans.size()) {
        // A number that is none of the language's was left by something else.
        LineKind = 0;
        Span = 0;
        while (Span < FGrammar.Spans.size() && !TakeNext(FGrammar.Spans[Span].Begin, Text))
            ++Span;
        if (Span == FGrammar.Spans.size()) {
            ReadChar();
            return -1;
        }
    }
    ReadSpan(Span, Text);
    SetToken(AToken, Text);
    return FGrammar.Spans[Span].Kind;
}

void TZtLangParser::ReadBreak(char16_t C, QString &AToken)
{
    // An escaped line break takes a string into the next line alone, be it an empty one.
    const size_t Span = size_t(LineKind) - 1;
    if (Span < FGrammar.Spans.size() && !FGrammar.Spans[Span].OverLines && EndsLine(FBefore))
        LineKind = 0;
    TZtTokenText Text = {C};
    if (C == u'\r' && Ahead() == u'\n')
        Text.append(ReadChar());
    SetToken(AToken, Text);
}

void TZtLangParser::ReadSpan(size_t AIndex, TZtTokenText &AText)
{
    const TZtSpan &Span = FGrammar.Spans[AIndex];
    const char16_t End = Span.End.empty() ? u'\0' : Span.End[0];
    bool Open = Span.OverLines;
    for (;;) {
        const char16_t C = ReadChar();
        if (EndsLine(C)) {
            PushChar(C);
            break;
        }
        AText.append(C);
        if (C == Span.Escape) {
            const char16_t Next = PeekChar();
            Open = Span.OverLines || EndsLine(Next);
            if (!EndsLine(Next))
                AText.append(ReadChar());
        } else if (C == End && TakeNext(Span.End.substr(1), AText) &&
                   !(Span.Doubled && TakeNext(Span.End, AText))) {
            Open = false;
            break;
        }
    }
    LineKind = Open ? int(AIndex) + 1 : 0;
}

bool TZtLangParser::TakeNext(std::u16string_view AText, TZtTokenText &AToken)
{
    size_t Taken = 0;
    for (; Taken < AText.size(); ++Taken)
        if (const char16_t C = ReadChar(); C != AText[Taken]) {
            PushChar(C);
            break;
        }
    if (Taken == AText.size()) {
        AToken.append(AText.data(), qsizetype(Taken));
        return true;
    }
    while (Taken > 0)
        PushChar(AText[--Taken]);
    return false;
}
