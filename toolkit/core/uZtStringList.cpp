#include "uZtStringList.h"

#include "uZtLineScan.h"

#include <QStringDecoder>

#include <algorithm>
#include <cstring>

namespace {

constexpr qsizetype BlockSize = 1 << 20;

// No branch in the loop, so that the compiler makes wide comparisons of it.
bool IsLatin1(QStringView S)
{
    char16_t all = 0;
    for (const QChar C : S)
        all |= C.unicode();
    return all < 256;
}

void Narrow(QStringView S, char *ATo)
{
    std::transform(S.begin(), S.end(), ATo, [](QChar C) { return char(C.unicode()); });
}

template <typename TEmit> void ForEachLine(QStringView S, TEmit AEmit)
{
    qsizetype start = 0;
    const qsizetype size = S.size();
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t C = S[i].unicode();
        if (C > u'\r' || (C != u'\r' && C != u'\n'))
            continue;
        AEmit(S.sliced(start, i - start));
        if (C == u'\r' && i + 1 < size && S[i + 1] == u'\n')
            ++i;
        start = i + 1;
    }
    if (start < size)
        AEmit(S.sliced(start));
}

} // namespace

TStringList::TStringList(QObject *AOwner) : QObject(AOwner) {}

TStringList::~TStringList() { FreeLines(); }

const TStringList::TLine &TStringList::Line(int Index) const
{
    if (Index < 0 || Index >= GetCount())
        throw EStringListError(
            QStringLiteral("There is no line with the index %1 (the list holds %2).")
                .arg(Index)
                .arg(GetCount()));
    return FLines[Index];
}

QAnyStringView TStringList::ViewOf(const TLine &ALine)
{
    switch (TStore(ALine.Store)) {
    case TStore::Latin1:
        return QLatin1StringView(ALine.Latin1, qsizetype(ALine.Length));
    case TStore::Utf16:
        return QStringView(ALine.Utf16, qsizetype(ALine.Length));
    case TStore::Owned:
        break;
    }
    return *ALine.Owned;
}

TStringList::TLine TStringList::NewLine(QString S, int AObject)
{
    TLine line;
    line.Length = quint32(S.size());
    line.Owned = new QString(std::move(S));
    line.Store = quint32(TStore::Owned);
    line.Object = AObject;
    return line;
}

void TStringList::FreeLine(const TLine &ALine)
{
    if (TStore(ALine.Store) == TStore::Owned)
        delete ALine.Owned;
}

void TStringList::FreeLines()
{
    for (int i = 0; i < GetCount(); ++i)
        FreeLine(FLines[i]);
    FLines.clear();
    FBlocks.clear();
    FFree = nullptr;
    FFreeSize = 0;
}

QString TStringList::GetStrings(int Index) const
{
    const TLine &line = Line(Index);
    return TStore(line.Store) == TStore::Owned ? *line.Owned : ViewOf(line).toString();
}

void TStringList::SetStrings(int Index, const QString &S)
{
    Line(Index);
    Changing();
    Put(FLines[Index], S);
    Changed();
}

void TStringList::EditStrings(int Index, QString &&S, const std::function<void(QString &)> &AEdit)
{
    Line(Index);
    Changing();
    QString text = std::move(S);
    TLine &line = FLines[Index];
    const bool held =
        TStore(line.Store) == TStore::Owned && line.Owned->constData() == text.constData();
    if (held)
        line.Owned->clear();
    try {
        AEdit(text);
    } catch (...) {
        if (held)
            Put(line, std::move(text));
        throw;
    }
    Put(line, std::move(text));
    Changed();
}

void TStringList::Put(TLine &ALine, QString S)
{
    // Most of a long line was deleted: its memory goes too.
    constexpr qsizetype worthIt = 4096;
    if (S.capacity() > worthIt && S.capacity() / 4 > S.size())
        S.squeeze();
    if (TStore(ALine.Store) != TStore::Owned) {
        ALine = NewLine(std::move(S), ALine.Object);
        return;
    }
    ALine.Length = quint32(S.size());
    *ALine.Owned = std::move(S);
}

int TStringList::GetObjects(int Index) const { return Line(Index).Object; }

void TStringList::SetObjects(int Index, int AObject)
{
    Line(Index);
    Changing();
    FLines[Index].Object = AObject;
    Changed();
}

int TStringList::GetLength(int Index) const { return int(Line(Index).Length); }

QAnyStringView TStringList::View(int Index) const { return ViewOf(Line(Index)); }

