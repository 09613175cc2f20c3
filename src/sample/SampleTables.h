#pragma once

#include "data/recordset/Connection.h"
#include "data/recordset/Recordset.h"

#include <QString>

#include <array>
#include <initializer_list>
#include <memory>
#include <vector>

namespace tarnwell::sample {

/// Adds rows to one table, through a recordset as every screen does.
class TableWriter {
public:
    TableWriter(Connection& connection, QString table, std::vector<QString> columns);

    /// Adds a row with values in the order of the columns; Empty leaves a column to its default. Returns the
    /// generated key.
    qint64 add(std::initializer_list<Value> values);
    /// Changes one column of the row added last.
    void change(int column, const Value& value);
    /// Lets go of the rows added so far.
    void close();
    [[nodiscard]] qint64 rows() const { return m_rows; }

private:
    void open();

    Connection& m_connection;
    QString m_table;
    std::vector<QString> m_columns;
    std::vector<int> m_indexes;
    int m_keyIndex = 0;
    Recordset m_recordset;
    qint64 m_rows = 0;
};

/// A writer for each table, inside one transaction after another: a commit for each row would cost an hour.
class SampleTables {
public:
    explicit SampleTables(Connection& connection);

    /// Columns in the order of the catalogue; a lot task's tree columns stand first, since a parent's key is
    /// known only after its row.
    TableWriter code, masterTask, dependency, builder, plan, planTask, taskOption, optionGroup, employee, job,
        lot, lotTask, payment, log;

    [[nodiscard]] Connection& connection() { return m_connection; }
    /// Called between whole jobs or records: commits when enough has gathered.
    void breathe();
    /// Commits what is left.
    void finish();

private:
    [[nodiscard]] std::array<TableWriter*, 14> all();
    [[nodiscard]] qint64 rows();

    Connection& m_connection;
    std::unique_ptr<Transaction> m_transaction;
    qint64 m_committedRows = 0;
};

} // namespace tarnwell::sample
