#pragma once

#include "uZtPlatform.h"

#include <concepts>
#include <utility>

/// A handler of one of Qt's signals or events that lets nothing through: Qt's own frames must not
/// be unwound. What the operation raises ends it and is handed to `ZtHandleException`. Made for
/// `connect`, where it takes as many arguments as the operation does.
template <typename TOperation> class TZtGuarded {
public:
    /// Keeps the operation.
    explicit TZtGuarded(TOperation AOperation) : FOperation(std::move(AOperation)) {}

    /// Runs it, and hands what it raises to `ZtHandleException`.
    template <typename... TArguments>
    requires std::invocable<TOperation &, TArguments...>
    void operator()(TArguments &&...AArguments)
    {
        try {
            FOperation(std::forward<TArguments>(AArguments)...);
        } catch (...) {
            ZtHandleException(std::current_exception());
        }
    }

private:
    TOperation FOperation;
};
