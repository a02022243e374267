#pragma once

#include "uZtExport.h"
#include "uZtRecordSource.h"

#include <QSqlDatabase>
#include <QStringList>

/// The records of a table or view of an SQL database, whatever the names of it and of its columns.
///
/// A record is found by the given key or the table's primary key, by all its columns where there is
/// neither.
class ZT_DBEDITOR_EXPORT TSqlTableSource final : public TRecordSource {
public:
    /// Raises when there is no such table or view, or no column of a name in `AKey`.
    TSqlTableSource(const QSqlDatabase &ADatabase, const QString &ATable,
                    const QStringList &AKey = {});

    /// The names of all tables and views, the database's own left out.
    static QStringList Tables(const QSqlDatabase &ADatabase);

    void Select() override;
    int Count() const override { return int(FRecords.size()); }
    QSqlRecord Columns() const override { return FColumns; }
    QVariant Value(int ARow, int AColumn) const override
    {
        return FRecords.at(size_t(ARow)).at(size_t(AColumn));
    }
    std::vector<int> KeyColumns() const override { return FKey; }
    QString ReadOnlyReason() const override;
    bool IsExact(int ARow, int AColumn) const override;
    void Update(int ARow, const TZtValues &AOld, const TZtValues &ANew,
                const std::vector<bool> &AStored) override;
    bool Insert(int ARow, const TZtValues &AValues, const std::vector<bool> &AStored) override;
    void Remove(int ARow, const TZtValues &AOld) override;

private:
    void ReadCatalogue();
    void ChooseKey(const QStringList &AKey);
    QString SelectStatement() const;
    QString Where(const TZtValues &AValues) const;
    QSqlRecord KeyOf(const TZtValues &AValues) const;
    TZtValues ReadAgain(const TZtValues &AValues) const;
    QSqlQuery Prepared(const QString &AStatement) const;
    void Bind(QSqlQuery &AQuery, const TZtValues &AValues, const std::vector<bool> &AStored) const;
    QStringList NamesOf(const std::vector<bool> &AStored) const;

    QSqlDatabase FDatabase;
    QString FTable;
    QSqlRecord FColumns;
    std::vector<int> FPrimaryKey;
    std::vector<int> FKey;
    int FAutoColumn = -1; // which the database numbers
    bool FIsView = false;
    std::vector<TZtValues> FRecords;
    QString FFault; // that broke the last reading off
};
