#include "PrintFlow.h"

#include "Document.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"
#include "uZtGuarded.h"
#include "uZtTextPrinter.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QSaveFile>
#include <QVBoxLayout>

namespace {

constexpr int Patience = 500; // milliseconds until a user is shown how far it is
constexpr qreal Margin = 15;  // millimetres

struct TPrintFlow {
    Q_DECLARE_TR_FUNCTIONS(PrintFlow)
};

// What a user can choose of the pages' looks, as it was chosen last.
struct TPrintChoice {
    bool LineNumbers = true;
    bool Wrap = true;
    bool Fields = true; // header and footer
};
TPrintChoice Chosen;

struct TPrintSwitch {
    const char *Text;
    bool TPrintChoice::*Value;
};
constexpr TPrintSwitch Switches[] = {
    {QT_TRANSLATE_NOOP("PrintFlow", "&Line numbers"), &TPrintChoice::LineNumbers},
    {QT_TRANSLATE_NOOP("PrintFlow", "&Wrap long lines"), &TPrintChoice::Wrap},
    {QT_TRANSLATE_NOOP("PrintFlow", "Header and &footer"), &TPrintChoice::Fields},
};

// A page of the dialog.
class TChoicePage : public QWidget {
public:
    TChoicePage()
    {
        setWindowTitle(TPrintFlow::tr("Text")); // of its tab
        auto *layout = new QVBoxLayout(this);
        for (const TPrintSwitch &row : Switches) {
            auto *box = new QCheckBox(TPrintFlow::tr(row.Text));
            box->setChecked(Chosen.*row.Value);
            connect(box, &QCheckBox::toggled, this,
                    [value = row.Value](bool on) { Chosen.*value = on; });
            layout->addWidget(box);
        }
        layout->addStretch();
    }
};

TZtPrintOptions OptionsOf(const TDocument &ADocument)
{
    TZtPrintOptions options;
    options.Name = ADocument.Title();
    options.Path = ADocument.Location();
    options.Scheme = ADocument.Editor()->GetScheme();
    return options;
}

// White paper takes no light letters: a dark scheme is for the screen.
TZtPrintOptions OptionsFor(const TDocument &ADocument, const QPrinter &APrinter)
{
    TZtPrintOptions options = OptionsOf(ADocument);
    if (options.Scheme->IsDark())
        options.Scheme = nullptr;
    options.LineNumbers = Chosen.LineNumbers;
    options.Wrap = Chosen.Wrap;
    if (!Chosen.Fields)
        options.Header = options.Footer = {};
    options.Monochrome = APrinter.colorMode() == QPrinter::GrayScale;
    options.SelectionOnly = APrinter.printRange() == QPrinter::Selection;
    // What the printer, or a file, does not do by itself.
    if (!APrinter.supportsMultipleCopies()) {
        options.Copies = APrinter.copyCount();
        options.Collated = APrinter.collateCopies();
    }
    if (APrinter.outputFormat() == QPrinter::PdfFormat)
        options.LastFirst = APrinter.pageOrder() == QPrinter::LastPageFirst;
    return options;
}

void PrintOn(QPrinter &APrinter, TDocument &ADocument, QWidget *AParent)
{
    QProgressDialog progress(TPrintFlow::tr("Printing \"%1\"…").arg(ADocument.Title()),
                             TPrintFlow::tr("Cancel"), 0, 0, AParent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(Patience);
    TZtPrintOptions options = OptionsFor(ADocument, APrinter);
    options.OnProgress = [&](int done, int count) {
        progress.setMaximum(count);
        progress.setValue(done);
        return !progress.wasCanceled();
    };
    if (!ADocument.Editor()->Print(APrinter, options))
        APrinter.abort();
}

void SetUp(QPrinter &APrinter, const TDocument &ADocument)
{
    APrinter.setDocName(ADocument.Title());
    APrinter.setCreator(QCoreApplication::applicationName());
    APrinter.setPageMargins({Margin, Margin, Margin, Margin}, QPageLayout::Millimeter);
}

// Writes a file that is there whole or not at all.
template <typename TWrite> void WriteFile(const QString &APath, TWrite AWrite)
{
    QSaveFile file(APath);
    file.setDirectWriteFallback(true);
    bool whole = file.open(QIODevice::WriteOnly);
    if (whole) {
        AWrite(file);
        whole = file.commit();
    }
    if (!whole)
        throw EStreamError(
            TPrintFlow::tr("Cannot write \"%1\": %2.").arg(APath, file.errorString()));
}

} // namespace

void ZtPrint(TDocument &ADocument, QWidget *AParent)
{
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer, ADocument);
    QPrintDialog dialog(&printer, AParent);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, ADocument.Editor()->SelectionGiven());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setOptionTabs({new TChoicePage});
    if (dialog.exec() == QDialog::Accepted)
        PrintOn(printer, ADocument, AParent);
}

void ZtPreviewPrint(TDocument &ADocument, QWidget *AParent)
{
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer, ADocument);
    QPrintPreviewDialog dialog(&printer, AParent);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     TZtGuarded([&](QPrinter *to) { PrintOn(*to, ADocument, &dialog); }));
    dialog.resize(900, 700);
    dialog.exec();
}

QString ZtExportHtml(TDocument &ADocument, QWidget *AParent)
{
    const QString name = ADocument.Location().isEmpty() ? ADocument.Title() : ADocument.Location();
    const QString path = QFileDialog::getSaveFileName(AParent, TPrintFlow::tr("Export as HTML"),
                                                      name + QStringLiteral(".html"),
                                                      TPrintFlow::tr("HTML (*.html *.htm)"));
    if (!path.isEmpty())
        ZtWriteHtmlTo(ADocument, path, ADocument.Editor()->SelectionGiven());
    return path;
}

void ZtPrintTo(TDocument &ADocument, const QString &APath)
{
    WriteFile(APath, [&](QIODevice &file) {
        QPdfWriter writer(&file);
        writer.setTitle(ADocument.Title());
        writer.setCreator(QCoreApplication::applicationName());
        writer.setPageMargins({Margin, Margin, Margin, Margin}, QPageLayout::Millimeter);
        ADocument.Editor()->Print(writer, OptionsOf(ADocument));
    });
}

void ZtWriteHtmlTo(TDocument &ADocument, const QString &APath, bool ASelectionOnly)
{
    WriteFile(APath, [&](QIODevice &file) {
        ADocument.Editor()->WriteHtml(file, ASelectionOnly, ADocument.Title());
    });
}
