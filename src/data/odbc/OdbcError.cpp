#include "data/odbc/OdbcError.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <sql.h>
#include <sqlext.h>
#include <string_view>

namespace tarnwell::data {

namespace {

struct StateFailure {
    std::string_view begin; ///< Of the SQLSTATE; longer ones stand before those that they begin with.
    Failure failure;
};

/// Both the standard's states and those of the servers: what a driver passes on is not always translated.
constexpr std::array stateFailures{
    StateFailure{"57014", Failure::Cancelled},
    StateFailure{"IM", Failure::ProviderNotFound}, // no such driver
    StateFailure{"28", Failure::PermissionDenied}, // of the sign-in
    StateFailure{"42S02", Failure::NoSuchTable},
    StateFailure{"42P01", Failure::NoSuchTable},
    StateFailure{"42S22", Failure::NoSuchColumn},
    StateFailure{"42703", Failure::NoSuchColumn},
    StateFailure{"42501", Failure::PermissionDenied},
    StateFailure{"25006", Failure::PermissionDenied}, // read only
    StateFailure{"42", Failure::SyntaxError},
    StateFailure{"37", Failure::SyntaxError},
    StateFailure{"07", Failure::SyntaxError},
    StateFailure{"22P02", Failure::WrongType}, // text that is no number
    StateFailure{"22007", Failure::WrongType}, // text that is no date
    StateFailure{"22018", Failure::WrongType},
    StateFailure{"22", Failure::DataOverflow},
    StateFailure{"54", Failure::DataOverflow}, // a limit of the server
    StateFailure{"23", Failure::Constraint},
    StateFailure{"55P03", Failure::DatabaseLocked}, // waited as long as it may for a lock
    StateFailure{"40", Failure::DatabaseLocked},    // two transactions wait for each other
    StateFailure{"HY008", Failure::Cancelled},
    StateFailure{"HYT", Failure::DatabaseLocked},
};

QString textOf(const SQLWCHAR* text, SQLSMALLINT length) {
    return QString(reinterpret_cast<const QChar*>(text), length);
}

/// "[unixODBC][...]ERROR: no such thing;\nError while executing the query" without what is not the server's.
QString serversWords(QString words) {
    while (words.startsWith(QLatin1Char('[')) && words.contains(QLatin1Char(']')))
        words = words.sliced(words.indexOf(QLatin1Char(']')) + 1);
    static const QRegularExpression driversOwn(
        QStringLiteral("(^|;\\n)(Error while |The connection has been lost|No query has been executed)"));
    if (const auto own = driversOwn.match(words); own.hasMatch())
        words.truncate(own.capturedStart());
    for (const char* severity : {"ERROR:", "FATAL:"})
        if (words.startsWith(QLatin1String(severity)))
            words.remove(0, 6);
    return words.simplified();
}

/// The name between the first quotes of "null value in column "JobKey" of ...".
QString quotedName(const QString& words) {
    return words.section(QLatin1Char('"'), 1, 1);
}

QString constraintText(const OdbcDiagnosis& diagnosis, const QByteArray& sql) {
    if (diagnosis.state == QLatin1String("23502"))
        return QStringLiteral("The column %1 must have a value.").arg(quotedName(diagnosis.words));
    if (diagnosis.state == QLatin1String("23505"))
        return QStringLiteral("The value of %1 exists already.").arg(quotedName(diagnosis.words));
    if (diagnosis.state != QLatin1String("23503") && diagnosis.state != QLatin1String("23001"))
        return diagnosis.words;
    return sql.startsWith("INSERT")
               ? QStringLiteral(
                     "The record cannot be added because a record that it refers to does not exist.")
               : QStringLiteral("The record cannot be deleted or changed because other records refer to it.");
}

} // namespace

OdbcDiagnosis diagnosisOf(OdbcHandleKind kind, OdbcHandle handle) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 1024> words{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const auto type =
        static_cast<SQLSMALLINT>(kind == OdbcHandleKind::Statement ? SQL_HANDLE_STMT : SQL_HANDLE_DBC);
    const SQLRETURN code = SQLGetDiagRecW(type, handle, 1, state.data(), &native, words.data(),
                                          static_cast<SQLSMALLINT>(words.size()), &length);
    if (!SQL_SUCCEEDED(code))
        return {};
    const auto kept = std::min<SQLSMALLINT>(length, static_cast<SQLSMALLINT>(words.size() - 1));
    return {textOf(state.data(), 5), serversWords(textOf(words.data(), kept))};
}

Failure failureOfState(QStringView state) {
    const auto found = std::ranges::find_if(stateFailures, [&](const StateFailure& entry) {
        return state.startsWith(
            QLatin1String(entry.begin.data(), static_cast<qsizetype>(entry.begin.size())));
    });
    return found != stateFailures.end() ? found->failure : Failure::DatabaseFailure;
}

bool isConnectionLost(QStringView state) {
    return state.startsWith(QLatin1String("08")) || // the standard's class of connection exceptions
           state.startsWith(QLatin1String("57P"));  // the server is being shut down or starts
}

void raiseOdbcError(const OdbcDiagnosis& diagnosis, const QString& server, const QByteArray& sql) {
    const Failure failure = failureOfState(diagnosis.state);
    const RunTimeError error =
        makeError(failure, failure == Failure::Constraint ? constraintText(diagnosis, sql) : diagnosis.words);
    throw RunTimeError(error.number(), server, error.description(), failure);
}

void raiseServerFailure(Failure failure, const QString& server, const QString& text, const QString& detail) {
    const QString whole = detail.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, detail);
    throw RunTimeError(makeError(failure).number(), server, whole, failure);
}

} // namespace tarnwell::data
