#include "data/sqlite/SqliteDatabase.h"

#include "data/sqlite/SqliteError.h"

#include <QUrl>

#include <algorithm>
#include <cctype>
#include <sqlite3.h>
#include <string_view>

namespace tarnwell::data {

namespace {

int bindText(sqlite3_stmt* statement, int parameter, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return sqlite3_bind_text64(statement, parameter, utf8.constData(),
                               static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
}

int bindValue(sqlite3_stmt* statement, int parameter, const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
        return sqlite3_bind_null(statement, parameter);
    case Value::Kind::YesNo:
    case Value::Kind::Long:
        return sqlite3_bind_int64(statement, parameter, value.toLong());
    case Value::Kind::Double:
        return sqlite3_bind_double(statement, parameter, value.toDouble());
    case Value::Kind::Date: {
        const auto text = storedDate(value.toDate());
        return sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()),
                                 SQLITE_TRANSIENT);
    }
    case Value::Kind::Text:
        return bindText(statement, parameter, value.toText());
    }
    return SQLITE_MISUSE;
}

int openFlags(SqliteDatabase::Access access) {
    // One thread uses a connection, so the engine's own locks are only a cost.
    constexpr int always = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    switch (access) {
    case SqliteDatabase::Access::ReadWrite:
        return always | SQLITE_OPEN_READWRITE;
    case SqliteDatabase::Access::ReadOnly:
        return always | SQLITE_OPEN_READONLY;
    case SqliteDatabase::Access::Immutable:
        return always | SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    case SqliteDatabase::Access::Create:
        return always | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    }
    return always;
}

QByteArray openName(const QString& path, SqliteDatabase::Access access) {
    if (access != SqliteDatabase::Access::Immutable)
        return path.toUtf8();
    return QUrl::fromLocalFile(path).toEncoded() + "?immutable=1";
}

} // namespace

void SqliteStatement::Finalizer::operator()(sqlite3_stmt* statement) const noexcept {
    sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(sqlite3* handle, const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    const int code = sqlite3_prepare_v3(handle, sql.constData(), static_cast<int>(sql.size()) + 1,
                                        SQLITE_PREPARE_PERSISTENT, &statement, &tail);
    m_statement.reset(statement);
    if (code != SQLITE_OK)
        raiseSqliteError(handle, sql.constData());
    const std::string_view behind(tail);
    if (statement == nullptr || std::ranges::any_of(behind, [](unsigned char c) { return !std::isspace(c); }))
        raise(Failure::SyntaxError, QString::fromUtf8(sql));
}

void SqliteStatement::bind(int parameter, const Value& value) {
    if (bindValue(get(), parameter, value) != SQLITE_OK)
        raiseSqliteError(sqlite3_db_handle(get()), sqlite3_sql(get()));
}

void SqliteStatement::bindAll(std::span<const Value> values) {
    int parameter = 0;
    for (const Value& value : values)
        bind(++parameter, value);
}

void SqliteStatement::bindBytes(int parameter, QByteArrayView bytes) {
    if (sqlite3_bind_blob64(get(), parameter, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                            SQLITE_STATIC) != SQLITE_OK)
        raiseSqliteError(sqlite3_db_handle(get()), sqlite3_sql(get()));
}

bool SqliteStatement::step() {
    const int code = sqlite3_step(get());
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        raiseSqliteError(sqlite3_db_handle(get()), sqlite3_sql(get()));
    reset();
    return false;
}

void SqliteStatement::run() {
    try {
        while (step()) {
        }
    } catch (const RunTimeError&) {
        reset(); // a failed statement keeps its locks until it is reset
        throw;
    }
}

void SqliteStatement::reset() noexcept {
    sqlite3_reset(get());
}

qint64 SqliteStatement::integerAt(int column) const {
    return sqlite3_column_int64(get(), column);
}

QString SqliteStatement::textAt(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(get(), column));
    return QString::fromUtf8(text, sqlite3_column_bytes(get(), column));
}

QByteArrayView SqliteStatement::bytesAt(int column) const {
    // The bytes come first: asking for their number alone would not convert a text.
    const void* bytes = sqlite3_column_blob(get(), column);
    return {static_cast<const char*>(bytes), sqlite3_column_bytes(get(), column)};
}

void SqliteDatabase::Closer::operator()(sqlite3* handle) const noexcept {
    sqlite3_close_v2(handle);
}

SqliteDatabase::SqliteDatabase(const QString& path, Access access) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(openName(path, access).constData(), &handle, openFlags(access), nullptr);
    m_handle.reset(handle);
    if (code != SQLITE_OK)
        raiseSqliteError(handle);
}

bool SqliteDatabase::foundDamage() const {
    return failureOf(sqlite3_extended_errcode(get()), QString::fromUtf8(sqlite3_errmsg(get()))) ==
           Failure::DatabaseForeign;
}

bool SqliteDatabase::foundBusy() const {
    return (sqlite3_errcode(get()) & 0xFF) == SQLITE_BUSY;
}

SqliteWatch::SqliteWatch(const SqliteDatabase& database, std::function<bool()> goesOn)
    : m_database(database), m_goesOn(std::move(goesOn)) {
    constexpr int stepsBetweenQuestions = 10'000; // some tenths of a millisecond
    if (m_goesOn)
        sqlite3_progress_handler(
            database.get(), stepsBetweenQuestions,
            [](void* watch) { return static_cast<SqliteWatch*>(watch)->m_goesOn() ? 0 : 1; }, this);
}

SqliteWatch::~SqliteWatch() {
    sqlite3_progress_handler(m_database.get(), 0, nullptr, nullptr);
}

} // namespace tarnwell::data
