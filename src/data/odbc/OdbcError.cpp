#include "data/odbc/OdbcError.h"

#include "data/engine/ConstraintText.h"
#include "data/engine/LockText.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <optional>
#include <sql.h>
#include <sqlext.h>
#include <string_view>

namespace tarnwell::data {

namespace {

struct StateFailure {
    std::string_view begin; ///< Of the SQLSTATE; longer ones stand before those that they begin with.
    Failure failure;
    int native = 0; ///< The server's own number, where only that tells; those stand before all others.
};

/// Both the standard's states and those of the servers: what a driver passes on is not always translated.
/// SQL Server reports much under a state that says no more than that something is wrong.
constexpr std::array stateFailures{
    StateFailure{"", Failure::PermissionDenied, 229},  // of a table
    StateFailure{"", Failure::PermissionDenied, 230},  // of a column
    StateFailure{"", Failure::PermissionDenied, 262},  // to create
    StateFailure{"", Failure::PermissionDenied, 297},  // of the server
    StateFailure{"", Failure::PermissionDenied, 300},  // of the server
    StateFailure{"", Failure::PermissionDenied, 916},  // of the catalog
    StateFailure{"", Failure::PermissionDenied, 3906}, // read only
    StateFailure{"", Failure::PermissionDenied, 15247},
    StateFailure{"", Failure::PermissionDenied, 18456}, // of the sign-in
    StateFailure{"", Failure::NoSuchColumn, 4104},      // with a table's name in front
    StateFailure{"", Failure::Constraint, 8102},        // a generated key cannot be changed
    StateFailure{"", Failure::WrongType, 8114},         // text that is no number
    StateFailure{"", Failure::DataOverflow, 1946},      // too long for an index
    StateFailure{"", Failure::DataOverflow, 2628},      // too long for the column
    StateFailure{"", Failure::DatabaseLocked, 1222},    // waited as long as it may for a lock
    StateFailure{"", Failure::DatabaseLocked, 3960},    // changed by another transaction meanwhile
    StateFailure{"", Failure::DatabaseFailure, 1105},   // no space for a file of the catalog
    StateFailure{"", Failure::DatabaseFailure, 9002},   // no space for its log
    StateFailure{"", Failure::DatabaseNotFound, 911},   // no such catalog
    StateFailure{"", Failure::DatabaseNotFound, 4060},  // no such catalog, or none that is for this user
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

struct StateRule {
    std::string_view state;
    int native;      ///< 0: the state alone tells.
    BrokenRule rule; ///< Of a relation `IsReferredTo`, whichever side was written.
};
constexpr std::array stateRules{
    StateRule{"23502", 0, BrokenRule::NoValue},          StateRule{"23505", 0, BrokenRule::ExistsAlready},
    StateRule{"23503", 0, BrokenRule::IsReferredTo},     StateRule{"23001", 0, BrokenRule::IsReferredTo},
    StateRule{"23000", 515, BrokenRule::NoValue},        StateRule{"23000", 2601, BrokenRule::ExistsAlready},
    StateRule{"23000", 2627, BrokenRule::ExistsAlready}, StateRule{"23000", 547, BrokenRule::IsReferredTo},
};

bool begins(QStringView state, std::string_view begin) {
    return state.startsWith(QLatin1String(begin.data(), static_cast<qsizetype>(begin.size())));
}

QString textOf(const SQLWCHAR* text, SQLSMALLINT length) {
    return QString(reinterpret_cast<const QChar*>(text), length);
}

/// "[unixODBC][...]ERROR: no such thing;\nError while executing the query" without what is not the server's.
QString serversWords(QString words) {
    while (words.startsWith(QLatin1Char('[')) && words.contains(QLatin1Char(']')))
        words = words.sliced(words.indexOf(QLatin1Char(']')) + 1);
    static const QRegularExpression driversOwn(
        QStringLiteral("(^|;\\n)(Error while |The connection has been lost|No query has been executed)"
                       "|\\nserver closed the connection unexpectedly"));
    if (const auto own = driversOwn.match(words); own.hasMatch())
        words.truncate(own.capturedStart());
    for (const char* severity : {"ERROR:", "FATAL:"})
        if (words.startsWith(QLatin1String(severity)))
            words.remove(0, 6);
    return words.simplified();
}

/// The name between the first quotes of "null value in column "JobKey" of ..." or "Cannot insert the value
/// NULL into column 'JobKey', ...".
QString quotedName(const QString& words) {
    const auto isQuote = [](QChar c) { return c == QLatin1Char('"') || c == QLatin1Char('\''); };
    const auto begin = std::ranges::find_if(words, isQuote);
    if (begin == words.end())
        return {};
    return words.sliced(begin - words.begin() + 1).section(*begin, 0, 0);
}

/// One number of SQL Server stands for relations and for checks.
std::optional<BrokenRule> brokenRule(const OdbcDiagnosis& diagnosis) {
    const auto found = std::ranges::find_if(stateRules, [&](const StateRule& entry) {
        return begins(diagnosis.state, entry.state) &&
               (entry.native == 0 || entry.native == diagnosis.native);
    });
    if (found == stateRules.end() || diagnosis.words.contains(QLatin1String("CHECK constraint")))
        return std::nullopt;
    return found->rule;
}

QString brokenRuleText(const OdbcDiagnosis& diagnosis, const QByteArray& sql) {
    const std::optional<BrokenRule> rule = brokenRule(diagnosis);
    if (!rule)
        return diagnosis.words;
    const bool lacksParent = *rule == BrokenRule::IsReferredTo && sql.contains("INSERT INTO ");
    return constraintText(lacksParent ? BrokenRule::NoSuchParent : *rule, quotedName(diagnosis.words));
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
    return {textOf(state.data(), 5), serversWords(textOf(words.data(), kept)), native};
}

Failure failureOf(const OdbcDiagnosis& diagnosis) {
    const auto found = std::ranges::find_if(stateFailures, [&](const StateFailure& entry) {
        return begins(diagnosis.state, entry.begin) &&
               (entry.native == 0 || entry.native == diagnosis.native);
    });
    return found != stateFailures.end() ? found->failure : Failure::DatabaseFailure;
}

bool isConnectionLost(QStringView state) {
    return state.startsWith(QLatin1String("08")) || // the standard's class of connection exceptions
           state.startsWith(QLatin1String("57P"));  // the server is being shut down or starts
}

bool isUnreachable(QStringView state) {
    return isConnectionLost(state) || begins(state, "HYT");
}

void raiseOdbcError(const OdbcDiagnosis& diagnosis, const QString& server, const QByteArray& sql) {
    const Failure failure = failureOf(diagnosis);
    const QString detail = failure == Failure::Constraint  ? brokenRuleText(diagnosis, sql)
                           : failure == Failure::Cancelled ? QString()
                           : failure == Failure::DatabaseLocked && !sql.isEmpty() ? lockText(sql)
                                                                                  : diagnosis.words;
    const RunTimeError error = makeError(failure, detail);
    throw RunTimeError(error.number(), server, error.description(), failure);
}

void raiseServerFailure(Failure failure, const QString& server, const QString& text, const QString& detail) {
    const QString whole = detail.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, detail);
    throw RunTimeError(makeError(failure).number(), server, whole, failure);
}

} // namespace tarnwell::data
