#include "uZtRecordSource.h"

#include <QCoreApplication>

#include <algorithm>

int TRecordSource::ColumnOf(const QString &AName) const
{
    const QSqlRecord columns = Columns(); // whose own search takes a name with a dot apart
    for (int i = 0; i < columns.count(); ++i)
        if (columns.fieldName(i).compare(AName, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

TZtValues TRecordSource::Record(int ARow) const
{
    TZtValues values;
    const int count = Columns().count();
    values.reserve(size_t(count));
    for (int i = 0; i < count; ++i)
        values.push_back(Value(ARow, i));
    return values;
}

int TRecordSource::Find(const TZtValues &AValues, const std::vector<int> &AColumns) const
{
    if (AColumns.empty() || AValues.empty())
        return -1;
    for (int row = Count() - 1; row >= 0; --row)
        if (std::all_of(AColumns.begin(), AColumns.end(),
                        [&](int column) { return Value(row, column) == AValues[size_t(column)]; }))
            return row;
    return -1;
}

void TRecordSource::CheckUnchanged(const TZtValues &AOld, const TZtValues &ANow,
                                   const std::vector<bool> &AStored)
{
    std::vector<int> changed;
    for (size_t i = 0; i < AStored.size(); ++i)
        if (AStored[i] && ANow[i] != AOld[i])
            changed.push_back(int(i));
    if (!changed.empty())
        throw EUpdateConflict(
            QCoreApplication::translate(
                "DataSet", "The record was changed by someone else since it was read."),
            ANow, changed);
}
