#pragma once

#include <QByteArray>
#include <QString>

namespace tarnwell::data {

/// What a statement of an engine waited for in vain, in a user's words: "Somebody else is changing payments."
/// Without a table in it, as at the beginning of a write: "Somebody else is writing."
[[nodiscard]] QString lockText(const QByteArray& sql);

} // namespace tarnwell::data
