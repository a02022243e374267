#pragma once

#include "uZtElements.h"

#include <QPoint>
#include <QString>

class TZtCodeEdit;

/// What is typed in the way of pairs (`TZtTypedPairs`), into an editor that has them on. Made for
/// one operation.
class TZtPairTyping final {
public:
    explicit TZtPairTyping(TZtCodeEdit &AEdit) : FEdit(AEdit) {}

    /// Answers whether a character was typed so.
    bool Type(const QString &S);
    /// Answers whether the caret stood in an empty pair, which is gone.
    bool EraseEmptyPair();

private:
    TZtElementKind KindAt(const QPoint &APlace) const;
    void Surround(const QString &AOpening, QChar AClosing);

    TZtCodeEdit &FEdit;
};
