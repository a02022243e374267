#include "uZtCodeEdit.h"

#include "uZtHighlighter.h"
#include "uZtPlatform.h"
#include "uZtTextMime.h"
#include "uZtTextPrinter.h"

#include <QFontInfo>

using enum TZtViewColor;

namespace {

constexpr qsizetype MostWithColours = 1 << 20; // units
constexpr qreal PrintSize = 9;                 // points

} // namespace

// The selection in order and in the text, as it stands; false without one.
bool TZtCodeEdit::GetSelection(QPoint &AFrom, QPoint &ATo) const
{
    if (FLines->GetCount() == 0)
        return false;
    const bool swapped = SelectionReversed();
    AFrom = InLine(InText(swapped ? FSelEnd : FSelStart));
    ATo = InLine(InText(swapped ? FSelStart : FSelEnd));
    const QPoint &end = swapped ? FSelStart : FSelEnd;
    return FSelStart.x() != -1 && FSelEnd.x() != -1 && end.x() != ZtEndOfLine && AFrom != ATo;
}

TZtColouredText TZtCodeEdit::ColouredText(bool ASelectionOnly) const
{
    TZtColouredText text{FLines, FParser, FScheme, {}};
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

TZtPrintOptions TZtCodeEdit::WithFont(const TZtPrintOptions &AOptions) const
{
    TZtPrintOptions options = AOptions;
    if (options.Font)
        return options;
    options.Font = font();
    options.Font->setPointSizeF(PrintSize);
    return options;
}

bool TZtCodeEdit::Print(QPagedPaintDevice &ADevice, const TZtPrintOptions &AOptions)
{
    const THold hold(*this);
    GetParser();
    const auto text = FText; // a handler may give the editor another one
    TZtTextPrinter printer(ColouredText(AOptions.SelectionOnly), FCells, WithFont(AOptions));
    return printer.Print(ADevice);
}

int TZtCodeEdit::PageCount(const QPagedPaintDevice &ADevice, const TZtPrintOptions &AOptions) const
{
    return TZtTextPrinter(ColouredText(AOptions.SelectionOnly), FCells, WithFont(AOptions))
        .PageCount(ADevice);
}

TZtHtmlOptions TZtCodeEdit::HtmlOptions() const
{
    TZtHtmlOptions options;
    options.FontFamily = QFontInfo(font()).family();
    options.TabWidth = FCells.TabWidth;
    const TZtColouredText text{FLines, FParser, FScheme, {}};
    options.Text = text.GetColour(vcText);
    options.Background = text.GetColour(vcBackground);
    return options;
}

bool TZtCodeEdit::WriteHtml(QIODevice &ADevice, bool ASelectionOnly, const QString &ATitle)
{
    const THold hold(*this);
    GetParser();
    const auto text = FText;
    TZtHtmlOptions options = HtmlOptions();
    options.Title = ATitle;
    return ZtWriteHtml(ADevice, ColouredText(ASelectionOnly), options);
}

std::unique_ptr<QMimeData> TZtCodeEdit::CreateMimeData()
{
    QPoint from;
    QPoint to;
    if (!GetSelection(from, to))
        return std::make_unique<QMimeData>();
    auto mime = MimeOf(FLines->GetPiece(from, to).GetText(), from, to);
    mime->setText(ZtToDesktop(mime->text()));
    return mime;
}

// The colours are those that are known, or found from a few lines above: a key does not wait for
// the whole text.
std::unique_ptr<QMimeData> TZtCodeEdit::MimeOf(const QString &S, const QPoint &AFrom,
                                               const QPoint &ATo)
{
    if (S.size() > MostWithColours || !HasExtra(TZtExtra::zeRichCopy)) {
        auto plain = std::make_unique<QMimeData>();
        plain->setText(S);
        return plain;
    }
    auto highlighter = FHighlighter;
    if (!highlighter) {
        highlighter = std::make_shared<TZtHighlighter>();
        highlighter->SetText(FLines);
    }
    highlighter->SetParser(GetParser());
    bool exact = false;
    auto runs = highlighter->Peek(AFrom.y(), ATo.y(), int(MostWithColours), exact);
    return std::make_unique<TZtTextMime>(S, std::move(runs), AFrom.x(), HtmlOptions());
}

// What is selected, which `S` is the text of.
void TZtCodeEdit::ToClipboard(const QString &S)
{
    QPoint from;
    QPoint to;
    if (S.isEmpty() || !HasExtra(TZtExtra::zeRichCopy) || !GetSelection(from, to))
        return Tell([&] { ZtPlatform().SetClipboardText(S); });
    auto mime = MimeOf(S, from, to);
    Tell([&] { ZtPlatform().SetClipboardData(std::move(mime)); });
}
