#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tarnwell {

/// Starts a program; by itself it returns when the program has ended and handles events meanwhile. Raises
/// FileNotFound (53) when it can't be started.
using ProgramStarter = std::function<void(const QString& program, const QStringList& arguments)>;

/// Null restores the machine's own starter. Returns the starter before.
ProgramStarter setProgramStarter(ProgramStarter starter);

/// Runs the program and waits for its end, with the windows still alive. A program that is not there is told
/// by a message; any other error goes to `ErrorHandler`.
void ShellAndWait(const QString& program, const QStringList& arguments);

/// Starts a command line (a path with blanks stands in quotes) and returns at once. Raises FileNotFound (53)
/// when it can't be started.
void Shell(const QString& command);

} // namespace tarnwell
