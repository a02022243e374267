#include "StatusTexts.h"

#include <QHBoxLayout>
#include <QLabel>

TStatusTexts::TStatusTexts(QWidget *AParent) : QWidget(AParent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addStretch();
}

void TStatusTexts::SetTexts(const QStringList &ATexts)
{
    while (qsizetype(FLabels.size()) < ATexts.size()) {
        auto *label = new QLabel(this);
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(8, 0, 8, 0);
        layout()->addWidget(label);
        FLabels.push_back(label);
    }
    for (size_t i = 0; i < FLabels.size(); ++i)
        FLabels[i]->setText(ATexts.value(qsizetype(i)));
    if (parentWidget() && parentWidget()->layout() && sizeHint().width() > width()) {
        updateGeometry();
        parentWidget()->layout()->activate(); // or a text is missing until the next picture
    }
    ShowWhatFits();
}

QSize TStatusTexts::sizeHint() const
{
    QSize size(0, 0);
    for (const QLabel *label : FLabels) {
        const QSize hint = label->sizeHint();
        size = QSize(size.width() + hint.width(), qMax(size.height(), hint.height()));
    }
    return size;
}

void TStatusTexts::resizeEvent(QResizeEvent *AEvent)
{
    QWidget::resizeEvent(AEvent);
    ShowWhatFits();
}

void TStatusTexts::ShowWhatFits()
{
    int used = 0;
    for (QLabel *label : FLabels) {
        used += label->sizeHint().width();
        label->setVisible(!label->text().isEmpty() && used <= width());
    }
}
