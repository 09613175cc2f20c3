#pragma once

#include "data/Schema.h"
#include "data/Value.h"

#include <QByteArray>

#include <memory>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace tarnwell::test {

/// The schema in memory, reached through the bare SQLite library, so that what is below the connection is
/// tested without it. Failures are answers here, not exceptions.
class PlainDatabase {
public:
    PlainDatabase() {
        sqlite3* opened = nullptr;
        sqlite3_open(":memory:", &opened);
        m_database.reset(opened);
        run("PRAGMA foreign_keys = ON");
        for (const QString& statement : schema::createStatements())
            if (const std::string problem = run(statement.toUtf8()); !problem.empty())
                m_problems += problem + "\n";
    }

    /// What went wrong when the schema was made.
    [[nodiscard]] const std::string& problems() const { return m_problems; }

    /// The engine's message, or nothing when the statement ran.
    std::string run(const QByteArray& sql) {
        char* message = nullptr;
        const int result = sqlite3_exec(m_database.get(), sql, nullptr, nullptr, &message);
        std::string text = result == SQLITE_OK ? "" : message;
        sqlite3_free(message);
        return text;
    }

    /// Every row, its columns joined by "|", Null as "NULL"; or one row with the engine's message.
    [[nodiscard]] std::vector<std::string> rows(const QByteArray& sql,
                                                const std::vector<Value>& values = {}) {
        sqlite3_stmt* prepared = nullptr;
        if (sqlite3_prepare_v2(m_database.get(), sql, -1, &prepared, nullptr) != SQLITE_OK)
            return {sqlite3_errmsg(m_database.get())};
        const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
        for (std::size_t i = 0; i < values.size(); ++i)
            bind(prepared, static_cast<int>(i) + 1, values[i]);
        std::vector<std::string> result;
        while (sqlite3_step(prepared) == SQLITE_ROW)
            result.push_back(rowText(prepared));
        return result;
    }

private:
    static void bind(sqlite3_stmt* statement, int index, const Value& value) {
        if (value.kind() == Value::Kind::Long)
            sqlite3_bind_int64(statement, index, value.toLong());
        else if (value.kind() == Value::Kind::Double)
            sqlite3_bind_double(statement, index, value.toDouble());
        else
            sqlite3_bind_text(statement, index, value.toText().toUtf8(), -1, SQLITE_TRANSIENT);
    }
    static std::string rowText(sqlite3_stmt* statement) {
        std::string text;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const unsigned char* cell = sqlite3_column_text(statement, i);
            text += (i > 0 ? "|" : "") +
                    (cell != nullptr ? std::string(reinterpret_cast<const char*>(cell)) : "NULL");
        }
        return text;
    }

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> m_database{nullptr, sqlite3_close};
    std::string m_problems;
};

} // namespace tarnwell::test
