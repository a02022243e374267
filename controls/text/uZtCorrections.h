#pragma once

#include "uZtExport.h"

#include <QFlags>
#include <QObject>

/// For Qt's meta-objects; hosts write the names without it.
namespace ZtCorrections {
Q_NAMESPACE_EXPORT(ZT_EDITOR_EXPORT)

/// What the editor does in the way of its first version unless the host says otherwise. Each is
/// described, with what happens without it and with it, in docs/corrections.md.
enum class TZtCorrection : quint32 {
    zcSearchKey = 1u << 0,
    zcReplaceAll = 1u << 1,
    zcReadOnly = 1u << 2,
    zcBackspace = 1u << 3,
    zcBlanks = 1u << 4,
    zcBreaks = 1u << 5,
    zcClipboard = 1u << 6,
    zcWords = 1u << 7,
    zcEvents = 1u << 8,
    zcCaret = 1u << 9,
    zcSwitches = 1u << 10,
    zcTabs = 1u << 11,
    zcKeys = 1u << 12,
    zcPicture = 1u << 13,
    zcScroll = 1u << 14,
    zcWordLists = 1u << 15,
    zcRemarks = 1u << 16,
    zcStates = 1u << 17,
    zcCells = 1u << 18,
    zcRecords = 1u << 19,
    zcUndo = 1u << 20,
    zcComposition = 1u << 21,
    zcText = 1u << 22,
    zcDialogs = 1u << 23,
};
Q_ENUM_NS(TZtCorrection)
Q_DECLARE_FLAGS(TZtCorrections, TZtCorrection)
Q_FLAG_NS(TZtCorrections)
Q_DECLARE_OPERATORS_FOR_FLAGS(TZtCorrections)

} // namespace ZtCorrections

using ZtCorrections::TZtCorrection;
using ZtCorrections::TZtCorrections;

/// The whole set.
inline TZtCorrections ZtAllCorrections() { return TZtCorrections::fromInt((1u << 24) - 1); }
