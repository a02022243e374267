#pragma once

#include <QSqlDatabase>
#include <QString>

/// Where a text of a database is.
struct TDbPlace {
    QString File;
    QString Table;
    QString Field;
    /// The column that tells a record from all others; empty for the table's primary key.
    QString Key;
};

/// An SQLite file that is there already, while it is in use.
class TDbConnection {
public:
    /// Raises `EDatabaseError`, with the file in the message, when there is no such file or it is
    /// no database that can be read now. Never makes a file.
    explicit TDbConnection(const QString &APath);
    /// Models on the database must be gone before.
    ~TDbConnection();
    TDbConnection(const TDbConnection &) = delete;
    TDbConnection &operator=(const TDbConnection &) = delete;

    const QString &Path() const { return FPath; }
    QSqlDatabase Database() const { return QSqlDatabase::database(FName); }
    /// The names of the tables and views.
    QStringList Tables() const;
    /// The names of a table's columns. Raises when there is no such table or view.
    QStringList Columns(const QString &ATable) const;
    /// Raises, with the names that there are, when one of those in `APlace` is missing.
    void Check(const TDbPlace &APlace) const;

private:
    void Open() const;

    QString FPath;
    QString FName;
};

/// Makes the database `APath` by the statements in the file `APath`.sql, or nothing at all. Raises
/// `EStreamError` or `EDatabaseError`; an existing file is never touched.
void ZtMakeSample(const QString &APath);
