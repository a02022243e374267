#include "uZtSqlTable.h"

#include "uZtSqlTools.h"

#include <QCoreApplication>
#include <QSqlField>

#include <algorithm>
#include <numeric>

namespace {

struct TTexts {
    Q_DECLARE_TR_FUNCTIONS(DataSet)
};

QString Quoted(QString AName)
{
    return u'"' + AName.replace(u'"', QLatin1StringView("\"\"")) + u'"';
}

void Run(QSqlQuery &AQuery)
{
    if (!AQuery.exec())
        ZtRaiseSqlError(AQuery.lastError());
}

} // namespace

QStringList TSqlTableSource::Tables(const QSqlDatabase &ADatabase)
{
    QSqlQuery query(ADatabase);
    query.prepare(
        QStringLiteral("SELECT name FROM sqlite_master WHERE type IN ('table', 'view') "
                       "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY type, rowid"));
    Run(query);
    QStringList names;
    while (query.next())
        names.append(query.value(0).toString());
    return names;
}

TSqlTableSource::TSqlTableSource(const QSqlDatabase &ADatabase, const QString &ATable,
                                 const QStringList &AKey)
    : FDatabase(ADatabase), FTable(ATable)
{
    ReadCatalogue();
    ChooseKey(AKey);
}

// The columns, under the names that the catalogue has: a driver may spell them otherwise.
void TSqlTableSource::ReadCatalogue()
{
    QSqlQuery query =
        Prepared(QStringLiteral("SELECT name, type, pk, (SELECT type FROM sqlite_master AS m "
                                "WHERE m.name = ? COLLATE NOCASE AND m.type IN ('table', 'view')) "
                                "FROM pragma_table_xinfo(?) WHERE hidden <> 1 ORDER BY cid"));
    query.addBindValue(FTable);
    query.addBindValue(FTable);
    Run(query);
    std::vector<std::pair<int, int>> key; // place in the key, column
    while (query.next()) {
        const QString type = query.value(1).toString();
        FColumns.append(QSqlField(query.value(0).toString()));
        if (const int place = query.value(2).toInt(); place > 0)
            key.emplace_back(place, FColumns.count() - 1);
        if (query.value(2).toInt() == 1 && type.compare(u"INTEGER", Qt::CaseInsensitive) == 0)
            FAutoColumn = FColumns.count() - 1;
        FIsView = query.value(3).toString() == QLatin1StringView("view");
    }
    if (FColumns.isEmpty())
        throw EDatabaseError(TTexts::tr("There is no table \"%1\".").arg(FTable));
    std::sort(key.begin(), key.end());
    for (const auto &[place, column] : key)
        FPrimaryKey.push_back(column);
    if (FPrimaryKey.size() != 1)
        FAutoColumn = -1;
    QSqlQuery types = Prepared(SelectStatement() + QStringLiteral(" LIMIT 0"));
    Run(types);
    for (int i = 0; i < FColumns.count(); ++i) {
        QSqlField field(FColumns.fieldName(i), types.record().field(i).metaType());
        field.setAutoValue(i == FAutoColumn);
        FColumns.replace(i, field);
    }
}

void TSqlTableSource::ChooseKey(const QStringList &AKey)
{
    for (const QString &name : AKey) {
        FKey.push_back(ColumnOf(name));
        if (FKey.back() < 0)
            throw EDatabaseError(TTexts::tr("There is no field \"%1\".").arg(name));
    }
    if (FKey.empty())
        FKey = FPrimaryKey;
    if (FKey.empty()) {
        FKey.resize(size_t(FColumns.count()));
        std::iota(FKey.begin(), FKey.end(), 0);
    }
}

QSqlQuery TSqlTableSource::Prepared(const QString &AStatement) const
{
    QSqlQuery query(FDatabase);
    query.setForwardOnly(true);
    if (!query.prepare(AStatement))
        ZtRaiseSqlError(query.lastError());
    return query;
}

QStringList TSqlTableSource::NamesOf(const std::vector<bool> &AStored) const
{
    QStringList names;
    for (int i = 0; i < FColumns.count(); ++i)
        if (AStored[size_t(i)])
            names.append(Quoted(FColumns.fieldName(i)));
    return names;
}

QString TSqlTableSource::SelectStatement() const
{
    const std::vector<bool> all(size_t(FColumns.count()), true);
    return QStringLiteral("SELECT %1 FROM %2")
        .arg(NamesOf(all).join(QLatin1StringView(", ")), Quoted(FTable));
}

QSqlRecord TSqlTableSource::KeyOf(const TZtValues &AValues) const
{
    QSqlRecord key;
    for (const int column : FKey) {
        key.append(FColumns.field(column));
        key.setValue(key.count() - 1, AValues[size_t(column)]);
    }
    return key;
}

