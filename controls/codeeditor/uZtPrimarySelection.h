#pragma once

#include "uZtTextChange.h"

#include <QPoint>
#include <QPointer>

#include <memory>
#include <optional>

class QMimeData;
class TZtCodeEdit;

/// Offers what is selected in an editor as the desktop's primary selection, where it has one. The
/// text is made when somebody asks for it; what was selected last is there also when the selection
/// has gone, as long as nobody changed it before.
class TZtPrimarySelection final : public std::enable_shared_from_this<TZtPrimarySelection> {
public:
    /// The editor has it.
    explicit TZtPrimarySelection(TZtCodeEdit &AEdit) : FEdit(AEdit) {}
    ~TZtPrimarySelection();
    TZtPrimarySelection(const TZtPrimarySelection &) = delete;
    TZtPrimarySelection &operator=(const TZtPrimarySelection &) = delete;

    /// The user did something: offers another selection than the one that was offered last.
    void Follow();
    /// The text is about to change: what was selected last stays what it is.
    void Keep();
    /// What was selected last, with the desktop's line breaks.
    QString GetText() const;

private:
    class TData;
    std::optional<TZtTextPiece> LastPiece() const;

    TZtCodeEdit &FEdit;
    QPoint FFrom; // the range that was offered last; empty before the first
    QPoint FTo;
    quint64 FRevision = 0; // of the text then
    std::optional<TZtTextPiece> FKept;
    QPointer<QMimeData> FData; // null when another program or editor offers something
};
