#pragma once

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <vector>

class QLabel;

/// A text that can be said in fewer words where there is little room.
struct TStatusText {
    TStatusText(const QString &AFull, const QString &AShort = {})
        : Full(AFull), Short(AShort.isEmpty() ? AFull : AShort)
    {
    }
    QString Full;
    QString Short;
};

/// What a status bar says: a message for some time, a note otherwise, and texts that are always
/// there. Texts and messages are shown whole at any width: where there is no room for them in one
/// row, all texts take their short forms, then the message goes into a row of its own, then the
/// texts take several rows. A note, which comes and goes with the caret, takes no more than a row:
/// what there is no room for is in its tooltip.
class TStatusTexts : public QWidget {
    Q_OBJECT

public:
    explicit TStatusTexts(QWidget *AParent = nullptr);

    void SetTexts(const QList<TStatusText> &ATexts);
    /// Says something for so many milliseconds, or with 0 until there is something else to say.
    void ShowMessage(const QString &AText, int ATime = 0);
    /// Says something as long as no message is shown; empty for nothing. Another note is something
    /// else to say than a message without an end.
    void SetNote(const QString &AText);

    QSize sizeHint() const override { return minimumSizeHint(); }
    /// No width of its own, so that a window can be as narrow as it likes.
    QSize minimumSizeHint() const override { return {0, FHeight}; }

protected:
    void resizeEvent(QResizeEvent *AEvent) override;
    void changeEvent(QEvent *AEvent) override;

private:
    using TRow = std::vector<QLabel *>;
    QLabel *NewLabel();
    int SetForm(bool AShort);
    void ShowNote();
    int FitNote();
    void Arrange();
    int PlaceMessage(int AWidth);
    int PlaceTexts(int ATop);
    void PlaceRow(const TRow &ARow, int ATop, int AHeight);

    QLabel *FMessage; // shows the note where there is no message
    QString FNote;
    bool FShowsNote = true;
    QTimer FMessageTime;
    QList<TStatusText> FTexts;
    std::vector<QLabel *> FLabels; // those behind the texts are hidden
    int FHeight = 0;
};
