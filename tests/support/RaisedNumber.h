#pragma once

#include "data/RunTimeError.h"

#include <QString>

#include <optional>

namespace tarnwell::test {

/// The number that a failure carries.
[[nodiscard]] inline int numberOf(Failure failure) {
    return makeError(failure).number();
}

/// The number of the error that the routine raises; 0 when it raises none.
template <class Routine>
[[nodiscard]] int raisedNumber(const Routine& routine) {
    try {
        routine();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

/// What went wrong; nothing when the routine raises nothing.
template <class Routine>
[[nodiscard]] std::optional<Failure> raisedFailure(const Routine& routine) {
    try {
        routine();
    } catch (const RunTimeError& error) {
        return error.failure();
    }
    return std::nullopt;
}

/// The description of the error that the routine raises; empty when it raises none.
template <class Routine>
[[nodiscard]] QString raisedText(const Routine& routine) {
    try {
        routine();
    } catch (const RunTimeError& error) {
        return error.description();
    }
    return {};
}

} // namespace tarnwell::test
