#include "uZtSqlTools.h"

#include <QCoreApplication>
#include <QSqlDriver>

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(DataSet)
};

} // namespace

void ZtRaiseSqlError(const QSqlError &AError) { throw EDatabaseError(AError.text().trimmed()); }

TZtTransaction::TZtTransaction(const QSqlDatabase &ADatabase)
    : FDatabase(ADatabase), FOpen(FDatabase.transaction())
{
}

TZtTransaction::~TZtTransaction()
{
    if (FOpen)
        FDatabase.rollback();
}

void TZtTransaction::Commit()
{
    if (FOpen && !FDatabase.commit())
        ZtRaiseSqlError(FDatabase.lastError());
    FOpen = false;
}

void ZtBindKey(QSqlQuery &AQuery, const QSqlRecord &AKey)
{
    for (int i = 0; i < AKey.count(); ++i)
        if (!AKey.isNull(i))
            AQuery.addBindValue(AKey.value(i));
}

TZtValues ZtReadOneRecord(QSqlQuery &AQuery, int AColumns)
{
    if (!AQuery.exec())
        ZtRaiseSqlError(AQuery.lastError());
    if (!AQuery.next()) {
        if (AQuery.lastError().isValid())
            ZtRaiseSqlError(AQuery.lastError());
        throw EDatabaseError(TTexts::tr("The record was removed or changed by someone else."));
    }
    TZtValues values;
    for (int i = 0; i < AColumns; ++i)
        values.push_back(AQuery.value(i));
    if (AQuery.next())
        throw EDatabaseError(
            TTexts::tr("The record cannot be told from another one: the table has no key."));
    return values;
}

bool ZtMayBeInexact(const QSqlDatabase &ADatabase, const QVariant &AValue)
{
    return AValue.typeId() == QMetaType::QString &&
           AValue.toString().contains(QChar(QChar::ReplacementCharacter)) &&
           ADatabase.driver()->dbmsType() == QSqlDriver::SQLite;
}

bool ZtStoredTextIsValid(const QSqlDatabase &ADatabase, const QString &ATable,
                         const QString &AColumn, const QString &AWhere, const QSqlRecord &AKey)
{
    QSqlQuery encoding(QStringLiteral("PRAGMA encoding"), ADatabase);
    if (encoding.next() && encoding.value(0).toString() != QLatin1StringView("UTF-8"))
        return true; // its texts are read as they are
    QSqlQuery query(ADatabase);
    query.prepare(
        QStringLiteral("SELECT CAST(%1 AS BLOB) FROM %2 %3").arg(AColumn, ATable, AWhere));
    ZtBindKey(query, AKey);
    return ZtReadOneRecord(query, 1)[0].toByteArray().isValidUtf8();
}

QString ZtReadingBrokeOffMessage(const QSqlError &AError)
{
    return TTexts::tr("The records were not all read: %1").arg(AError.text().trimmed());
}