QString TSqlTableSource::Where(const TZtValues &AValues) const
{
    QStringList terms;
    for (const int column : FKey)
        terms.append(Quoted(FColumns.fieldName(column)) +
                     QLatin1StringView(AValues[size_t(column)].isNull() ? " IS NULL" : " = ?"));
    return QStringLiteral(" WHERE ") + terms.join(QLatin1StringView(" AND "));
}

void TSqlTableSource::Bind(QSqlQuery &AQuery, const TZtValues &AValues,
                           const std::vector<bool> &AStored) const
{
    for (size_t i = 0; i < AStored.size(); ++i)
        if (AStored[i])
            AQuery.addBindValue(AValues[i]);
}

// The record with the key of `AValues` as it is now.
TZtValues TSqlTableSource::ReadAgain(const TZtValues &AValues) const
{
    QSqlQuery query = Prepared(SelectStatement() + Where(AValues));
    ZtBindKey(query, KeyOf(AValues));
    return ZtReadOneRecord(query, FColumns.count());
}

void TSqlTableSource::Select()
{
    QSqlQuery query = Prepared(SelectStatement());
    Run(query);
    FRecords.clear();
    FFault.clear();
    while (query.next()) {
        TZtValues values;
        values.reserve(size_t(FColumns.count()));
        for (int i = 0; i < FColumns.count(); ++i)
            values.push_back(query.value(i));
        FRecords.push_back(std::move(values));
    }
    if (const QSqlError error = query.lastError(); error.isValid())
        FFault = ZtReadingBrokeOffMessage(error);
    RecordsChanged();
}

QString TSqlTableSource::ReadOnlyReason() const
{
    return FIsView ? TTexts::tr("A view is read-only.") : FFault;
}

bool TSqlTableSource::IsExact(int ARow, int AColumn) const
{
    const TZtValues &record = FRecords.at(size_t(ARow));
    return !ZtMayBeInexact(FDatabase, Value(ARow, AColumn)) ||
           ZtStoredTextIsValid(FDatabase, Quoted(FTable), Quoted(FColumns.fieldName(AColumn)),
                               Where(record), KeyOf(record));
}

void TSqlTableSource::Update(int ARow, const TZtValues &AOld, const TZtValues &ANew,
                             const std::vector<bool> &AStored)
{
    TZtTransaction transaction(FDatabase);
    const TZtValues stored = ReadAgain(AOld);
    CheckUnchanged(AOld, stored, AStored);
    QSqlQuery query =
        Prepared(QStringLiteral("UPDATE %1 SET %2 = ?")
                     .arg(Quoted(FTable), NamesOf(AStored).join(QLatin1StringView(" = ?, "))) +
                 Where(AOld));
    Bind(query, ANew, AStored);
    ZtBindKey(query, KeyOf(AOld));
    Run(query);
    TZtValues written = stored;
    for (size_t i = 0; i < AStored.size(); ++i)
        if (AStored[i])
            written[i] = ANew[i];
    written = ReadAgain(written); // a trigger may have made more of it
    transaction.Commit();
    FRecords.at(size_t(ARow)) = std::move(written);
    RecordsChanged();
}

bool TSqlTableSource::Insert(int ARow, const TZtValues &AValues, const std::vector<bool> &AStored)
{
    const QStringList names = NamesOf(AStored);
    const QStringList marks(names.size(), QStringLiteral("?"));
    QSqlQuery query = Prepared(QStringLiteral("INSERT INTO %1 ").arg(Quoted(FTable)) +
                               (names.isEmpty() ? QStringLiteral("DEFAULT VALUES")
                                                : QStringLiteral("(%1) VALUES (%2)")
                                                      .arg(names.join(QLatin1StringView(", ")),
                                                           marks.join(QLatin1StringView(", ")))));
    Bind(query, AValues, AStored);
    Run(query);
    TZtValues written = AValues;
    if (FAutoColumn >= 0 && !AStored[size_t(FAutoColumn)])
        written[size_t(FAutoColumn)] = query.lastInsertId();
    try {
        FRecords.insert(FRecords.begin() + ARow, ReadAgain(written));
    } catch (const EDatabaseError &) {
        return false; // it is there, but its key is not what was written
    }
    RecordsChanged();
    return true;
}

void TSqlTableSource::Remove(int, const TZtValues &AOld)
{
    TZtTransaction transaction(FDatabase);
    ReadAgain(AOld);
    QSqlQuery query = Prepared(QStringLiteral("DELETE FROM ") + Quoted(FTable) + Where(AOld));
    ZtBindKey(query, KeyOf(AOld));
    Run(query);
    transaction.Commit();
}
