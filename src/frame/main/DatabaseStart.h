#pragma once

class QWidget;

namespace tarnwell {

/// Opens the database that the settings name. Who starts for the first time, with no database there, is asked
/// first; and so is, behind the error's message, whose file is missing or can't be read, until one opens or
/// the user leaves. Any other error ends the program after its message. False when the user left the first
/// choice: there is nothing to work with.
[[nodiscard]] bool openDatabaseAtStart(QWidget* owner);

} // namespace tarnwell
