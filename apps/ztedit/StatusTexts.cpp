#include "StatusTexts.h"

#include "PlainText.h"

#include <QEvent>
#include <QLabel>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int LeastNote = 200; // pixels in which a note says something

// How wide it is in one line.
int WidthOf(QLabel &ALabel)
{
    ALabel.setWordWrap(false);
    return ALabel.sizeHint().width();
}

// Its height where it has this room, in several lines if need be.
int HeightIn(QLabel &ALabel, int AWidth)
{
    const int line = ALabel.sizeHint().height();
    if (WidthOf(ALabel) <= AWidth)
        return line;
    ALabel.setWordWrap(true);
    return std::max(line, ALabel.heightForWidth(std::max(AWidth, 1)));
}

} // namespace

TStatusTexts::TStatusTexts(QWidget *AParent) : QWidget(AParent), FMessage(NewLabel())
{
    FMessageTime.setSingleShot(true);
    connect(&FMessageTime, &QTimer::timeout, this, &TStatusTexts::ShowNote);
    FHeight = FMessage->sizeHint().height();
}

QLabel *TStatusTexts::NewLabel()
{
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(6, 0, 6, 0);
    return label;
}

void TStatusTexts::SetTexts(const QList<TStatusText> &ATexts)
{
    FTexts = ATexts;
    while (qsizetype(FLabels.size()) < FTexts.size())
        FLabels.push_back(NewLabel());
    Arrange();
}

void TStatusTexts::ShowMessage(const QString &AText, int ATime)
{
    if (AText.isEmpty())
        return ShowNote();
    FShowsNote = false;
    FMessage->setText(AText);
    FMessage->setToolTip({});
    FMessageTime.stop();
    if (ATime > 0)
        FMessageTime.start(ATime);
    Arrange();
}

void TStatusTexts::SetNote(const QString &AText)
{
    if (AText == FNote)
        return;
    FNote = AText;
    if (FShowsNote || (!FMessageTime.isActive() && !FNote.isEmpty()))
        ShowNote();
}

void TStatusTexts::ShowNote()
{
    FMessageTime.stop();
    FShowsNote = true;
    Arrange();
}

// Beside the texts, or in a row of its own where that leaves too little. Answers how wide it is.
int TStatusTexts::FitNote()
{
    const QString line = FNote.simplified();
    FMessage->setText(line);
    if (line.isEmpty())
        return 0;
    int room = width() - SetForm(false);
    if (room < LeastNote)
        room = width() - SetForm(true);
    if (room < LeastNote)
        room = width();
    const QFontMetrics metrics = FMessage->fontMetrics();
    const int margins = WidthOf(*FMessage) - metrics.horizontalAdvance(line);
    FMessage->setText(metrics.elidedText(line, Qt::ElideRight, room - margins));
    FMessage->setToolTip(FMessage->text() == FNote ? QString() : ZtPlainToolTip(FNote));
    return WidthOf(*FMessage);
}

void TStatusTexts::resizeEvent(QResizeEvent *AEvent)
{
    QWidget::resizeEvent(AEvent);
    Arrange();
}

void TStatusTexts::changeEvent(QEvent *AEvent)
{
    QWidget::changeEvent(AEvent);
    if (AEvent->type() == QEvent::FontChange || AEvent->type() == QEvent::StyleChange)
        Arrange();
}

// Answers how wide all texts are in one row.
int TStatusTexts::SetForm(bool AShort)
{
    int width = 0;
    for (qsizetype i = 0; i < FTexts.size(); ++i) {
        QLabel &label = *FLabels[size_t(i)];
        label.setText(AShort ? FTexts[i].Short : FTexts[i].Full);
        label.setToolTip(FTexts[i].Short == FTexts[i].Full || !AShort ? QString() : FTexts[i].Full);
        width += WidthOf(label);
    }
    return width;
}

void TStatusTexts::Arrange()
{
    const int message = FShowsNote ? FitNote() : WidthOf(*FMessage);
    const bool beside = message + SetForm(false) <= width() || message + SetForm(true) <= width();
    if (!beside && SetForm(false) > width())
        SetForm(true);
    for (size_t i = 0; i < FLabels.size(); ++i)
        FLabels[i]->setVisible(qsizetype(i) < FTexts.size() && !FLabels[i]->text().isEmpty());
    FMessage->setVisible(message > 0);
    const int top = message > 0 ? PlaceMessage(beside ? message : width()) : 0;
    const int bottom = PlaceTexts(beside ? 0 : top);
    const int height = std::max({top, bottom, FMessage->sizeHint().height()});
    if (height != FHeight) {
        FHeight = height;
        updateGeometry();
    }
}

// Answers where it ends.
int TStatusTexts::PlaceMessage(int AWidth)
{
    const QRect place(0, 0, AWidth, HeightIn(*FMessage, AWidth));
    FMessage->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    return place.height();
}

// Answers where they end.
int TStatusTexts::PlaceTexts(int ATop)
{
    int top = ATop;
    int used = 0;
    int height = 0;
    TRow row;
    const auto end = [&] {
        PlaceRow(row, top, height);
        top += height;
        used = height = 0;
        row.clear();
    };
    for (QLabel *label : FLabels) {
        if (label->isHidden())
            continue;
        const int room = WidthOf(*label);
        if (!row.empty() && used + room > width())
            end();
        row.push_back(label);
        used += room;
        height = std::max(height, HeightIn(*label, width()));
    }
    end();
    return top;
}

// At the far end.
void TStatusTexts::PlaceRow(const TRow &ARow, int ATop, int AHeight)
{
    int right = width();
    for (auto label = ARow.rbegin(); label != ARow.rend(); ++label) {
        const bool wraps = (*label)->wordWrap();
        const int room = wraps ? width() : WidthOf(**label);
        right -= room;
        const QRect place(right, ATop, room, AHeight);
        (*label)->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    }
}
