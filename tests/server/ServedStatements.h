#pragma once

#include "support/TemporaryDatabase.h"

#include <functional>

namespace tarnwell::test {

/// The statements that the server runs for a catalog while an action works. A statement that is only prepared
/// does not count; the beginning and the end of a transaction, and what the driver sets around a statement,
/// do.
[[nodiscard]] qint64 servedStatements(const TemporaryDatabase& database, const std::function<void()>& action);

/// Runs a statement of the server's own SQL on the catalog, to make many rows at once.
void fill(const TemporaryDatabase& database, const QByteArray& sql);

} // namespace tarnwell::test
