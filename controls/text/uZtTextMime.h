#pragma once

#include "uZtExport.h"
#include "uZtHtmlExport.h"

#include <QMimeData>

/// A text as it is put on the clipboard or dragged: plain, and as HTML with its colours. The HTML
/// is made when somebody asks for it, from what the text was when this was made.
class ZT_EDITOR_EXPORT TZtTextMime : public QMimeData {
    Q_OBJECT

public:
    /// `ARuns` are those of the lines of `AText`, which CR LF ends; the first of them belong to a
    /// line that the text begins in at column `AFrom`.
    TZtTextMime(const QString &AText, std::vector<TZtColourRuns> ARuns, int AFrom,
                const TZtHtmlOptions &AOptions);

    bool hasFormat(const QString &AType) const override;
    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString &AType, QMetaType APreferred) const override;

private:
    QString Html() const;

    const QString FText;
    const std::vector<TZtColourRuns> FRuns;
    const int FFrom;
    const TZtHtmlOptions FOptions;
};
