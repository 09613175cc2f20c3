#pragma once

#include "data/schema/Schema.h"
#include "data/sqlite/SqliteDatabase.h"
#include "support/RaisedNumber.h"

#include <QStringList>

#include <sqlite3.h>
#include <string>
#include <vector>

namespace tarnwell::test {

/// The schema in memory, without a connection, so that what is below the connection is tested without it.
class PlainDatabase {
public:
    PlainDatabase() {
        m_handle.run("PRAGMA foreign_keys = ON");
        for (const QString& statement : schema::createStatements())
            m_handle.run(statement.toUtf8());
    }

    /// The engine's message, or nothing when the statement ran.
    std::string run(const QByteArray& sql) {
        return raisedText([&] { m_handle.run(sql); }).toStdString();
    }
    /// Every row, its columns joined by "|", Null as "NULL".
    [[nodiscard]] std::vector<std::string> rows(const QByteArray& sql,
                                                const std::vector<Value>& values = {}) {
        data::SqliteStatement statement = m_handle.prepare(sql);
        statement.bindAll(values);
        std::vector<std::string> result;
        while (statement.step()) {
            QStringList cells;
            for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
                cells << (sqlite3_column_type(statement.get(), i) == SQLITE_NULL ? "NULL"
                                                                                 : statement.textAt(i));
            result.push_back(cells.join('|').toStdString());
        }
        return result;
    }

private:
    data::SqliteDatabase m_handle{":memory:", data::SqliteDatabase::Access::Create};
};

} // namespace tarnwell::test
