#include "data/sqlite/SqliteError.h"

#include "data/engine/ConstraintText.h"
#include "data/engine/LockText.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <sqlite3.h>

namespace tarnwell::data {

namespace {

struct CodeFailure {
    int code; ///< Primary or extended; extended codes stand first.
    Failure failure;
};

constexpr std::array codeFailures{
    CodeFailure{SQLITE_BUSY, Failure::DatabaseLocked},
    CodeFailure{SQLITE_LOCKED, Failure::DatabaseLocked},
    CodeFailure{SQLITE_NOTADB, Failure::DatabaseForeign},
    CodeFailure{SQLITE_CORRUPT, Failure::DatabaseForeign},
    CodeFailure{SQLITE_CONSTRAINT, Failure::Constraint},
    CodeFailure{SQLITE_READONLY, Failure::PermissionDenied},
    CodeFailure{SQLITE_PERM, Failure::PermissionDenied},
    CodeFailure{SQLITE_AUTH, Failure::PermissionDenied},
    CodeFailure{SQLITE_TOOBIG, Failure::DataOverflow},
    CodeFailure{SQLITE_MISMATCH, Failure::WrongType},
    CodeFailure{SQLITE_INTERRUPT, Failure::Cancelled},
};

struct WordsFailure {
    const char* words;
    Failure failure;
};

/// Where the code is no more than "error", its words tell.
constexpr std::array wordsFailures{
    WordsFailure{"no such table", Failure::NoSuchTable},
    WordsFailure{"no such column", Failure::NoSuchColumn},
    WordsFailure{"has no column named", Failure::NoSuchColumn},
    WordsFailure{"integer overflow", Failure::DataOverflow},
    WordsFailure{"not authorized", Failure::PermissionDenied},
    WordsFailure{"prohibited", Failure::PermissionDenied},
    WordsFailure{"unsupported file format", Failure::DatabaseForeign}, // of a damaged header
};

/// The last part of "NOT NULL constraint failed: Job.Name".
QString failedColumn(const QString& words) {
    return words.section(QStringLiteral(": "), 1);
}

QString refusalText(int extendedCode, const QString& words, const char* sql) {
    const bool adds =
        sql != nullptr && QLatin1String(sql).startsWith(QLatin1String("INSERT"), Qt::CaseInsensitive);
    // A refusing relation works as a trigger, and says so in its code.
    if (words.startsWith(QLatin1String("FOREIGN KEY")))
        return constraintText(adds ? BrokenRule::NoSuchParent : BrokenRule::IsReferredTo);
    switch (extendedCode) {
    case SQLITE_CONSTRAINT_NOTNULL:
        return constraintText(BrokenRule::NoValue, failedColumn(words));
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
        return constraintText(BrokenRule::ExistsAlready, failedColumn(words));
    default:
        return words;
    }
}

} // namespace

/// The engine has no code of its own for a missing table or column; only its words tell it from a slip of
/// syntax.
Failure failureOf(int extendedCode, const QString& words) {
    const int primaryCode = extendedCode & 0xFF;
    if (primaryCode == SQLITE_ERROR) {
        const auto found = std::ranges::find_if(wordsFailures, [&](const WordsFailure& entry) {
            return words.contains(QLatin1String(entry.words));
        });
        return found != wordsFailures.end() ? found->failure : Failure::SyntaxError;
    }
    const auto found = std::ranges::find(codeFailures, primaryCode, &CodeFailure::code);
    return found != codeFailures.end() ? found->failure : Failure::DatabaseFailure;
}

void raiseSqliteError(sqlite3* handle, const char* sql) {
    const int code = sqlite3_extended_errcode(handle);
    const QString words = QString::fromUtf8(sqlite3_errmsg(handle));
    const Failure failure = failureOf(code, words);
    if (failure == Failure::DatabaseLocked)
        raise(failure, lockText(sql));
    raise(failure, failure == Failure::Constraint ? refusalText(code, words, sql) : words);
}

} // namespace tarnwell::data
