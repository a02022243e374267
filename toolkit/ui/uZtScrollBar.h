#pragma once

#include "uZtExport.h"
#include "uZtStringList.h"

#include <QScrollBar>

#include <optional>

/// Which way a bar lies.
enum class TScrollBarKind : quint8 { sbHorizontal, sbVertical };

/// A scroll bar whose position runs from 0 to `Max`. The page size sets the thumb's length and is
/// kept as it was given, also when it is negative or larger than the range. The bar is drawn again
/// when its thumb moves by a pixel: in a long text most changes of the range do not.
class ZT_EDITOR_EXPORT TScrollBar : public QScrollBar {
    Q_OBJECT

public:
    explicit TScrollBar(QWidget *AOwner);

    /// Fired after the position changed, by whatever means.
    TNotifyEvent OnChange;

    /// Turns the bar. Its thickness is left: see `FitThickness`.
    void SetKind(TScrollBarKind Value);
    /// Makes the bar as thick as a style sheet wants it, or else as it was made.
    void FitThickness();
    int GetPosition() const { return value(); }
    /// A value outside 0 to `Max` is clipped.
    void SetPosition(int Value) { setValue(Value); }
    int GetMax() const { return maximum(); } ///< of the position; 0 or more
    void SetMax(int Value) { setMaximum(Value); }
    /// How far a page is, which sets the thumb's length; kept as it was given.
    int GetPageSize() const { return FPageSize; }
    void SetPageSize(int Value);
    int GetLargeChange() const { return FLargeChange; }
    /// What a click beside the thumb moves by, as Page Up and Page Down on the bar do.
    void SetLargeChange(int Value) { FLargeChange = Value; }

protected:
    void paintEvent(QPaintEvent *AEvent) override;
    void sliderChange(SliderChange AChange) override;

private:
    // What a style draws from the position and the range.
    struct TLook {
        QRect Thumb;
        bool AtMinimum;
        bool AtMaximum;
        bool operator==(const TLook &) const = default;
    };
    TLook Look() const;
    void UpdateLook();
    void TakeLargeStep(int AAction);

    std::optional<TLook> FDrawn; // by the last paint, unless it came between a change and its look
    bool FLookAsked = false;
    int FThickness; // of the style that it was made in, in pixels
    int FPageSize = 0;
    int FLargeChange = 1;
};
