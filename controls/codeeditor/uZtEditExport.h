#pragma once

#include "uZtHtmlExport.h"
#include "uZtTextColours.h"
#include "uZtTextPrinter.h"

#include <QPoint>
#include <QString>

#include <memory>

class QMimeData;
class TZtCodeEdit;

/// What leaves an editor for paper, files and other programs: its text or what is selected, in its
/// colours and its font. Made for one operation; the editor has to outlive it.
class TZtEditExport final {
public:
    explicit TZtEditExport(const TZtCodeEdit &AEdit) : FEdit(AEdit) {}

    /// The text, or with `ASelectionOnly` the selection, which is empty where there is none.
    TZtColouredText GetText(bool ASelectionOnly) const;
    /// With the editor's family of fonts, where no font is given.
    TZtPrintOptions WithFont(const TZtPrintOptions &AOptions) const;
    TZtHtmlOptions HtmlOptions() const; ///< without a title
    /// See `TZtCodeEdit::CreateMimeData`.
    static std::unique_ptr<QMimeData> CreateMimeData(TZtCodeEdit &AEdit);
    /// Puts what is selected, which `S` is the text of, into the clipboard.
    static void ToClipboard(TZtCodeEdit &AEdit, const QString &S);

private:
    bool GetSelection(QPoint &AFrom, QPoint &ATo) const;
    static std::unique_ptr<QMimeData> MimeOf(TZtCodeEdit &AEdit, const QString &S,
                                             const QPoint &AFrom, const QPoint &ATo);

    const TZtCodeEdit &FEdit;
};
