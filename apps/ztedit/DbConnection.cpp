#include "DbConnection.h"

#include "FileAttributes.h"
#include "SideFile.h"

#include "uZtSqlTable.h"
#include "uZtStringStream.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <cerrno>
#include <system_error>

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(DbConnection)
};

// Opens a connection of a new name. A lock of another program is waited for only as long as a user
// does not notice.
QString AddConnection(const QString &APath)
{
    const QString name = QUuid::createUuid().toString();
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    database.setDatabaseName(APath);
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=200"));
    return name;
}

// Where the statement that begins at `AStart` ends: behind its semicolon, which stands in no string
// and in no comment.
qsizetype StatementEnd(const QString &ASql, qsizetype AStart)
{
    const struct {
        QLatin1StringView Open;
        QLatin1StringView Close;
    } nested[] = {
        {QLatin1StringView("'"), QLatin1StringView("'")},
        {QLatin1StringView("\""), QLatin1StringView("\"")},
        {QLatin1StringView("--"), QLatin1StringView("\n")},
        {QLatin1StringView("/*"), QLatin1StringView("*/")},
    };
    for (qsizetype at = AStart; at < ASql.size(); ++at) {
        if (ASql[at] == QLatin1Char(';'))
            return at + 1;
        for (const auto &part : nested) {
            if (!QStringView(ASql).sliced(at).startsWith(part.Open))
                continue;
            const qsizetype close = ASql.indexOf(part.Close, at + part.Open.size());
            if (close < 0)
                return ASql.size();
            at = close + part.Close.size() - 1;
            break;
        }
    }
    return ASql.size();
}

void RunAll(const QSqlDatabase &ADatabase, const QString &ASql)
{
    QSqlQuery query(ADatabase);
    const auto run = [&query](const QString &statement) {
        if (!query.exec(statement))
            throw EDatabaseError(query.lastError().text().trimmed());
    };
    // The file gets its name when it is whole. A journal on disk would only be one more file.
    run(QStringLiteral("PRAGMA journal_mode=MEMORY"));
    run(QStringLiteral("BEGIN"));
    for (qsizetype at = 0; at < ASql.size();) {
        const qsizetype end = StatementEnd(ASql, at);
        const QString statement = ASql.sliced(at, end - at).trimmed();
        if (statement.endsWith(QLatin1Char(';')))
            run(statement);
        at = end;
    }
    run(QStringLiteral("COMMIT"));
}

void MakeDatabase(const QString &APath, const QString &ASql)
{
    const QString name = AddConnection(APath);
    try {
        QSqlDatabase database = QSqlDatabase::database(name);
        if (!database.isOpen())
            throw EDatabaseError(database.lastError().text().trimmed());
        RunAll(database, ASql);
    } catch (...) {
        QSqlDatabase::removeDatabase(name);
        throw;
    }
    QSqlDatabase::removeDatabase(name);
}

} // namespace

TDbConnection::TDbConnection(const QString &APath) : FPath(QFileInfo(APath).absoluteFilePath())
{
    // SQLite would make the file.
    if (!QFileInfo(FPath).isFile())
        throw EDatabaseError(TTexts::tr("There is no database \"%1\".").arg(APath));
    FName = AddConnection(FPath);
    try {
        Open();
    } catch (...) {
        QSqlDatabase::removeDatabase(FName);
        throw;
    }
}

TDbConnection::~TDbConnection() { QSqlDatabase::removeDatabase(FName); }

// Opening alone does not read the file.
void TDbConnection::Open() const
{
    const QSqlDatabase database = Database();
    QSqlQuery query(database);
    if (database.isOpen() && query.exec(QStringLiteral("SELECT name FROM sqlite_master")))
        return;
    const QSqlError error = database.isOpen() ? query.lastError() : database.lastError();
    throw EDatabaseError(
        TTexts::tr("Cannot open the database \"%1\": %2.").arg(FPath, error.text().simplified()));
}

QStringList TDbConnection::Tables() const { return TSqlTableSource::Tables(Database()); }

QStringList TDbConnection::Columns(const QString &ATable) const
{
    if (!Tables().contains(ATable, Qt::CaseInsensitive))
        throw EDatabaseError(TTexts::tr("The database \"%1\" has no table \"%2\"; it has: %3.")
                                 .arg(FPath, ATable, Tables().join(QLatin1StringView(", "))));
    const QSqlRecord columns = TSqlTableSource(Database(), ATable).Columns();
    QStringList names;
    for (int i = 0; i < columns.count(); ++i)
        names.append(columns.fieldName(i));
    return names;
}

void TDbConnection::Check(const TDbPlace &APlace) const
{
    const QStringList names = Columns(APlace.Table);
    const QString key = APlace.Key.isEmpty() ? APlace.Field : APlace.Key;
    for (const QString &name : {APlace.Field, key})
        if (!names.contains(name, Qt::CaseInsensitive))
            throw EDatabaseError(TTexts::tr("The table \"%1\" has no field \"%2\"; it has: %3.")
                                     .arg(APlace.Table, name, names.join(QLatin1StringView(", "))));
}

void ZtMakeSample(const QString &APath)
{
    const QString statements = QString::fromUtf8(ZtReadFile(APath + QStringLiteral(".sql")));
    const auto exists = [&] {
        return EStreamError(TTexts::tr("\"%1\" is there already.").arg(APath));
    };
    const QFileInfo info(APath);
    if (info.exists() || info.isSymLink())
        throw exists();
    const QString path = info.absoluteFilePath();
    try {
        ZtRemoveDeadFiles(path);
        TZtSideFile fresh(path);
        MakeDatabase(fresh.Path(), statements);
        ZtGiveNewFileMode(fresh.Handle(), path);
        fresh.PutAt(path);
        ZtSyncFolderOf(path);
    } catch (const EDatabaseError &error) {
        throw EDatabaseError(TTexts::tr("Cannot make \"%1\": %2").arg(APath, error.Message()));
    } catch (const std::system_error &error) {
        if (error.code().value() == EEXIST)
            throw exists();
        throw EStreamError(TTexts::tr("Cannot make \"%1\": %2.")
                               .arg(APath, qt_error_string(error.code().value())));
    }
}
