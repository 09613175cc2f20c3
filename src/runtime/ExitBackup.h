#pragma once

namespace tarnwell {

/// Makes the daily backup of the database that the program worked on, unless there is one of today, the
/// settings stop it, or no database was ever open; then removes daily backups that are no longer kept. For
/// the end of the program, with its windows and its connection closed. Waits for another program that does
/// the same. What goes wrong is logged and reported by the next start.
void backUpAtExit() noexcept;

/// Shows a message once when the last daily backup failed or was cut short, but not while another program is
/// still making it. For the start of the program, once the database is open.
void reportFailedBackup();

} // namespace tarnwell
