#include "uZtStringList.h"

#include "uZtLineScan.h"
#include "uZtUtf8.h"

#include <QScopeGuard>
#include <QVarLengthArray>

#include <algorithm>
#include <iterator>

namespace {

constexpr QPoint TextStart(0, 0);

// Where two versions of a line differ: the first `Start` units are the same, and the last `End`.
struct TDifference {
    qsizetype Start;
    qsizetype End;
    TDifference(QStringView A, QStringView B)
    {
        const qsizetype shorter = std::min(A.size(), B.size());
        Start = std::mismatch(A.begin(), A.begin() + shorter, B.begin()).first - A.begin();
        const auto last = std::make_reverse_iterator(A.begin() + (A.size() - shorter + Start));
        End = std::mismatch(A.rbegin(), last, B.rbegin()).first - A.rbegin();
    }
};

EStringListError NoPlace(const QPoint &APlace)
{
    return EStringListError(QStringLiteral("There is no column %1 of a line with the index %2.")
                                .arg(APlace.x())
                                .arg(APlace.y()));
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

template <typename TTold> void TStringList::TellListeners(TTold ATold)
{
    const QVarLengthArray<TZtTextListener *, 8> listeners(FListeners.begin(), FListeners.end());
    for (TZtTextListener *listener : listeners)
        ATold(listener);
}

TStringList::TStringList(QObject *AOwner) : QObject(AOwner) {}

TStringList::~TStringList() = default;

const TZtStoredLine &TStringList::Line(int Index) const
{
    if (Index < 0 || Index >= GetCount())
        throw EStringListError(
            QStringLiteral("There is no line with the index %1 (the list holds %2).")
                .arg(Index)
                .arg(GetCount()));
    return FText[Index];
}

// Whether a line can be inserted at the index.
void TStringList::CheckRoom(int Index) const
{
    if (Index != GetCount())
        Line(Index);
    TZtLineStore::CheckCount(qsizetype(GetCount()) + 1);
}

// --- lines ---------------------------------------------------------------------------------------

QString TStringList::GetStrings(int Index) const { return Line(Index).ToString(); }

void TStringList::SetStrings(int Index, const QString &S)
{
    Line(Index);
    CheckLength(S.size());
    Changing();
    const QString before = BeforeEdit(Index); // a handler may have taken it away
    FText.Put(Index, S);
    TellEdit(Index, before);
    Changed();
}

void TStringList::EditStrings(int Index, QString &&S, const std::function<void(QString &)> &AEdit)
{
    Line(Index);
    Changing();
    const TZtStoredLine &line = Line(Index);
    const QString before = BeforeEdit(Index);
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
        FText.Put(Index, std::move(text));
    TellEdit(Index, before);
    raised.Raise();
    Changed();
}

// The line as it is, where somebody will be told what becomes of it.
QString TStringList::BeforeEdit(int Index) const
{
    const TZtStoredLine &line = Line(Index);
    return FListeners.empty() ? QString() : line.ToString();
}

void TStringList::TellEdit(int Index, const QString &ABefore)
{
    if (FListeners.empty())
        return;
    const QString now = GetStrings(Index);
    const TDifference same(ABefore, now);
    const qsizetype oldEnd = ABefore.size() - same.End, newEnd = now.size() - same.End;
    if (oldEnd == same.Start && newEnd == same.Start)
        return;
    TZtTextChange change{QPoint(int(same.Start), Index), QPoint(int(oldEnd), Index),
                         QPoint(int(newEnd), Index)};
    if (IsRemovedWanted())
        change.Removed = std::make_shared<TZtTextPiece>(
            CutOut(ABefore, FText[Index].Object, same.Start, oldEnd));
    TellChange(change);
}

int TStringList::GetObjects(int Index) const { return Line(Index).Object; }

void TStringList::SetObjects(int Index, int AObject)
{
    Line(Index);
    Changing();
    Line(Index);
    FText.SetObject(Index, AObject);
    Changed(false);
}

int TStringList::GetLength(int Index) const { return int(Line(Index).Length); }

QAnyStringView TStringList::View(int Index) const { return Line(Index).View(); }

void TStringList::AppendTo(int Index, int AFrom, int ACount, QString &S) const
{
    Line(Index).AppendTo(AFrom, ACount, S);
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
    FText.Insert(Index, S, AObject);
    if (!FListeners.empty()) {
        TZtTextChange change{QPoint(0, Index), QPoint(0, Index), QPoint(0, Index + 1)};
        if (IsRemovedWanted())
            change.Removed = std::make_shared<TZtTextPiece>(
                Index + 1 < GetCount() ? CutOut({}, FText[Index + 1].Object, 0, 0)
                                       : TZtTextPiece());
        TellChange(change);
    }
    Changed();
}

void TStringList::Delete(int Index)
{
    Line(Index);
    Changing();
    Line(Index);
    TZtTextChange change{QPoint(0, Index), QPoint(0, Index + 1), QPoint(0, Index)};
    if (IsRemovedWanted())
        change.Removed = std::make_shared<TZtTextPiece>(GetPiece(change.Start, change.RemovedEnd));
    FText.Remove(Index);
    TellChange(change);
    Changed();
}

// --- by positions --------------------------------------------------------------------------------

void TStringList::CheckPlace(const QPoint &APlace) const
{
    const bool inside =
        APlace == GetEnd() || (0 <= APlace.y() && APlace.y() < GetCount() && 0 <= APlace.x() &&
                               APlace.x() <= int(FText[APlace.y()].Length));
    if (!inside)
        throw NoPlace(APlace);
}

void TStringList::CheckReplace(const QPoint &AFrom, const QPoint &ATo,
                               const TZtTextPiece &APiece) const
{
    CheckPlace(AFrom);
    CheckPlace(ATo);
    if (ZtIsBefore(ATo, AFrom))
        throw NoPlace(ATo);
    const int last = APiece.GetCount() - 1;
    const qsizetype rest = ATo == GetEnd() ? 0 : qsizetype(FText[ATo.y()].Length) - ATo.x();
    if (ATo == GetEnd() && ((last == 0 && AFrom.x() > 0) || !APiece.GetLine(last).isEmpty()))
        throw EStringListError(QStringLiteral("The last line of a text ends with a break."));
    CheckLength(AFrom.x() + APiece.GetLine(0).size() + (last == 0 ? rest : 0));
    CheckLength(APiece.GetLine(last).size() + rest);
    TZtLineStore::CheckCount(qsizetype(GetCount()) + last);
}

// Of one line's text.
TZtTextPiece TStringList::CutOut(const QString &ALine, int AObject, qsizetype AFrom, qsizetype ATo)
{
    TZtTextPiece piece;
    piece.FLine = ALine.mid(AFrom, ATo - AFrom);
    piece.FObject = AObject;
    piece.FHasObjects = true;
    return piece;
}

// Of the lines that two positions touch.
TZtTextPiece TStringList::CutOut(const QPoint &AFrom, const QPoint &ATo, TZtLineStore ALines)
{
    if (ALines.GetCount() == 0)
        return {};
    if (AFrom.y() == ATo.y())
        return CutOut(ALines[0].ToString(), ALines[0].Object, AFrom.x(), ATo.x());
    const qsizetype last = ATo.y() - AFrom.y();
    if (last == ALines.GetCount())
        ALines.Insert(last, QString(), 0); // behind the last break
    if (AFrom.x() > 0)
        ALines.Put(0, ALines[0].ToString().mid(AFrom.x()));
    ALines.Put(last, ALines[last].ToString().left(ATo.x()));
    TZtTextPiece piece;
    piece.FLines = std::move(ALines);
    piece.FHasObjects = true;
    return piece;
}

TZtTextPiece TStringList::GetPiece(const QPoint &AFrom, const QPoint &ATo) const
{
    CheckPlace(AFrom);
    CheckPlace(ATo);
    if (ZtIsBefore(ATo, AFrom))
        throw NoPlace(ATo);
    const int count = std::min(ATo.y() + 1, GetCount()) - AFrom.y();
    return CutOut(AFrom, ATo, FText.Copy(AFrom.y(), std::max(count, 0)));
}

void TStringList::ReplaceInLine(int AIndex, int AColumn, int ALength, QStringView S)
{
    const auto check = [&] {
        const qint64 length = Line(AIndex).Length;
        if (AColumn < 0 || ALength < 0 || qint64(AColumn) + ALength > length)
            throw NoPlace({AColumn, AIndex});
        CheckLength(length - ALength + S.size());
    };
    check();
    if (ALength == 0 && S.isEmpty())
        return;
    Changing();
    check();
    TZtTextChange change{QPoint(AColumn, AIndex), QPoint(AColumn + ALength, AIndex),
                         QPoint(AColumn + int(S.size()), AIndex)};
    if (IsRemovedWanted())
        change.Removed = std::make_shared<TZtTextPiece>(GetPiece(change.Start, change.RemovedEnd));
    FText.Edit(AIndex, [&](QString &line) {
        if (ALength == 0)
            line.insert(AColumn, S);
        else
            line.replace(AColumn, ALength, S.data(), S.size());
    });
    TellChange(change);
    Changed();
}

void TStringList::ReplaceText(const QPoint &AFrom, const QPoint &ATo, TZtTextPiece APiece)
{
    CheckReplace(AFrom, ATo, APiece);
    if (AFrom.y() == ATo.y() && AFrom.y() < GetCount() && APiece.GetCount() == 1 &&
        (!APiece.HasObjects() || APiece.FObject == FText[AFrom.y()].Object))
        return ReplaceInLine(AFrom.y(), AFrom.x(), ATo.x() - AFrom.x(), APiece.FLine);
    if (AFrom == ATo && APiece.IsEmpty())
        return;
    Changing();
    CheckReplace(AFrom, ATo, APiece);
    const int last = APiece.GetCount() - 1;
    TZtTextChange change{
        AFrom, ATo,
        QPoint(int(APiece.GetLine(last).size()) + (last == 0 ? AFrom.x() : 0), AFrom.y() + last),
        AFrom == TextStart && ATo == GetEnd()};
    const bool wanted = IsRemovedWanted();
    TZtLineStore removed = Exchange(AFrom, ATo, std::move(APiece));
    if (wanted)
        change.Removed = std::make_shared<TZtTextPiece>(CutOut(AFrom, ATo, std::move(removed)));
    TellChange(change);
    Changed();
}

// Puts the lines that a piece makes there in the place of those that two positions touch, which are
// the answer.
TZtLineStore TStringList::Exchange(const QPoint &AFrom, const QPoint &ATo, TZtTextPiece APiece)
{
    const bool toEnd = ATo == GetEnd();
    const int touched = std::min(ATo.y() + 1, GetCount()) - AFrom.y();
    QString head, tail;
    if (AFrom.x() > 0)
        FText[AFrom.y()].AppendTo(0, AFrom.x(), head);
    if (!toEnd)
        FText[ATo.y()].AppendTo(ATo.x(), FText[ATo.y()].Length - ATo.x(), tail);
    const int headObject = AFrom.y() < GetCount() ? FText[AFrom.y()].Object : 0;
    const int tailObject = toEnd ? 0 : FText[ATo.y()].Object;

    TZtLineStore lines = std::move(APiece.FLines);
    if (lines.GetCount() == 0) {
        if (!toEnd)
            lines.Insert(0, head + APiece.FLine + tail,
                         APiece.HasObjects() ? APiece.FObject : headObject);
    } else {
        const qsizetype last = lines.GetCount() - 1;
        if (!APiece.HasObjects()) {
            lines.SetObject(0, headObject);
            lines.SetObject(last, tailObject);
        }
        if (!head.isEmpty())
            lines.Put(0, head + lines[0].ToString());
        if (toEnd)
            lines.Remove(last);
        else if (!tail.isEmpty())
            lines.Put(last, lines[last].ToString() + tail);
    }
    const qsizetype count = lines.GetCount();
    FText.Insert(AFrom.y(), std::move(lines));
    auto inserted = qScopeGuard([&] { FText.Remove(AFrom.y(), count); });
    TZtLineStore removed = FText.Take(AFrom.y() + count, std::max(touched, 0));
    inserted.dismiss();
    return removed;
}

// --- the whole text ------------------------------------------------------------------------------

void TStringList::Clear()
{
    if (GetCount() == 0)
        return;
    Changing();
    TZtLineStore none;
    Exchange(none);
    Changed();
}

void TStringList::Assign(const TStringList *Source)
{
    if (!Source || Source == this)
        return;
    TZtLineStore text;
    for (int i = 0; i < Source->GetCount(); ++i) {
        Source->View(i).visit([&](auto view) { text.AppendCopy(view); });
        text.SetObject(i, Source->GetObjects(i));
    }
    Replace(text);
}

// Exchanges the lines for those of a text that is complete.
void TStringList::Replace(TZtLineStore &AText)
{
    TUpdate update(*this);
    Exchange(AText);
    update.End();
}

void TStringList::Exchange(TZtLineStore &AText)
{
    TZtTextChange change{TextStart, GetEnd(), QPoint(0, int(AText.GetCount())), true};
    FText.Swap(AText);
    if (change.RemovedEnd == change.InsertedEnd && GetCount() == 0)
        return;
    if (IsRemovedWanted())
        change.Removed =
            std::make_shared<TZtTextPiece>(CutOut(TextStart, change.RemovedEnd, std::move(AText)));
    TellChange(change);
}

QString TStringList::GetText() const
{
    qsizetype size = 0;
    for (int i = 0; i < GetCount(); ++i)
        size += qsizetype(FText[i].Length) + 2;
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
    TZtLineStore text;
    ZtForEachLine(QStringView(S), [&](QStringView line) { text.AppendCopy(line); });
    Replace(text);
}

void TStringList::SetUtf8Text(const QByteArray &ABytes, qsizetype AFrom)
{
    TZtLineStore text;
    text.AddBlock(ABytes);
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
    if (--FUpdateCount == 0)
        TellListeners([this](TZtTextListener *listener) { listener->UpdateEnded(*this); });
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

void TStringList::AddListener(TZtTextListener *AListener) { FListeners.push_back(AListener); }

void TStringList::RemoveListener(TZtTextListener *AListener) { std::erase(FListeners, AListener); }

bool TStringList::IsRemovedWanted() const
{
    return std::any_of(FListeners.begin(), FListeners.end(),
                       [](const TZtTextListener *listener) { return listener->WantsRemoved(); });
}

void TStringList::TellChange(const TZtTextChange &AChange)
{
    TellListeners([&](TZtTextListener *listener) { listener->TextChanged(*this, AChange); });
}
