#pragma once

#include "data/RunTimeError.h"
#include "data/odbc/OdbcConnection.h"

#include <QString>
#include <QStringView>

namespace tarnwell::data {

enum class OdbcHandleKind { Connection, Statement };

/// The first thing that the driver reported on the handle.
[[nodiscard]] OdbcDiagnosis diagnosisOf(OdbcHandleKind kind, OdbcHandle handle);

/// The failure behind a SQLSTATE and a server's own number, the same table for every server.
[[nodiscard]] Failure failureOf(const OdbcDiagnosis& diagnosis);
/// Whether the connection of a statement that failed so is of no more use.
[[nodiscard]] bool isConnectionLost(QStringView state);
/// Whether a connection that could not be made failed so because nobody answered, at once or in time.
[[nodiscard]] bool isUnreachable(QStringView state);

/// Raises the failure with the server's words, and the server as its source. `sql` is the statement that
/// failed, or empty: a refused relation is put into other words for a new row than for a deleted one.
[[noreturn]] void raiseOdbcError(const OdbcDiagnosis& diagnosis, const QString& server,
                                 const QByteArray& sql = {});

/// Raises the failure in words of ours, `detail` in brackets behind them, and the server as its source.
[[noreturn]] void raiseServerFailure(Failure failure, const QString& server, const QString& text,
                                     const QString& detail = {});

} // namespace tarnwell::data
