#pragma once

#include <exception>
#include <new>
#include <type_traits>
#include <utility>

/// Base of objects that fire a host's handlers.
///
/// A handler may do anything with the object that fired it: exchange itself, call every operation,
/// delete the object. An object that is deleted while one of its handlers runs fires nothing any
/// more and goes when the event loop comes round; `QObject::destroyed` tells when it has gone.
class TZtNotifier {
public:
    /// Whether a handler of the object runs, or somebody holds the object.
    bool IsBusy() const { return FBusy > 0; }
    /// Whether the object was deleted and is only kept until it is not busy any more.
    bool IsAbandoned() const { return FAbandoned; }

    /// While one lives, a deletion of the object waits.
    class THold {
    public:
        /// Holds `AObject`, which may be deleted meanwhile.
        explicit THold(const TZtNotifier &AObject) : FObject(AObject) { ++FObject.FBusy; }
        ~THold() { --FObject.FBusy; }
        THold(const THold &) = delete;
        THold &operator=(const THold &) = delete;

    private:
        const TZtNotifier &FObject;
    };

protected:
    ~TZtNotifier() = default;
    TZtNotifier() = default;
    TZtNotifier(const TZtNotifier &) = delete;
    TZtNotifier &operator=(const TZtNotifier &) = delete;

    /// Calls a handler; nothing happens, and a default value is the answer, when it is empty or the
    /// object was deleted.
    template <typename THandler, typename... TArguments>
    auto Fire(const THandler &AHandler, TArguments &&...AArguments) const
    {
        using TResult = std::invoke_result_t<const THandler &, TArguments...>;
        if (!AHandler || FAbandoned)
            return TResult();
        const THold hold(*this);
        const THandler handler = AHandler; // which may take itself away while it runs
        return handler(std::forward<TArguments>(AArguments)...);
    }

    /// Called when the object is deleted while it is busy: it takes itself out of sight, and away
    /// from a parent that is about to go.
    virtual void Abandoned() = 0;

    /// What a class that is derived from this one, and not from another one that does so, makes its
    /// `delete` do.
    template <typename T> static void DeleteWhenIdle(T *AObject)
    {
        TZtNotifier *notifier = AObject;
        if (!notifier->IsBusy()) {
            void *memory = dynamic_cast<void *>(AObject);
            AObject->~T();
            ::operator delete(memory);
            return;
        }
        notifier->FAbandoned = true;
        notifier->Abandoned();
        AObject->deleteLater();
    }

private:
    mutable int FBusy = 0;
    bool FAbandoned = false;
};

/// Declares the `delete` of a class derived from `TZtNotifier`. The others are those of every
/// class: the memory of an object whose constructor has raised goes through them.
#define ZT_DELETE_WHEN_IDLE(T)                                                                     \
    static void operator delete(T *AObject, std::destroying_delete_t) { DeleteWhenIdle(AObject); } \
    static void operator delete(void *AMemory) { ::operator delete(AMemory); }                     \
    static void *operator new(std::size_t ASize) { return ::operator new(ASize); }                 \
    static void *operator new(std::size_t, void *AMemory) noexcept { return AMemory; }

/// Runs a step of a deletion, where what a handler raises has nowhere to go.
template <typename TStep> void ZtQuietly(TStep AStep)
{
    try {
        AStep();
    } catch (...) {
        // the object goes whatever its handlers make of it
    }
}

/// Keeps the first exception of several steps that are all to be run, to be raised after them.
class TZtFirstException {
public:
    /// Runs a step; what it raises is kept, unless something was kept before.
    template <typename TStep> void Run(TStep AStep)
    {
        try {
            AStep();
        } catch (...) {
            Keep(std::current_exception());
        }
    }
    /// Keeps what was raised, unless something was kept before.
    void Keep(std::exception_ptr AException)
    {
        if (!FException)
            FException = std::move(AException);
    }
    bool IsRaised() const { return FException != nullptr; } ///< whether something was kept
    /// Raises what was kept, if anything; it is forgotten then.
    void Raise()
    {
        if (FException)
            std::rethrow_exception(std::exchange(FException, nullptr));
    }
    /// Hands it over to `AOuter`, or raises it when that is null.
    void RaiseInto(TZtFirstException *AOuter)
    {
        if (!AOuter)
            Raise();
        else if (FException)
            AOuter->Keep(std::exchange(FException, nullptr));
    }

private:
    std::exception_ptr FException;
};
