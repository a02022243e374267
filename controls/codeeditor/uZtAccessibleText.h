#pragma once

#include "uZtEditWatcher.h"
#include "uZtTextOffsets.h"

#include <QCoreApplication>
#include <QPointer>

#include <optional>
#include <utility>
#include <vector>

class TZtCodeEdit;

/// An editor's text, caret and selection as assistive tools count them, by offsets into one string,
/// and what they are told of them.
///
/// Made when a tool asks for an editor first; until then nothing is counted and nothing is told.
/// What happened is told when the event loop comes round, the changes of the text in their order
/// and then where the caret and the selection are: no tool sees an operation half done. A turn of
/// the loop in which more was changed than a tool can make use of (`MostChanges`, `MostUnits`) is
/// told as one change of the value.
class TZtAccessibleText final : public TZtTextListener, public TZtEditWatcher {
    Q_DECLARE_TR_FUNCTIONS(TZtAccessibleText)

public:
    static constexpr int MostChanges = 256;
    static constexpr qint64 MostUnits = 65536;

    explicit TZtAccessibleText(TZtCodeEdit &AEdit);
    ~TZtAccessibleText();
    TZtAccessibleText(const TZtAccessibleText &) = delete;
    TZtAccessibleText &operator=(const TZtAccessibleText &) = delete;

    /// Offsets are 0-based, in UTF-16 units; a break is one. What lies behind the first 2^31 - 1
    /// cannot be reached.
    int GetCount() { return Narrow(Offsets().GetCount()); }
    int OffsetOf(const QPoint &APlace) { return Narrow(Offsets().OffsetOf(APlace)); }
    QPoint PlaceOf(int AOffset) { return Offsets().PlaceOf(AOffset); }
    /// What stands between two offsets, with a line feed for each break.
    QString GetText(int AFrom, int ATo);
    int GetCaret();
    /// In order; both are the caret where nothing is selected.
    std::pair<int, int> GetSelection();
    /// What is said of the caret's line: its diagnostics and marks; empty where there is nothing.
    QString GetNotes();

    void TextChanged(const TStringList &AText, const TZtTextChange &AChange) override;
    bool WantsRemoved() const override;
    void Seen() override;

private:
    struct TChange {
        int Offset;
        QString Removed;
        QString Inserted;
    };
    // What tools were told last.
    struct TTold {
        int Caret = 0;
        std::pair<int, int> Selection;
        QString Notes;
        bool IsReadOnly = false;
    };

    static int Narrow(qint64 AOffset);
    TZtTextOffsets &Offsets();
    TTold Now();
    bool Remember(const TStringList &AText, const TZtTextChange &AChange);
    void TellAll();
    void TellChanges();
    void TellState(const TTold &ANow);

    TZtCodeEdit *FEdit;
    QPointer<QObject> FAlive;    // the editor, which Qt says is gone when it is half so
    QPointer<TStringList> FText; // that is listened to
    std::optional<TZtTextOffsets> FOffsets;
    std::optional<TZtListening> FListening; // behind the offsets
    std::vector<TChange> FChanges;
    qint64 FUnits = 0; // of these
    bool FTooMuch = false;
    TTold FTold;
    bool FPosted = false;
    QObject FLater; // what is posted goes with it
};
