#pragma once

#include "data/odbc/OdbcConnection.h"

#include <QString>

namespace tarnwell::data {

/// Raises what kept a connection from being made, in a sentence that says who has to do what: the server is
/// not there, has no such catalog, does not let the user sign in, offers no encryption. The server's own
/// words stand behind it in brackets. `server` becomes the source.
[[noreturn]] void raiseConnectFailure(const OdbcDiagnosis& diagnosis, const QString& server);

} // namespace tarnwell::data
