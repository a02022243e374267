#pragma once

#include "uZtExtras.h"
#include "uZtGuttor.h"
#include "uZtOverviewRuler.h"
#include "uZtTypedPairs.h"
#include "uZtViewPart.h"

#include <memory>
#include <vector>

/// What an editor shows beside its text: the parts of the view that `TZtExtras` asks for, the
/// gutter's columns and the overview ruler. The editor owns it from the first of them on.
class TZtEditExtras final {
public:
    /// `AWidget` is the editor's own, for the ruler.
    TZtEditExtras(TZtViewHost &AEdit, QWidget *AWidget);
    ~TZtEditExtras();
    TZtEditExtras(const TZtEditExtras &) = delete;
    TZtEditExtras &operator=(const TZtEditExtras &) = delete;

    /// Makes what is asked for and takes away what is not.
    void Show(TZtExtras AWhich);
    TZtGuttor &Guttor() { return FGuttor; }
    /// The column of marks, also while it is not shown.
    TZtMarkColumn &MarkColumn() { return *FMarks; }
    /// Null while there is none.
    TZtOverviewRuler *Ruler() const { return FRuler.get(); }
    /// Null while there are none.
    std::shared_ptr<TZtTypedPairs> Pairs() const { return FPairs; }
    /// The part that is shown for an extra; null if it is not.
    template <typename TPart> std::shared_ptr<TPart> Find(TZtExtra AFor) const
    {
        return std::static_pointer_cast<TPart>(FindPart(AFor));
    }

    void BeginRows(int AFirst, int ALast);
    /// What is drawn of a line, of which the units from `AFrom` to `ATo` are in sight. Valid until
    /// the next call.
    const TZtLineLook &LookOf(int ALine, int AFrom, int ATo);
    void TextAttached();
    void TextChanged();
    /// Whether what is shown depends on where the caret is.
    bool FollowsCaret() const { return FFollowsCaret; }
    void CaretMoved();
    /// What is marked is other.
    void UpdateRuler();
    /// The shortest of the parts' (`TZtViewPart::GetWorkDelay`).
    int GetWorkDelay() const;
    void Advance(int AMilliseconds);
    QString GetToolTip(const QPoint &APlace) const;
    /// Takes over the colours of the editor.
    void TakeColours();
    TZtGuttorLook GetGuttorLook() const;

private:
    std::shared_ptr<TZtViewPart> FindPart(TZtExtra AFor) const;
    void ShowRuler(bool AShow);
    void GoTo(double APlace) const;
    void Survey(std::vector<quint32> &ARows) const;

    TZtViewHost &FEdit;
    QWidget *FWidget;
    TZtGuttor FGuttor;
    TZtMarkColumn *FMarks; // these three are the gutter's
    TZtNumberColumn *FNumbers;
    TZtChangeColumn *FChanges;
    std::unique_ptr<TZtOverviewRuler> FRuler;
    std::shared_ptr<TZtTypedPairs> FPairs;
    std::vector<std::shared_ptr<TZtViewPart>> FParts; // the lowest first; null: not shown
    TZtLineLook FLook;
    bool FFollowsCaret = false;
};
