#pragma once

#include "uZtCodeOptions.h"
#include "uZtCorrections.h"
#include "uZtExtras.h"

#include <QMetaMethod>
#include <QPoint>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

class TZtCodeEdit;
class TZtColorScheme;

/// What an editor's signals have told of its state.
///
/// A signal that nobody was ever connected to is not watched: its value is not even looked at. One
/// that is watched is emitted when its value is other than it was when it was told last, or when it
/// began to be watched.
class TZtEditState {
public:
    /// The selection from its moving end to its anchor; two equal points without one.
    using TSelection = std::pair<QPoint, QPoint>;
    using TValue = std::variant<bool, int, TSelection, TZtCodeOptions, TZtCorrections, TZtExtras,
                                std::shared_ptr<const TZtColorScheme>>;
    /// A signal, the value that it tells, and how it is emitted.
    struct TRow {
        QMetaMethod Signal;
        std::function<TValue(const TZtCodeEdit &)> Read;
        std::function<void(TZtCodeEdit &, const TValue &)> Emit;
    };

    /// The rows are told in their order; they outlive the object.
    TZtEditState(TZtCodeEdit &AEdit, const std::vector<TRow> &ARows);

    /// Somebody is connected to a signal, which is watched from now on.
    void Watch(const QMetaMethod &ASignal);
    bool IsWatching() const { return FWatched > 0; }
    /// Emits the signals whose values are others. A slot may change the state, which is told then,
    /// and delete the editor. What one raises comes after the others were told.
    void Tell();

private:
    TZtCodeEdit &FEdit;
    const std::vector<TRow> &FRows;
    std::vector<std::optional<TValue>> FTold; // of each row; nothing: not watched
    int FWatched = 0;
};
