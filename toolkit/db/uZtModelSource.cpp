#include "uZtModelSource.h"

#include "uZtSqlTools.h"

#include <QCoreApplication>
#include <QSqlDriver>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QSqlTableModel>

#include <algorithm>

QSqlTableModel *TModelSource::Table() const { return qobject_cast<QSqlTableModel *>(FModel); }

void TModelSource::Select()
{
    bool selected;
    FFault.clear();
    if (QSqlTableModel *table = Table()) {
        table->setEditStrategy(QSqlTableModel::OnRowChange); // a row is written when it is posted
        selected = table->select();
    } else {
        QSqlQuery query = FModel->query();
        selected = query.boundValues().isEmpty() ? query.exec(query.lastQuery()) : query.exec();
        FModel->setQuery(std::move(query));
    }
    if (!selected)
        ZtRaiseSqlError(FModel->lastError());
    // A query that is read half keeps its lock on the database; it also could not tell its count.
    while (FModel->canFetchMore())
        FModel->fetchMore();
    if (const QSqlError error = FModel->query().lastError(); error.isValid())
        FFault = ZtReadingBrokeOffMessage(error);
    RecordsChanged();
}

QVariant TModelSource::Value(int ARow, int AColumn) const
{
    return FModel->index(ARow, AColumn).data(Qt::EditRole);
}

std::vector<int> TModelSource::KeyColumns() const
{
    const QSqlRecord all = Columns();
    QSqlRecord key;
    if (const QSqlTableModel *table = Table())
        key = table->primaryKey();
    if (key.isEmpty())
        key = all;
    std::vector<int> columns;
    for (int i = 0; i < key.count(); ++i)
        if (const int column = ColumnOf(key.fieldName(i)); column >= 0)
            columns.push_back(column);
    return columns;
}

QString TModelSource::ReadOnlyReason() const
{
    return Table() ? FFault : QCoreApplication::translate("DataSet", "The dataset is read-only.");
}

// The columns that tell the record from all others, with their values.
QSqlRecord TModelSource::KeyOf(const TZtValues &AValues) const
{
    const QSqlRecord all = Columns();
    QSqlRecord key;
    for (const int column : KeyColumns()) {
        key.append(all.field(column));
        key.setValue(key.count() - 1, AValues[size_t(column)]);
    }
    return key;
}

// The record as it is now. A statement that finds no record is none that fails: without this a text
// could be written nowhere, or into several records at once.
TZtValues TModelSource::ReadAgain(const TZtValues &AOld) const
{
    const QSqlTableModel *table = Table();
    const QSqlRecord key = KeyOf(AOld);
    const QSqlDriver *driver = table->database().driver();
    QSqlQuery query(table->database());
    query.setForwardOnly(true);
    query.prepare(
        driver->sqlStatement(QSqlDriver::SelectStatement, table->tableName(), Columns(), false) +
        u' ' + driver->sqlStatement(QSqlDriver::WhereStatement, table->tableName(), key, true));
    ZtBindKey(query, key);
    return ZtReadOneRecord(query, Columns().count());
}

bool TModelSource::IsExact(int ARow, int AColumn) const
{
    const QSqlTableModel *table = Table();
    if (!table || !ZtMayBeInexact(table->database(), Value(ARow, AColumn)))
        return true;
    const QSqlDriver *driver = table->database().driver();
    const QSqlRecord key = KeyOf(Record(ARow));
    return ZtStoredTextIsValid(
        table->database(), driver->escapeIdentifier(table->tableName(), QSqlDriver::TableName),
        driver->escapeIdentifier(Columns().fieldName(AColumn), QSqlDriver::FieldName),
        driver->sqlStatement(QSqlDriver::WhereStatement, table->tableName(), key, true), key);
}

void TModelSource::Submit(int ARow, const TZtValues &AValues, const std::vector<bool> &AStored)
{
    QSqlTableModel *table = Table();
    for (int i = 0; i < Columns().count(); ++i) {
        if (!AStored[size_t(i)] || table->setData(table->index(ARow, i), AValues[size_t(i)]))
            continue;
        table->revertRow(ARow);
        throw EDatabaseError(
            QCoreApplication::translate("DataSet", "The field \"%1\" takes no value.")
                .arg(Columns().fieldName(i)));
    }
    // When nothing is dirty any more the row was written, and only reading it again failed.
    if (table->submit() || !table->isDirty())
        return;
    const QSqlError error = table->lastError();
    table->revertRow(ARow);
    ZtRaiseSqlError(error);
}

void TModelSource::Update(int ARow, const TZtValues &AOld, const TZtValues &ANew,
                          const std::vector<bool> &AStored)
{
    TZtTransaction transaction(Table()->database());
    CheckUnchanged(AOld, ReadAgain(AOld), AStored);
    Submit(ARow, ANew, AStored);
    try {
        transaction.Commit();
    } catch (const EDatabaseError &) {
        Table()->selectRow(ARow); // which shows what was not kept
        throw;
    }
    RecordsChanged();
}

// A database wants at least one column to be named: those that it does not fill by itself.
std::vector<bool> TModelSource::ColumnsToName(const std::vector<bool> &AStored) const
{
    if (std::find(AStored.begin(), AStored.end(), true) != AStored.end())
        return AStored;
    // The model's own record knows nothing of automatic values once it is selected.
    const QSqlRecord columns = Table()->database().record(Table()->tableName());
    std::vector<bool> named(AStored.size());
    for (int i = 0; i < Columns().count(); ++i)
        named[size_t(i)] = !columns.field(Columns().fieldName(i)).isAutoValue();
    return named;
}

bool TModelSource::Insert(int ARow, const TZtValues &AValues, const std::vector<bool> &AStored)
{
    QSqlTableModel *table = Table();
    const std::vector<bool> named = ColumnsToName(AStored);
    if (!table->insertRow(ARow))
        ZtRaiseSqlError(table->lastError());
    Submit(ARow, AValues, named);
    RecordsChanged();
    // The database may have made the key, and its driver may not tell it.
    const std::vector<int> key = KeyColumns();
    return table->primaryKey().isEmpty() || std::none_of(key.begin(), key.end(), [&](int column) {
               return Value(ARow, column).isNull();
           });
}

void TModelSource::Remove(int ARow, const TZtValues &AOld)
{
    ReadAgain(AOld);
    QSqlTableModel *table = Table();
    if (!table->removeRow(ARow)) {
        const QSqlError error = table->lastError();
        table->revertRow(ARow);
        ZtRaiseSqlError(error);
    }
}
