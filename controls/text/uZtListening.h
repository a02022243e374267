#pragma once

#include "uZtStringList.h"

#include <QPointer>

/// Has a text tell a listener its changes for as long as this lives. The text may go before.
///
/// A text tells its listeners in the order in which they came. Who reads in `TextChanged` what
/// another one of its members keeps of the text declares this behind that member.
class TZtListening {
public:
    /// `AListener` outlives this.
    TZtListening(TStringList *AText, TZtTextListener *AListener)
        : FText(AText), FListener(AListener)
    {
        AText->AddListener(AListener);
    }
    ~TZtListening()
    {
        if (FText)
            FText->RemoveListener(FListener);
    }
    TZtListening(const TZtListening &) = delete;
    TZtListening &operator=(const TZtListening &) = delete;

    /// Null when the text has gone.
    TStringList *GetText() const { return FText; }
    /// How many lines there are; a text without any is shown as one.
    int GetLines() const { return FText && FText->GetCount() > 0 ? FText->GetCount() : 1; }

private:
    QPointer<TStringList> FText;
    TZtTextListener *FListener;
};
