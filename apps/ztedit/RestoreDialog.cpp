#include "RestoreDialog.h"

#include "LineDiff.h"

#include "uZtCodeEdit.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

TRestoreDialog::TRestoreDialog(const TRestoreOffer &AOffer, QWidget *AParent)
    : QDialog(AParent), FView(new TZtCodeEdit(this))
{
    setWindowTitle(tr("Restore"));
    auto *layout = new QVBoxLayout(this);
    auto *note = new QLabel(AOffer.Note, this);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    layout->addWidget(note);
    auto *label = new QLabel(tr("What would come &back:"), this);
    label->setBuddy(FView);
    layout->addWidget(label);
    FView->SetCorrections(ZtAllCorrections());
    FView->SetShowGuttor(false);
    FView->SetShowRightMargin(false);
    FView->SetReadOnly(true);
    FView->setAccessibleName(tr("What would come back"));
    layout->addWidget(FView, 1);
    AddButtons();
    resize(760, 480);
    if (!AOffer.Before) {
        ShowText(*AOffer.After);
        return;
    }
    auto *diff = new TLineDiff(this);
    connect(diff, &TLineDiff::Finished, this, [this, after = AOffer.After](const QString &text) {
        if (text.isEmpty())
            ShowText(*after);
        else
            FView->SetText(text);
    });
    diff->Start(*AOffer.Before, tr("in the file"), *AOffer.After, tr("restored"));
}

// As much of it as anybody will read here.
void TRestoreDialog::ShowText(const TStringList &AText)
{
    constexpr int mostLines = 20'000;
    constexpr int mostColumns = 1'000;
    QString text;
    for (int i = 0; i < std::min(AText.GetCount(), mostLines); ++i) {
        AText.AppendTo(i, 0, std::min(AText.GetLength(i), mostColumns), text);
        text += u'\n';
    }
    FView->SetText(text);
}

void TRestoreDialog::AddButtons()
{
    auto *box = new QDialogButtonBox(this);
    const auto add = [&](const QString &text, TAnswer answer, QDialogButtonBox::ButtonRole role) {
        QPushButton *button = box->addButton(text, role);
        button->setAutoDefault(answer == Restore);
        button->setDefault(answer == Restore);
        connect(button, &QPushButton::clicked, this, [this, answer] { done(answer); });
        return button;
    };
    add(tr("&Restore"), Restore, QDialogButtonBox::AcceptRole)->setFocus();
    add(tr("&Later"), Later, QDialogButtonBox::RejectRole);
    add(tr("&Discard…"), Discard, QDialogButtonBox::DestructiveRole);
    layout()->addWidget(box);
}
