#include "uZtAccessibleText.h"

#include "uZtCodeEdit.h"
#include "uZtPlatform.h"
#include "uZtTextMarks.h"

#include <QAccessible>

#include <array>
#include <limits>

TZtAccessibleText::TZtAccessibleText(TZtCodeEdit &AEdit) : FEdit(&AEdit), FAlive(&AEdit)
{
    AEdit.SetWatcher(this);
    FTold = Now();
}

TZtAccessibleText::~TZtAccessibleText()
{
    if (qobject_cast<TZtCodeEdit *>(FAlive.data()))
        FEdit->SetWatcher(nullptr);
}

int TZtAccessibleText::Narrow(qint64 AOffset)
{
    return int(qMin<qint64>(AOffset, std::numeric_limits<int>::max()));
}

// An editor can be given the text of another one.
TZtTextOffsets &TZtAccessibleText::Offsets()
{
    if (!FOffsets || FText != FEdit->GetLines()) {
        FListening.reset();
        FText = FEdit->GetLines();
        FOffsets.emplace(FText);
        FListening.emplace(FText, this);
        FTooMuch |= FPosted;
    }
    return *FOffsets;
}

QString TZtAccessibleText::GetText(int AFrom, int ATo)
{
    QString text;
    const QPoint from = PlaceOf(AFrom), to = PlaceOf(ATo);
    if (AFrom >= ATo || FText->GetCount() == 0)
        return text;
    text.reserve(ATo - AFrom);
    for (int y = from.y(); y <= to.y(); ++y) {
        if (y > from.y())
            text += u'\n';
        const int begin = y == from.y() ? from.x() : 0;
        const int end = y == to.y() ? to.x() : FText->GetLength(y);
        FText->AppendTo(y, begin, end - begin, text);
    }
    return text;
}

int TZtAccessibleText::GetCaret() { return OffsetOf({FEdit->GetCharPos(), FEdit->GetLinePos()}); }

std::pair<int, int> TZtAccessibleText::GetSelection()
{
    const QPoint start = FEdit->GetSelStart(), end = FEdit->GetSelEnd();
    const bool given = start.x() >= 0 && end.x() >= 0 && start.y() >= 0 && end.y() >= 0;
    const int a = given ? OffsetOf(start) : 0, b = given ? OffsetOf(end) : 0;
    return a == b ? std::pair(GetCaret(), GetCaret()) : std::minmax({a, b});
}

QString TZtAccessibleText::GetNotes()
{
    if (!FEdit->HasTextMarks())
        return {};
    const std::array severities = {tr("Error: %1"), tr("Warning: %1"), tr("Information: %1")};
    QStringList notes;
    const int line = FEdit->GetLinePos();
    for (const TZtDiagnostic &diagnostic : FEdit->GetTextMarks().Diagnostics.InLine(line))
        notes += severities[size_t(diagnostic.Severity)].arg(diagnostic.Message);
    const std::array marks = {tr("Bookmark"), tr("Breakpoint"), tr("Next statement"),
                              tr("Error"),    tr("Warning"),    tr("Information")};
    const TZtLineMarkSet set = FEdit->GetTextMarks().Marks.GetMarks(line);
    for (size_t i = 0; i < marks.size(); ++i)
        if (set & ZtMarkBit(TZtLineMark(i)))
            notes += marks[i];
    return notes.join(QStringLiteral("; "));
}

// --- what happens --------------------------------------------------------------------------------

bool TZtAccessibleText::WantsRemoved() const { return ZtPlatform().IsAssisted(); }

void TZtAccessibleText::TextChanged(const TStringList &AText, const TZtTextChange &AChange)
{
    if (!ZtPlatform().IsAssisted())
        return;
    if (!FTooMuch && !Remember(AText, AChange)) {
        FTooMuch = true;
        FChanges.clear();
    }
    Seen();
}

// The first `AMost` units of a piece or a little more, with a line feed for each break.
static QString Beginning(const TZtTextPiece &APiece, qint64 AMost)
{
    QString text;
    for (int i = 0; i < APiece.GetCount() && text.size() <= AMost; ++i) {
        if (i > 0)
            text += u'\n';
        text += APiece.GetLine(i);
    }
    return text;
}

