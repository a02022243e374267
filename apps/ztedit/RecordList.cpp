#include "RecordList.h"

#include "uZtRecordSource.h"

TRecordList::TRecordList(TRecordSource &ASource, int AColumn, QObject *AParent)
    : QAbstractListModel(AParent), FSource(ASource), FColumn(AColumn)
{
    FSource.OnRecordsChange = [this] {
        beginResetModel();
        endResetModel();
    };
}

TRecordList::~TRecordList() { FSource.OnRecordsChange = nullptr; }

int TRecordList::rowCount(const QModelIndex &AParent) const
{
    return AParent.isValid() ? 0 : FSource.Count();
}

QVariant TRecordList::data(const QModelIndex &AIndex, int ARole) const
{
    if (ARole != Qt::DisplayRole || !AIndex.isValid() || AIndex.row() >= FSource.Count())
        return {};
    return FSource.Value(AIndex.row(), FColumn).toString();
}
