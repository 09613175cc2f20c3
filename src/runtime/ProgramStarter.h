#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tarnwell {

/// Starts a program, handles events while it runs and returns when it has ended. Raises FileNotFound (53)
/// when the program can't be started.
using ProgramStarter = std::function<void(const QString& program, const QStringList& arguments)>;

/// Null restores the machine's own starter. Returns the starter before.
ProgramStarter setProgramStarter(ProgramStarter starter);

/// Runs the program and returns when it has ended; the windows stay usable meanwhile. A message reports a
/// program that can't be started; any other error goes to `ErrorHandler`.
void ShellAndWait(const QString& program, const QStringList& arguments);

/// Starts a command line (a path with blanks must be in quotes) and returns at once. Raises FileNotFound (53)
/// when it can't be started.
void Shell(const QString& command);

} // namespace tarnwell