void TStringList::AppendTo(int Index, int AFrom, int ACount, QString &S) const
{
    const TLine &line = Line(Index);
    if (TStore(line.Store) == TStore::Latin1)
        S.append(QLatin1StringView(line.Latin1 + AFrom, ACount));
    else if (TStore(line.Store) == TStore::Utf16)
        S.append(QStringView(line.Utf16 + AFrom, ACount));
    else
        S.append(QStringView(*line.Owned).sliced(AFrom, ACount));
}

int TStringList::AddObject(const QString &S, int AObject)
{
    const int index = GetCount();
    InsertObject(index, S, AObject);
    return index;
}

void TStringList::InsertObject(int Index, const QString &S, int AObject)
{
    if (Index != GetCount())
        Line(Index);
    Changing();
    FLines.insert(Index, NewLine(S, AObject));
    Changed();
}

void TStringList::Delete(int Index)
{
    Line(Index);
    Changing();
    FreeLine(FLines[Index]);
    FLines.remove(Index);
    Changed();
}

void TStringList::Clear()
{
    if (GetCount() == 0)
        return;
    Changing();
    FreeLines();
    Changed();
}

void TStringList::Assign(const TStringList *Source)
{
    if (!Source || Source == this)
        return;
    BeginUpdate();
    Clear();
    for (int i = 0; i < Source->GetCount(); ++i)
        AddObject(Source->GetStrings(i), Source->GetObjects(i));
    EndUpdate();
}

QString TStringList::GetText() const
{
    qsizetype size = 0;
    for (int i = 0; i < GetCount(); ++i)
        size += FLines[i].Length + 2;
    QString text;
    text.reserve(size);
    for (int i = 0; i < GetCount(); ++i) {
        AppendTo(i, text);
        text.append(QLatin1StringView("\r\n"));
    }
    return text;
}

char *TStringList::Allocate(qsizetype ASize)
{
    if (ASize > FFreeSize) {
        const qsizetype size = std::max(ASize, BlockSize);
        FBlocks.emplace_back(size, Qt::Uninitialized);
        FFree = FBlocks.back().data();
        FFreeSize = size;
    }
    FFreeSize -= ASize;
    return std::exchange(FFree, FFree + ASize);
}

void TStringList::AppendLoaded(QStringView S)
{
    TLine line;
    line.Length = quint32(S.size());
    line.Object = 0;
    if (IsLatin1(S)) {
        char *to = Allocate((S.size() + 1) & ~qsizetype(1)); // keeps the next one aligned
        Narrow(S, to);
        line.Latin1 = to;
        line.Store = quint32(TStore::Latin1);
    } else {
        char *to = Allocate(S.size() * 2);
        std::memcpy(to, S.data(), size_t(S.size()) * 2);
        line.Utf16 = reinterpret_cast<const char16_t *>(to);
        line.Store = quint32(TStore::Utf16);
    }
    FLines.append(line);
}

void TStringList::SetText(const QString &S)
{
    BeginUpdate();
    Clear();
    ForEachLine(S, [this](QStringView line) { AppendLoaded(line); });
    EndUpdate();
}

void TStringList::SetUtf8Text(const QByteArray &ABytes, qsizetype AFrom)
{
    BeginUpdate();
    Clear();
    FBlocks.push_back(ABytes);
    ZtForEachLine(ABytes.constData() + AFrom, ABytes.size() - AFrom,
                  [this](const char *start, qsizetype length, bool ascii) {
                      if (!ascii) {
                          QStringDecoder decode(QStringDecoder::Utf8,
                                                QStringDecoder::Flag::Stateless |
                                                    QStringDecoder::Flag::ConvertInitialBom);
                          AppendLoaded(QString(decode(QByteArrayView(start, length))));
                          return;
                      }
                      TLine line;
                      line.Latin1 = start;
                      line.Length = quint32(length);
                      line.Store = quint32(TStore::Latin1);
                      line.Object = 0;
                      FLines.append(line);
                  });
    EndUpdate();
}

void TStringList::BeginUpdate()
{
    Changing();
    ++FUpdateCount;
}

void TStringList::EndUpdate()
{
    --FUpdateCount;
    Changed();
}

void TStringList::Changing()
{
    if (FUpdateCount == 0 && OnChanging)
        OnChanging(this);
}

void TStringList::Changed()
{
    if (FUpdateCount == 0 && OnChange)
        OnChange(this);
}
