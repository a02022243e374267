#pragma once

#include <QAbstractListModel>

class TRecordSource;

/// The records of a source as a list that shows one of their columns.
class TRecordList : public QAbstractListModel {
    Q_OBJECT

public:
    /// Follows `ASource`, which must outlive it; `AColumn` counts from 0.
    TRecordList(TRecordSource &ASource, int AColumn, QObject *AParent = nullptr);
    ~TRecordList() override;

    int rowCount(const QModelIndex &AParent = {}) const override;
    QVariant data(const QModelIndex &AIndex, int ARole) const override;

private:
    TRecordSource &FSource;
    int FColumn;
};