// Keeps what a change was; false where there is more than is kept.
bool TZtAccessibleText::Remember(const TStringList &AText, const TZtTextChange &AChange)
{
    const qint64 room = MostUnits - FUnits;
    const int before = AText.GetCount() + AChange.RemovedEnd.y() - AChange.InsertedEnd.y();
    const bool toEnd = AChange.RemovedEnd.y() >= before; // there is no break behind the last line
    const int start = OffsetOf(AChange.Start);
    const int end = toEnd ? GetCount() : OffsetOf(AChange.InsertedEnd);
    const bool removes = AChange.RemovedEnd != AChange.Start;
    if (int(FChanges.size()) >= MostChanges || end - start > room || (removes && !AChange.Removed))
        return false;
    TChange change{start, removes ? Beginning(*AChange.Removed, room) : QString(), {}};
    const bool inserts = AChange.InsertedEnd != AChange.Start;
    // Lines at the end come and go with the break before them, if there is one.
    if (toEnd && removes)
        change.Removed.chop(1);
    if (toEnd && removes != inserts && AChange.Start.y() > 0) {
        change.Offset = OffsetOf({std::numeric_limits<int>::max(), AChange.Start.y() - 1});
        if (removes)
            change.Removed.prepend(u'\n');
    }
    change.Inserted = inserts ? GetText(change.Offset, end) : QString();
    const qint64 units = change.Removed.size() + change.Inserted.size();
    if (units > room)
        return false;
    FUnits += units;
    if (units > 0)
        FChanges.push_back(std::move(change));
    return true;
}

void TZtAccessibleText::Seen()
{
    if (FPosted || !ZtPlatform().IsAssisted())
        return;
    FPosted = true;
    QMetaObject::invokeMethod(
        &FLater, [this] { TellAll(); }, Qt::QueuedConnection);
}

// --- what is told --------------------------------------------------------------------------------

TZtAccessibleText::TTold TZtAccessibleText::Now()
{
    return {GetCaret(), GetSelection(), GetNotes(), FEdit->GetReadOnly()};
}

void TZtAccessibleText::TellAll()
{
    const TTold now = Now(); // a text that the editor was given is taken over with it
    FPosted = false;
    if (ZtPlatform().IsAssisted()) {
        TellChanges();
        TellState(now);
    }
    FChanges.clear();
    FUnits = 0;
    FTooMuch = false;
    FTold = now;
}

void TZtAccessibleText::TellChanges()
{
    for (const TChange &change : std::exchange(FChanges, {})) {
        if (change.Removed.isEmpty()) {
            QAccessibleTextInsertEvent event(FEdit, change.Offset, change.Inserted);
            ZtPlatform().TellAssistants(event);
        } else if (change.Inserted.isEmpty()) {
            QAccessibleTextRemoveEvent event(FEdit, change.Offset, change.Removed);
            ZtPlatform().TellAssistants(event);
        } else {
            QAccessibleTextUpdateEvent event(FEdit, change.Offset, change.Removed, change.Inserted);
            ZtPlatform().TellAssistants(event);
        }
    }
    if (FTooMuch) {
        QAccessibleValueChangeEvent event(FEdit, QVariant());
        ZtPlatform().TellAssistants(event);
    }
}

void TZtAccessibleText::TellState(const TTold &ANow)
{
    if (ANow.Selection != FTold.Selection && (ANow.Selection.first != ANow.Selection.second ||
                                              FTold.Selection.first != FTold.Selection.second)) {
        QAccessibleTextSelectionEvent event(FEdit, ANow.Selection.first, ANow.Selection.second);
        event.setCursorPosition(ANow.Caret);
        ZtPlatform().TellAssistants(event);
    } else if (ANow.Caret != FTold.Caret || FTooMuch) {
        QAccessibleTextCursorEvent event(FEdit, ANow.Caret);
        ZtPlatform().TellAssistants(event);
    }
    if (ANow.Notes != FTold.Notes) {
        QAccessibleEvent event(FEdit, QAccessible::DescriptionChanged);
        ZtPlatform().TellAssistants(event);
    }
    if (ANow.IsReadOnly != FTold.IsReadOnly) {
        QAccessible::State changed;
        changed.readOnly = changed.editable = true;
        QAccessibleStateChangeEvent event(FEdit, changed);
        ZtPlatform().TellAssistants(event);
    }
}
