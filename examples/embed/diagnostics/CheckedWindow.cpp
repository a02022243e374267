#include "CheckedWindow.h"

#include "Checker.h"

#include "uZtCodeEdit.h"
#include "uZtTextMarks.h"

#include <QStatusBar>
#include <QtConcurrent>

namespace {

constexpr int Pause = 250; // milliseconds without a change before the text is checked
constexpr char Source[] = "checker";

} // namespace

TCheckedWindow::TCheckedWindow(QWidget *AParent)
    : QMainWindow(AParent), FEditor(new TZtCodeEdit(this))
{
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    FEditor->SetCorrections(ZtAllCorrections());
    FEditor->SetExtras(ZtAllExtras());
    FEditor->SetScheme(TZtColorScheme::Find(dark ? "Dark" : "Light"));
    FEditor->SetLanguage("JavaScript");
    setCentralWidget(FEditor);

    FPause.setSingleShot(true);
    FPause.setInterval(Pause);
    connect(&FPause, &QTimer::timeout, this, &TCheckedWindow::Check);
    connect(FEditor, &TZtCodeEdit::textChanged, &FPause, qOverload<>(&QTimer::start));
    connect(FEditor, &TZtCodeEdit::cursorPositionChanged, this, &TCheckedWindow::ShowMessage);
    connect(&FCheck, &QFutureWatcherBase::finished, this, &TCheckedWindow::Checked);

    FEditor->SetText("// F8 goes from one finding to the next.\n"
                     "function total(items) {\n"
                     "  let sum = 0;\n"
                     "  for (const item of items)\n"
                     "    if (item.price != null) // TODO: other currencies\n"
                     "      sum += item.price * (1 + item.tax;\n"
                     "  return 'sum: + sum;\n"
                     "}\n");
}

// The copy of the text goes to the thread; what is found comes back to this one.
void TCheckedWindow::Check()
{
    FCheck.setFuture(QtConcurrent::run(FindProblems, FEditor->GetText()));
}

void TCheckedWindow::Checked()
{
    if (FPause.isActive())
        return; // the text is another one by now, and will be checked
    FEditor->GetTextMarks().Diagnostics.Set(Source, FCheck.result());
    ShowMessage();
}

void TCheckedWindow::ShowMessage()
{
    TZtDiagnostics &found = FEditor->GetTextMarks().Diagnostics;
    const auto here = found.At(QPoint(FEditor->GetCharPos(), FEditor->GetLinePos()));
    statusBar()->showMessage(here.empty() ? tr("Findings: %1").arg(found.GetCount())
                                          : here.front().Message);
}
