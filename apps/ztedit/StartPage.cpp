#include "StartPage.h"

#include "Icons.h"

#include <QAction>
#include <QBoxLayout>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int SymbolSize = 72;

// Like links, but the one with the focus is seen.
constexpr const char *ButtonStyle =
    "QPushButton { text-align: left; padding: 5px 12px; border: 1px solid transparent;"
    " border-radius: 3px; outline: 0; }"
    "QPushButton:hover { background: palette(midlight); }"
    "QPushButton:focus { border-color: palette(highlight); }";

QLabel *Centered(QWidget *AParent)
{
    auto *label = new QLabel(AParent);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

TStartPage::TStartPage(const QList<TWay> &AWays, QWidget *AParent) : QWidget(AParent)
{
    auto *symbol = Centered(this);
    symbol->setPixmap(ZtSymbol().pixmap(QSize(SymbolSize, SymbolSize), devicePixelRatio()));
    auto *name = Centered(this);
    name->setText(QGuiApplication::applicationDisplayName());
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    name->setFont(font);
    setStyleSheet(QLatin1StringView(ButtonStyle));
    auto *ways = new QGridLayout;
    ways->setVerticalSpacing(2);
    for (const TWay &way : AWays)
        AddWay(way, *ways);
    auto *drop = Centered(this);
    drop->setText(tr("or drop files here"));
    drop->setForegroundRole(QPalette::PlaceholderText);

    auto *column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addStretch();
    column->addWidget(symbol);
    column->addWidget(name);
    column->addSpacing(8);
    auto *middle = new QHBoxLayout;
    middle->addStretch();
    middle->addLayout(ways);
    middle->addStretch();
    column->addLayout(middle);
    column->addWidget(drop);
    column->addStretch();
}

void TStartPage::AddWay(const TWay &AWay, QGridLayout &ATo)
{
    auto *button = new QPushButton(AWay.Action->icon(), AWay.Text, this);
    button->setFlat(true);
    button->setAutoDefault(true); // Enter presses it, not the space bar alone
    connect(button, &QPushButton::clicked, AWay.Action, &QAction::trigger);
    const QString keys = AWay.Action->shortcut().toString(QKeySequence::NativeText);
    button->setAccessibleDescription(keys);
    auto *label = new QLabel(keys, this);
    label->setForegroundRole(QPalette::PlaceholderText);
    const int row = ATo.rowCount();
    ATo.addWidget(button, row, 0);
    ATo.addWidget(label, row, 1);
    if (!focusProxy())
        setFocusProxy(button);
}
