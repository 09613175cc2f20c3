#pragma once

namespace tarnwell {

/// Whether no database has been opened since the settings were first written: the user is asked for one
/// before a missing file is an error.
[[nodiscard]] bool isDatabaseChoiceOpen();

/// The settings' database was opened. Returns silently when they can't be written: the user is asked again
/// only if the file is missing by then.
void closeDatabaseChoice();

} // namespace tarnwell
