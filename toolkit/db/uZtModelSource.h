#pragma once

#include "uZtExport.h"
#include "uZtRecordSource.h"

#include <QPointer>
#include <QSqlQueryModel>

class QSqlTableModel;

/// The records of a host's SQL model: a `QSqlTableModel` of any driver, or another
/// `QSqlQueryModel`, whose records are read-only.
///
/// Records are written with the model's own statements. A record is found by the table's primary
/// key, by all its columns where there is none.
class ZT_DBEDITOR_EXPORT TModelSource final : public TRecordSource {
public:
    /// The model stays the caller's; its edit strategy becomes `OnRowChange`.
    explicit TModelSource(QSqlQueryModel *AModel) : FModel(AModel) {}

    QSqlQueryModel *Model() const { return FModel; } ///< null when it has gone

    void Select() override;
    int Count() const override { return FModel ? FModel->rowCount() : 0; }
    QSqlRecord Columns() const override { return FModel ? FModel->record() : QSqlRecord(); }
    QVariant Value(int ARow, int AColumn) const override;
    std::vector<int> KeyColumns() const override;
    QString ReadOnlyReason() const override;
    bool IsExact(int ARow, int AColumn) const override;
    void Update(int ARow, const TZtValues &AOld, const TZtValues &ANew,
                const std::vector<bool> &AStored) override;
    bool Insert(int ARow, const TZtValues &AValues, const std::vector<bool> &AStored) override;
    void Remove(int ARow, const TZtValues &AOld) override;

private:
    QSqlTableModel *Table() const;
    QSqlRecord KeyOf(const TZtValues &AValues) const;
    TZtValues ReadAgain(const TZtValues &AOld) const;
    void Submit(int ARow, const TZtValues &AValues, const std::vector<bool> &AStored);
    std::vector<bool> ColumnsToName(const std::vector<bool> &AStored) const;

    QPointer<QSqlQueryModel> FModel;
    QString FFault; // that broke the last reading off
};
