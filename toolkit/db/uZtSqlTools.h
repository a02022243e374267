#pragma once

#include "uZtDbTypes.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

/// Raises a driver's fault as `EDatabaseError`.
[[noreturn]] void ZtRaiseSqlError(const QSqlError &AError);

/// What is done between construction and `Commit` is done whole or not at all. Within a transaction
/// that the host has open it is a part of that.
class TZtTransaction {
public:
    explicit TZtTransaction(const QSqlDatabase &ADatabase);
    ~TZtTransaction();
    TZtTransaction(const TZtTransaction &) = delete;
    TZtTransaction &operator=(const TZtTransaction &) = delete;
    /// Raises when the database cannot keep it; it is taken back then.
    void Commit();

private:
    QSqlDatabase FDatabase;
    bool FOpen;
};

/// Binds the values of a key that are not null, in their order.
void ZtBindKey(QSqlQuery &AQuery, const QSqlRecord &AKey);
/// Runs a query that must find one record, and answers its values; raises when it finds none or
/// several.
TZtValues ZtReadOneRecord(QSqlQuery &AQuery, int AColumns);

/// Whether a text that was read may be another one than the text that is stored: a driver puts
/// U+FFFD where the bytes are no text.
bool ZtMayBeInexact(const QSqlDatabase &ADatabase, const QVariant &AValue);
/// Whether the stored bytes of a text are one. `AWhere` with the values of `AKey` leads to it.
bool ZtStoredTextIsValid(const QSqlDatabase &ADatabase, const QString &ATable,
                         const QString &AColumn, const QString &AWhere, const QSqlRecord &AKey);

/// Why records that were not all read cannot be changed.
QString ZtReadingBrokeOffMessage(const QSqlError &AError);
