#pragma once

#include "data/RunTimeError.h"

#include <exception>
#include <type_traits>
#include <utility>

namespace tarnwell {

/// Closes the database and ends the process at once with exit code 1. No form is unloaded, no destructor
/// runs.
[[noreturn]] void endProgram();

/// The program's one outer handler, for an error that no routine caught: shows the run time's message,
/// records the error in the error log and calls `endProgram`. An error that occurs while the message is shown
/// is recorded too and ends the program without a message of its own.
[[noreturn]] void stopProgram(const RunTimeError& error);
[[noreturn]] void stopProgram(const std::exception& error);

namespace detail {
/// Where the error of a routine goes while our own code fires its event; null while the toolkit does.
inline std::exception_ptr* errorOfFiredEvent = nullptr;
[[noreturn]] void stopProgramFor(const std::exception_ptr& error);

/// Calls a slot with the signal's arguments, or without them where it takes none.
template <typename Routine, typename... Arguments>
void callSlot(Routine& routine, Arguments&&... arguments) {
    if constexpr (std::is_invocable_v<Routine&, Arguments...>)
        routine(std::forward<Arguments>(arguments)...);
    else
        routine();
}
} // namespace detail

/// Runs an event routine. No error crosses into the toolkit: it goes to the outer handler or, when code of
/// ours fired the event, back to that code.
template <typename Routine>
void runEvent(Routine&& routine) {
    // What happens inside the routine's own message boxes and modal screens is fired by the toolkit again.
    std::exception_ptr* const fired = std::exchange(detail::errorOfFiredEvent, nullptr);
    std::exception_ptr error;
    try {
        std::forward<Routine>(routine)();
    } catch (const std::exception&) {
        error = std::current_exception();
    }
    detail::errorOfFiredEvent = fired;
    if (error == nullptr)
        return;
    if (fired == nullptr)
        detail::stopProgramFor(error);
    if (*fired == nullptr)
        *fired = error;
}

/// Fires an event from code (a list index that is set, a focus that is moved): the error of a routine that it
/// runs is thrown here, so that the handlers of the calling code see it.
template <typename Emission>
void fireEvent(Emission&& emission) {
    std::exception_ptr error;
    std::exception_ptr* const outer = std::exchange(detail::errorOfFiredEvent, &error);
    try {
        std::forward<Emission>(emission)();
    } catch (const std::exception&) { // of the firing code itself; a routine's own error came first
        if (error == nullptr)
            error = std::current_exception();
    }
    detail::errorOfFiredEvent = outer;
    if (error != nullptr)
        std::rethrow_exception(error);
}

/// A slot whose errors reach the outer handler; it may leave the signal's arguments out:
/// connect(button, &QPushButton::clicked, guarded([this] { cmdApplyTask_Click(); })).
template <typename Routine>
[[nodiscard]] auto guarded(Routine routine) {
    return [routine = std::move(routine)](auto&&... arguments) mutable {
        runEvent([&] { detail::callSlot(routine, std::forward<decltype(arguments)>(arguments)...); });
    };
}

} // namespace tarnwell
