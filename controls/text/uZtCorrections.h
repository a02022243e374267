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
    zcSearchKey = 1u << 0,    ///< only F3, Ctrl+F, Ctrl+H and Ctrl+R search
    zcReplaceAll = 1u << 1,   ///< replacing all is one step, and passes nothing over
    zcReadOnly = 1u << 2,     ///< no key, command or undo changes a read-only text
    zcBackspace = 1u << 3,    ///< erases the selection alone; with Ctrl a word
    zcBlanks = 1u << 4,       ///< those at the ends of lines stay
    zcBreaks = 1u << 5,       ///< CR LF, CR and LF are one break each in what is inserted
    zcClipboard = 1u << 6,    ///< a copy without a selection leaves it
    zcWords = 1u << 7,        ///< those of Unicode (UAX #29), for jumps and clicks
    zcEvents = 1u << 8,       ///< `OnChange` once after each change, whoever made it
    zcCaret = 1u << 9,        ///< stands in the text, and moves along with it
    zcSwitches = 1u << 10,    ///< `ShowGuttor` and `ShowRightMargin` switch off, too
    zcTabs = 1u << 11,        ///< tab characters and stops; Tab indents lines
    zcKeys = 1u << 12,        ///< Left and Right cross line ends; Ctrl+Tab leaves
    zcPicture = 1u << 13,     ///< each line is a row, each character in its place
    zcScroll = 1u << 14,      ///< the ranges follow the text
    zcWordLists = 1u << 15,   ///< `AllKeyWords` of the lexer
    zcRemarks = 1u << 16,     ///< `ClosedRemarks` of the lexer
    zcStates = 1u << 17,      ///< what is open above a line is found out in idle time
    zcCells = 1u << 18,       ///< wide characters take two cells; a cluster is one step
    zcRecords = 1u << 19,     ///< no text in a record is overwritten unseen
    zcUndo = 1u << 20,        ///< undo and redo of all changes, bounded by memory
    zcComposition = 1u << 21, ///< what is composed stands in its line
    zcText = 1u << 22,        ///< `Text` gives back the line breaks that it was given
    zcDialogs = 1u << 23,     ///< all arrows go round in groups of choices
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
