#include "uZtCodeEdit.h"

#include "uZtEditExport.h"

#include <QMimeData>

bool TZtCodeEdit::Print(QPagedPaintDevice &ADevice, const TZtPrintOptions &AOptions)
{
    const THold hold(*this);
    GetParser();
    const auto text = FText; // a handler may give the editor another one
    const TZtEditExport output(*this);
    TZtTextPrinter printer(output.GetText(AOptions.SelectionOnly), FCells,
                           output.WithFont(AOptions));
    return printer.Print(ADevice);
}

int TZtCodeEdit::PageCount(const QPagedPaintDevice &ADevice, const TZtPrintOptions &AOptions) const
{
    const TZtEditExport output(*this);
    return TZtTextPrinter(output.GetText(AOptions.SelectionOnly), FCells, output.WithFont(AOptions))
        .PageCount(ADevice);
}

bool TZtCodeEdit::WriteHtml(QIODevice &ADevice, bool ASelectionOnly, const QString &ATitle)
{
    const THold hold(*this);
    GetParser();
    const auto text = FText;
    const TZtEditExport output(*this);
    TZtHtmlOptions options = output.HtmlOptions();
    options.Title = ATitle;
    return ZtWriteHtml(ADevice, output.GetText(ASelectionOnly), options);
}

std::unique_ptr<QMimeData> TZtCodeEdit::CreateMimeData()
{
    return TZtEditExport::CreateMimeData(*this);
}
