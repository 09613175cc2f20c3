#include "runtime/EventGuard.h"

#include "runtime/DataEnvironment.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace tarnwell {

namespace {

constexpr int internalError = 51;

void tellOnStandardError(const std::exception& error) {
    std::fprintf(stderr, "While stopping: %s\n", error.what());
}

void show(const RunTimeError& error) {
    try {
        MsgBox({.text = QStringLiteral("Run-time error '%1':\n\n").arg(error.number()) + error.description(),
                .title = QStringLiteral("Tarnwell"),
                .icon = MessageIcon::Critical});
    } catch (const std::exception& failure) {
        tellOnStandardError(failure);
    }
}

/// A log that can't be written must not keep the program from stopping.
void record(const RunTimeError& error) {
    try {
        WriteErrorLog(error.number(), error.description(), {});
    } catch (const std::exception& failure) {
        tellOnStandardError(failure);
        tellOnStandardError(error);
    }
}

} // namespace

void stopProgram(const RunTimeError& error) {
    // The message box handles events, and one of them may fail too: that failure is recorded behind the first
    // one and ends the program at once.
    static std::vector<RunTimeError> errors;
    errors.push_back(error);
    if (errors.size() == 1)
        show(error);
    for (const RunTimeError& each : errors)
        record(each);
    endProgram();
}

void endProgram() {
    DataEnvironment::close();
    std::fflush(nullptr);
    std::_Exit(EXIT_FAILURE);
}

void stopProgram(const std::exception& error) {
    stopProgram(RunTimeError(internalError, QStringLiteral("Tarnwell"),
                             QStringLiteral("Internal error: ") + QString::fromUtf8(error.what())));
}

void detail::stopProgramFor(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const RunTimeError& known) {
        stopProgram(known);
    } catch (const std::exception& unknown) {
        stopProgram(unknown);
    }
}

} // namespace tarnwell
