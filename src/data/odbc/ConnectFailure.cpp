#include "data/odbc/ConnectFailure.h"

#include "data/odbc/OdbcError.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

constexpr auto refusedSignIn = "The database server did not let you sign in.";
constexpr auto refusedConnection = "The database server refused the connection.";

struct Refusal {
    const char* words; ///< Of the driver or the server; the first that are found count.
    Failure failure;
    const char* text; ///< Null: that of the failure.
};

/// While a connection is made, PostgreSQL's driver has one SQLSTATE for everything; only the words differ.
constexpr std::array refusals{
    Refusal{"Can't open lib", Failure::ProviderNotFound, nullptr}, // the driver is not installed
    Refusal{"does not support SSL", Failure::DatabaseFailure,
            "The database server does not offer an encrypted connection; only the setting SSLMode can allow "
            "one without encryption."},
    Refusal{"not currently accepting connections", Failure::DatabaseFailure, refusedConnection},
    Refusal{"FATAL: database \"", Failure::DatabaseNotFound, "The database server has no such catalog."},
    Refusal{"FATAL: role \"", Failure::PermissionDenied, refusedSignIn},
    Refusal{"authentication failed", Failure::PermissionDenied, refusedSignIn},
    Refusal{"no password supplied", Failure::PermissionDenied,
            "The database server asks for a password, and none is stored on this computer."},
    Refusal{"no pg_hba.conf entry", Failure::PermissionDenied, refusedSignIn},
    Refusal{"permission denied for database", Failure::PermissionDenied, refusedSignIn},
    // of SQL Server
    Refusal{"Cannot open database", Failure::DatabaseNotFound, "The database server has no such catalog."},
    Refusal{"Login failed", Failure::PermissionDenied, refusedSignIn},
};

/// "connection to server at "office", port 5432 failed: FATAL: role "ann" does not exist" without its way;
/// empty where the server itself said nothing. A server set up in another language has another word for
/// FATAL.
QString answerOf(const QString& words) {
    static const QRegularExpression answer(
        QStringLiteral("(^|failed: )(\\p{Lu}{4,}|[^\\x00-\\x7F]+) ?: (.+)$"));
    return answer.match(words).captured(3);
}

} // namespace

void raiseConnectFailure(const OdbcDiagnosis& diagnosis, const QString& server) {
    const QString answer = answerOf(diagnosis.words);
    const auto* const refusal = std::ranges::find_if(
        refusals, [&](const Refusal& entry) { return diagnosis.words.contains(QLatin1String(entry.words)); });
    if (refusal != refusals.end() && refusal->text == nullptr)
        throw makeError(refusal->failure, diagnosis.words);
    if (refusal != refusals.end())
        raiseServerFailure(refusal->failure, server, QLatin1String(refusal->text),
                           answer.isEmpty() ? diagnosis.words : answer);
    if (!answer.isEmpty())
        raiseServerFailure(Failure::DatabaseFailure, server, QLatin1String(refusedConnection), answer);
    if (isUnreachable(diagnosis.state))
        raiseServerFailure(Failure::DatabaseFailure, server,
                           QStringLiteral("The database server could not be reached."), diagnosis.words);
    raiseOdbcError(diagnosis, server);
}

} // namespace tarnwell::data
