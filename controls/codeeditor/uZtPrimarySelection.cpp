#include "uZtPrimarySelection.h"

#include "uZtCodeEdit.h"
#include "uZtPlatform.h"

#include <QMimeData>

namespace {

const QLatin1StringView PlainText("text/plain");

} // namespace

// What the desktop holds. It may outlive the editor, and is empty then.
class TZtPrimarySelection::TData final : public QMimeData {
public:
    explicit TData(const std::weak_ptr<TZtPrimarySelection> &AOwner) : FOwner(AOwner) {}
    QStringList formats() const override
    {
        return FOwner.expired() ? QStringList() : QStringList(PlainText);
    }

protected:
    QVariant retrieveData(const QString &AFormat, QMetaType AType) const override
    {
        const auto owner = FOwner.lock();
        if (!owner || AFormat != PlainText)
            return QMimeData::retrieveData(AFormat, AType);
        return owner->GetText();
    }

private:
    std::weak_ptr<TZtPrimarySelection> FOwner;
};

TZtPrimarySelection::~TZtPrimarySelection()
{
    if (FData)
        ZtPlatform().SetPrimary(nullptr);
}

void TZtPrimarySelection::Follow()
{
    if (!FEdit.SelectionGiven())
        return Keep();
    QPoint from = FEdit.GetSelEnd(), to = FEdit.GetSelStart();
    if (ZtIsBefore(to, from))
        std::swap(from, to);
    const quint64 revision = FEdit.GetLines()->GetRevision();
    if (from == FFrom && to == FTo && revision == FRevision && !FKept)
        return; // another program may offer something meanwhile
    FFrom = from;
    FTo = to;
    FRevision = revision;
    FKept.reset();
    if (FData || !ZtPlatform().HasPrimary())
        return;
    FData = new TData(weak_from_this());
    ZtPlatform().SetPrimary(FData);
}

// A piece of a text shares its blocks.
void TZtPrimarySelection::Keep()
{
    if (FData && !FKept)
        FKept = LastPiece();
}

std::optional<TZtTextPiece> TZtPrimarySelection::LastPiece() const
{
    if (FEdit.GetLines()->GetRevision() != FRevision || FFrom == FTo)
        return std::nullopt;
    return FEdit.GetPiece(FFrom, FTo);
}

QString TZtPrimarySelection::GetText() const
{
    const auto piece = FKept ? FKept : LastPiece();
    return piece ? piece->GetText(ZtDesktopBreak()) : QString();
}
