#include "Snippets.h"

#include "uZtDbTypes.h"

#include <QSqlError>
#include <QSqlQuery>

namespace {

constexpr const char *Statements[] = {
    "create table snippets (id integer primary key, name text not null, language text, source "
    "text)",
    "insert into snippets (name, language, source) values ('Overdue loans', 'Sql', "
    "'-- Who has had a book for too long?\nselect reader, title\nfrom loans\n"
    "where returned is null\n  and due < date(''now'');\n')",
    "insert into snippets (name, language, source) values ('Leap year', 'Pascal', "
    "'function IsLeap(Year: Integer): Boolean;\nbegin\n"
    "  Result := (Year mod 4 = 0) and ((Year mod 100 <> 0) or (Year mod 400 = 0));\nend;\n')",
    "insert into snippets (name, language, source) values ('Greeting', 'JavaScript', "
    "'const greet = name => `Good day, ${name}!`;\n')",
};

} // namespace

QSqlDatabase MakeSnippets()
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(QStringLiteral(":memory:"));
    if (!database.open())
        throw EDatabaseError(database.lastError().text());
    QSqlQuery query(database);
    for (const char *statement : Statements)
        if (!query.exec(QString::fromLatin1(statement)))
            throw EDatabaseError(query.lastError().text());
    return database;
}
