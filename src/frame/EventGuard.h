#pragma once

#include "data/RunTimeError.h"

#include <exception>
#include <utility>

namespace tarnwell {

/// The program's one outer handler, for an error that no routine caught: shows the run time's message,
/// records it in the error log, closes the database and ends the process with exit code 1.
[[noreturn]] void stopProgram(const RunTimeError& error);
[[noreturn]] void stopProgram(const std::exception& error);

/// Runs an event routine. No error crosses into the toolkit.
template <typename Routine>
void runEvent(Routine&& routine) {
    try {
        std::forward<Routine>(routine)();
    } catch (const RunTimeError& error) {
        stopProgram(error);
    } catch (const std::exception& error) {
        stopProgram(error);
    }
}

/// A slot whose errors reach the outer handler: connect(button, &QPushButton::clicked, guarded([this]
/// {...})).
template <typename Routine>
[[nodiscard]] auto guarded(Routine routine) {
    return [routine = std::move(routine)](auto&&... arguments) mutable {
        runEvent([&] { routine(std::forward<decltype(arguments)>(arguments)...); });
    };
}

} // namespace tarnwell
