#pragma once

#include <QString>

namespace tarnwell {

/// Asks before a record is deleted, with the title "Confirm Delete", Yes and No; Yes is the default. True for
/// Yes.
[[nodiscard]] bool isDeleteConfirmed(const QString& question);

} // namespace tarnwell
