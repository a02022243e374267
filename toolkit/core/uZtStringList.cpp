#include "uZtStringList.h"

#include "uZtLineScan.h"
#include "uZtUtf8.h"

#include <QStringEncoder>

#include <algorithm>
#include <cstring>

namespace {

constexpr qsizetype BlockSize = 1 << 20;

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

// Between construction and destruction lies one change of the list, whatever is raised in between.
class TStringList::TUpdate {
public:
    explicit TUpdate(TStringList &AList) : FList(AList) { FList.BeginUpdate(); }
    ~TUpdate()
    {
        if (!FEnded)
            --FList.FUpdateCount; // what was raised is the news
    }
    TUpdate(const TUpdate &) = delete;
    TUpdate &operator=(const TUpdate &) = delete;
    void End()
    {
        FEnded = true;
        FList.EndUpdate();
    }

private:
    TStringList &FList;
    bool FEnded = false;
};

// --- the text in memory --------------------------------------------------------------------------

QAnyStringView TStringList::TLine::View() const
{
    if (!Wide)
        return QLatin1StringView(Latin1(), qsizetype(Length));
    return IsOwned() ? QStringView(Owned()) : QStringView(Utf16(), qsizetype(Length));
}

void TStringList::TText::Clear()
{
    for (qsizetype i = 0; i < Lines.size(); ++i)
        if (Lines[i].IsOwned())
            delete &Lines[i].Owned();
    Lines.clear();
    Blocks.clear();
    Free = nullptr;
    FreeSize = 0;
}

void TStringList::TText::Swap(TText &AOther)
{
    Lines.swap(AOther.Lines);
    Blocks.swap(AOther.Blocks);
    std::swap(Free, AOther.Free);
    std::swap(FreeSize, AOther.FreeSize);
}

char *TStringList::TText::Allocate(qsizetype ASize)
{
    ASize = (ASize + 1) & ~qsizetype(1); // keeps the next one's address even
    if (ASize > FreeSize) {
        const qsizetype size = std::max(ASize, BlockSize);
        Blocks.emplace_back(size, Qt::Uninitialized);
        Free = Blocks.back().data();
        FreeSize = size;
    }
    FreeSize -= ASize;
    return std::exchange(Free, Free + ASize);
}

void TStringList::TText::AppendView(const void *AText, qsizetype ALength, bool AWide)
{
    CheckLength(ALength);
    if (Lines.size() == MaxLength)
        throw EStringListError(QStringLiteral("A text holds at most %1 lines.").arg(MaxLength));
    Lines.append({reinterpret_cast<quintptr>(AText), quint32(ALength), AWide, 0});
}

// As one byte a character where that is enough.
void TStringList::TText::AppendCopy(QStringView S)
{
    if (QtPrivate::isLatin1(S)) {
        char *to = Allocate(S.size());
        QStringEncoder(QStringEncoder::Latin1).appendToBuffer(to, S);
        AppendView(to, S.size(), false);
    } else {
        char *to = Allocate(S.size() * 2);
        std::memcpy(to, S.data(), size_t(S.size()) * 2);
        AppendView(to, S.size(), true);
    }
}

void TStringList::TText::AppendCopy(QLatin1StringView S)
{
    char *to = Allocate(S.size());
    std::copy(S.begin(), S.end(), to);
    AppendView(to, S.size(), false);
}

TStringList::TStringList(QObject *AOwner) : QObject(AOwner) {}

TStringList::~TStringList() = default;

const TStringList::TLine &TStringList::Line(int Index) const
{
    if (Index < 0 || Index >= GetCount())
        throw EStringListError(
            QStringLiteral("There is no line with the index %1 (the list holds %2).")
                .arg(Index)
                .arg(GetCount()));
    return FText.Lines[Index];
}

void TStringList::CheckLength(qsizetype ALength)
{
    if (ALength > MaxLength)
        throw EStringListError(
            QStringLiteral("A line of %1 characters is too long; it may have %2.")
                .arg(ALength)
                .arg(MaxLength));
}

// Whether a line can be inserted at the index.
void TStringList::CheckRoom(int Index) const
{
    if (Index != GetCount())
        Line(Index);
    if (GetCount() == MaxLength)
        throw EStringListError(QStringLiteral("A text holds at most %1 lines.").arg(MaxLength));
}

TStringList::TLine TStringList::NewLine(QString S, int AObject)
{
    const auto length = quint32(S.size());
    return {reinterpret_cast<quintptr>(new QString(std::move(S))) | 1, length, 1, AObject};
}

void TStringList::Put(TLine &ALine, QString S)
{
    // Most of a long line was deleted: its memory goes too.
    constexpr qsizetype worthIt = 4096;
    if (S.capacity() > worthIt && S.capacity() / 4 > S.size())
        S.squeeze();
    if (!ALine.IsOwned()) {
        ALine = NewLine(std::move(S), ALine.Object);
        return;
    }
    ALine.Length = quint32(S.size());
    ALine.Owned() = std::move(S);
}

// --- lines ---------------------------------------------------------------------------------------

QString TStringList::GetStrings(int Index) const
{
    const TLine &line = Line(Index);
    return line.IsOwned() ? line.Owned() : line.View().toString();
}

void TStringList::SetStrings(int Index, const QString &S)
{
    Line(Index);
    CheckLength(S.size());
    Changing();
    Line(Index); // a handler may have taken it away
    Put(FText.Lines[Index], S);
    Changed();
}

void TStringList::EditStrings(int Index, QString &&S, const std::function<void(QString &)> &AEdit)
{
    Line(Index);
    Changing();
    const TLine &line = Line(Index);
    QString text = std::move(S);
    const bool held = line.IsOwned() && line.Owned().constData() == text.constData();
    if (held)
        line.Owned().clear();
    TZtFirstException raised;
    raised.Run([&] { AEdit(text); });
    Q_ASSERT_X(text.size() <= MaxLength, "EditStrings", "the line has become too long");
    text.truncate(MaxLength);
    Line(Index);
    if (held || !raised.IsRaised())
        Put(FText.Lines[Index], std::move(text));
    raised.Raise();
    Changed();
}

int TStringList::GetObjects(int Index) const { return Line(Index).Object; }

void TStringList::SetObjects(int Index, int AObject)
{
    Line(Index);
    Changing();
    Line(Index);
    FText.Lines[Index].Object = AObject;
    Changed(false);
}

int TStringList::GetLength(int Index) const { return int(Line(Index).Length); }

QAnyStringView TStringList::View(int Index) const { return Line(Index).View(); }

void TStringList::AppendTo(int Index, int AFrom, int ACount, QString &S) const
{
    const TLine &line = Line(Index);
    if (!line.Wide)
        S.append(QLatin1StringView(line.Latin1() + AFrom, ACount));
    else if (line.IsOwned())
        S.append(QStringView(line.Owned()).sliced(AFrom, ACount));
    else
        S.append(QStringView(line.Utf16() + AFrom, ACount));
}

int TStringList::AddObject(const QString &S, int AObject)
{
    const int index = GetCount();
    InsertObject(index, S, AObject);
    return index;
}

void TStringList::InsertObject(int Index, const QString &S, int AObject)
{
    CheckRoom(Index);
    CheckLength(S.size());
    Changing();
    CheckRoom(Index);
    FText.Lines.reserveOne();
    FText.Lines.insert(Index, NewLine(S, AObject));
    Changed();
}

void TStringList::Delete(int Index)
{
    Line(Index);
    Changing();
    const TLine &line = Line(Index);
    if (line.IsOwned())
        delete &line.Owned();
    FText.Lines.remove(Index);
    Changed();
}

// --- the whole text ------------------------------------------------------------------------------

void TStringList::Clear()
{
    if (GetCount() == 0)
        return;
    Changing();
    FText.Clear();
    Changed();
}

void TStringList::Assign(const TStringList *Source)
{
    if (!Source || Source == this)
        return;
    TText text;
    for (int i = 0; i < Source->GetCount(); ++i) {
        Source->View(i).visit([&](auto view) { text.AppendCopy(view); });
        text.Lines[i].Object = Source->GetObjects(i);
    }
    Replace(text);
}

// Exchanges the lines for those of a text that is complete.
void TStringList::Replace(TText &AText)
{
    TUpdate update(*this);
    FText.Swap(AText);
    update.End();
}

QString TStringList::GetText() const
{
    qsizetype size = 0;
    for (int i = 0; i < GetCount(); ++i)
        size += qsizetype(FText.Lines[i].Length) + 2;
    QString text;
    text.reserve(size);
    for (int i = 0; i < GetCount(); ++i) {
        AppendTo(i, text);
        text.append(QLatin1StringView("\r\n"));
    }
    return text;
}

void TStringList::SetText(const QString &S)
{
    TText text;
    ForEachLine(S, [&](QStringView line) { text.AppendCopy(line); });
    Replace(text);
}

void TStringList::SetUtf8Text(const QByteArray &ABytes, qsizetype AFrom)
{
    TText text;
    text.Blocks.push_back(ABytes);
    ZtForEachLine(ABytes.constData() + AFrom, ABytes.size() - AFrom,
                  [&](const char *start, qsizetype length, bool ascii) {
                      if (ascii)
                          return text.AppendView(start, length, false);
                      text.AppendCopy(QStringView(ZtFromUtf8(QByteArrayView(start, length))));
                  });
    Replace(text);
}

// --- events --------------------------------------------------------------------------------------

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
    if (FUpdateCount == 0)
        Tell(OnChanging);
}

void TStringList::Changed(bool AStrings)
{
    FRevision += AStrings;
    if (FUpdateCount == 0)
        Tell(OnChange);
}

void TStringList::Tell(const TNotifyEvent &AHandler)
{
    TZtFirstException *const raised = std::exchange(FRaised, nullptr);
    TZtFirstException own;
    own.Run([&] { Fire(AHandler, this); });
    FRaised = raised;
    own.RaiseInto(raised);
}
