#pragma once

#include "uZtException.h"
#include "uZtExport.h"

#include <QVariant>

#include <vector>

/// A fault of the database, with its driver's own words, or an operation that a dataset, a field or
/// a data source cannot do as it is.
class ZT_DBEDITOR_EXPORT EDatabaseError : public EZtException {
    using EZtException::EZtException;
};

/// What a dataset is doing.
enum class TDataSetState : quint8 {
    dsInactive, ///< closed: no records and no fields
    dsBrowse,   ///< looking at a record
    dsEdit,     ///< changing a record
    dsInsert    ///< writing a new one
};

/// What a dataset tells its data sources and these tell their links.
enum class TDataEvent : quint8 {
    deAttach,      ///< source or dataset were exchanged
    deUpdateState, ///< the state is another one
    deDataChange,  ///< the record or, when a field comes with it, this field is another one
    deUpdateRecord ///< what is still in the controls is to be stored into the fields
};

/// The values of a record, one a column.
using TZtValues = std::vector<QVariant>;
