#include "DocumentJournal.h"

#include "JournalFiles.h"

#include "uZtStringStream.h"

#include <QDateTime>
#include <QFileInfo>

#include <utility>

namespace {

TZtJournalBase BaseOf(const QString &APath, const TZtTextFormat &AFormat)
{
    TZtJournalBase base;
    base.Path = APath;
    base.Format = ZtFormatBytes(AFormat);
    if (!APath.isEmpty())
        base.Modified = QFileInfo(APath).lastModified().toMSecsSinceEpoch();
    return base;
}

} // namespace

void TDocumentJournal::Keep(TZtJournal::TFault AFault)
{
    FKept = true;
    FFault = std::move(AFault);
}

void TDocumentJournal::Begin(TStringList &AText, const QString &APath, const TZtTextFormat &AFormat,
                             const QByteArray &ABytes)
{
    if (!FKept)
        return;
    Discard();
    TZtJournalBase base = BaseOf(APath, AFormat);
    base.Bytes = ABytes;
    FJournal = std::make_unique<TZtJournal>(AText, ZtNewJournalName(), std::move(base));
    FJournal->SetOnFault(FFault);
}

void TDocumentJournal::Saved(const QString &APath, const TZtTextFormat &AFormat)
{
    if (FJournal)
        FJournal->Saved(BaseOf(APath, AFormat));
}

void TDocumentJournal::Discard()
{
    if (FJournal)
        FJournal->Discard();
    FJournal.reset();
}
