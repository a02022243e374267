#pragma once

#include "uZtDbTypes.h"
#include "uZtExport.h"

#include <QSqlRecord>

#include <functional>

/// Somebody else changed what is about to be written, since it was read. Nothing was written.
class ZT_DBEDITOR_EXPORT EUpdateConflict : public EDatabaseError {
public:
    /// `AStored` is what the database has, `AColumns` where it is other than what was read.
    EUpdateConflict(const QString &AMessage, const TZtValues &AStored,
                    const std::vector<int> &AColumns)
        : EDatabaseError(AMessage), FStored(AStored), FColumns(AColumns)
    {
    }
    /// The record as the database has it now.
    const TZtValues &Stored() const { return FStored; }
    /// The columns in which it is another one than was read, of those that were to be written.
    const std::vector<int> &Columns() const { return FColumns; }

private:
    TZtValues FStored;
    std::vector<int> FColumns;
};

/// Where the records of a dataset come from and go to. Records and columns are numbered from 0.
/// What fails raises `EDatabaseError`, with the driver's own words where it has any.
class ZT_DBEDITOR_EXPORT TRecordSource {
public:
    TRecordSource() = default;
    virtual ~TRecordSource() = default;
    TRecordSource(const TRecordSource &) = delete;
    TRecordSource &operator=(const TRecordSource &) = delete;

    /// Told when records were read anew, came or went.
    std::function<void()> OnRecordsChange;

    /// Reads the records anew. When the reading breaks off, those that came stay, and
    /// `ReadOnlyReason` tells why they cannot be changed.
    virtual void Select() = 0;
    /// How many records were read.
    virtual int Count() const = 0;
    /// The columns' names and types.
    virtual QSqlRecord Columns() const = 0;
    /// A value as the database gives it.
    virtual QVariant Value(int ARow, int AColumn) const = 0;
    /// The columns that tell a record from all others; all of them where there is no key.
    virtual std::vector<int> KeyColumns() const = 0;
    /// Why the records cannot be changed, for a user; empty when they can.
    virtual QString ReadOnlyReason() const = 0;
    /// Whether a value gives back what is stored: a text with bytes that are no text does not.
    virtual bool IsExact(int ARow, int AColumn) const = 0;

    /// Writes the columns of `AStored` of a record whose values were `AOld`. Raises
    /// `EUpdateConflict` when one of these is another one by now.
    virtual void Update(int ARow, const TZtValues &AOld, const TZtValues &ANew,
                        const std::vector<bool> &AStored) = 0;
    /// Writes a new record, the columns of `AStored` alone, and puts it at `ARow`. Answers whether
    /// it shows there all that the database made of it; where it does not, it is to be looked for
    /// among the records read anew.
    virtual bool Insert(int ARow, const TZtValues &AValues, const std::vector<bool> &AStored) = 0;
    /// Removes a record whose values are `AOld`; it is gone when the records are read anew.
    virtual void Remove(int ARow, const TZtValues &AOld) = 0;

    /// The column of a name, letter case apart, or -1.
    int ColumnOf(const QString &AName) const;
    /// All values of a record.
    TZtValues Record(int ARow) const;
    /// The last record whose values in `AColumns` are those of `AValues`, or -1.
    int Find(const TZtValues &AValues, const std::vector<int> &AColumns) const;

protected:
    /// Raises `EUpdateConflict` when a column of `AStored` is another one now than it was.
    static void CheckUnchanged(const TZtValues &AOld, const TZtValues &ANow,
                               const std::vector<bool> &AStored);
    /// Calls `OnRecordsChange`, if it is set.
    void RecordsChanged() const
    {
        if (OnRecordsChange)
            OnRecordsChange();
    }
};
