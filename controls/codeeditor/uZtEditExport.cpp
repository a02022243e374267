#include "uZtEditExport.h"

#include "uZtCodeEdit.h"
#include "uZtHighlighter.h"
#include "uZtPlatform.h"
#include "uZtTextMime.h"

#include <QFontInfo>

using enum TZtViewColor;

namespace {

constexpr qsizetype MostWithColours = 1 << 20; // units
constexpr qreal PrintSize = 9;                 // points

} // namespace

// The selection in order and in the text, as it stands; false without one.
bool TZtEditExport::GetSelection(QPoint &AFrom, QPoint &ATo) const
{
    if (FEdit.FLines->GetCount() == 0)
        return false;
    const bool swapped = FEdit.SelectionReversed();
    AFrom = FEdit.InLine(FEdit.InText(swapped ? FEdit.FSelEnd : FEdit.FSelStart));
    ATo = FEdit.InLine(FEdit.InText(swapped ? FEdit.FSelStart : FEdit.FSelEnd));
    const QPoint &end = swapped ? FEdit.FSelStart : FEdit.FSelEnd;
    return FEdit.FSelStart.x() != -1 && FEdit.FSelEnd.x() != -1 && end.x() != ZtEndOfLine &&
           AFrom != ATo;
}

TZtColouredText TZtEditExport::GetText(bool ASelectionOnly) const
{
    TZtColouredText text{FEdit.FLines, FEdit.FParser, FEdit.FScheme, {}};
    QPoint from;
    QPoint to;
    if (!ASelectionOnly)
        return text;
    if (!GetSelection(from, to))
        to = from = QPoint();
    text.From = from;
    text.To = to;
    return text;
}

TZtPrintOptions TZtEditExport::WithFont(const TZtPrintOptions &AOptions) const
{
    TZtPrintOptions options = AOptions;
    if (options.Font)
        return options;
    options.Font = FEdit.font();
    options.Font->setPointSizeF(PrintSize);
    return options;
}

TZtHtmlOptions TZtEditExport::HtmlOptions() const
{
    TZtHtmlOptions options;
    options.FontFamily = QFontInfo(FEdit.font()).family();
    options.TabWidth = FEdit.FCells.TabWidth;
    const TZtColouredText text{FEdit.FLines, FEdit.FParser, FEdit.FScheme, {}};
    options.Text = text.GetColour(vcText);
    options.Background = text.GetColour(vcBackground);
    return options;
}

std::unique_ptr<QMimeData> TZtEditExport::CreateMimeData(TZtCodeEdit &AEdit)
{
    QPoint from;
    QPoint to;
    if (!TZtEditExport(AEdit).GetSelection(from, to))
        return std::make_unique<QMimeData>();
    auto mime = MimeOf(AEdit, AEdit.FLines->GetPiece(from, to).GetText(), from, to);
    mime->setText(ZtToDesktop(mime->text()));
    return mime;
}

// The colours are those that are known, or found from a few lines above: a key does not wait for
// the whole text.
std::unique_ptr<QMimeData> TZtEditExport::MimeOf(TZtCodeEdit &AEdit, const QString &S,
                                                 const QPoint &AFrom, const QPoint &ATo)
{
    if (S.size() > MostWithColours || !AEdit.HasExtra(TZtExtra::zeRichCopy)) {
        auto plain = std::make_unique<QMimeData>();
        plain->setText(S);
        return plain;
    }
    auto highlighter = AEdit.FHighlighter;
    if (!highlighter) {
        highlighter = std::make_shared<TZtHighlighter>();
        highlighter->SetText(AEdit.FLines);
    }
    highlighter->SetParser(AEdit.GetParser());
    bool exact = false;
    auto runs = highlighter->Peek(AFrom.y(), ATo.y(), int(MostWithColours), exact);
    return std::make_unique<TZtTextMime>(S, std::move(runs), AFrom.x(),
                                         TZtEditExport(AEdit).HtmlOptions());
}

// What is selected, which `S` is the text of.
void TZtEditExport::ToClipboard(TZtCodeEdit &AEdit, const QString &S)
{
    QPoint from;
    QPoint to;
    if (S.isEmpty() || !AEdit.HasExtra(TZtExtra::zeRichCopy) ||
        !TZtEditExport(AEdit).GetSelection(from, to))
        return AEdit.Tell([&] { ZtPlatform().SetClipboardText(S); });
    auto mime = MimeOf(AEdit, S, from, to);
    AEdit.Tell([&] { ZtPlatform().SetClipboardData(std::move(mime)); });
}
