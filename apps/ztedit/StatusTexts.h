#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QLabel;

/// A row of texts for a status bar. Each is shown whole or not at all: where there is no room for
/// all, the last ones go first.
class TStatusTexts : public QWidget {
    Q_OBJECT

public:
    explicit TStatusTexts(QWidget *AParent = nullptr);

    /// Shows these texts, the most important first.
    void SetTexts(const QStringList &ATexts);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent *AEvent) override;

private:
    void ShowWhatFits();

    std::vector<QLabel *> FLabels;
};
