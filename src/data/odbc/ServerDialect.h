#pragma once

#include "data/schema/Quoted.h"
#include "data/schema/Schema.h"
#include "data/sql/SqlWriter.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <vector>

namespace tarnwell::data {

/// What one server writes and does otherwise than the others; everything else of the servers' engine is the
/// same. Without state: one object serves all connections.
class ServerDialect : public SqlWriter {
public:
    /// The server as errors name it.
    [[nodiscard]] virtual QString name() const = 0;
    /// The connection string of the driver manager for one of ours.
    [[nodiscard]] virtual QString driverString(const QString& connectionString) const = 0;
    /// False for a driver that fetches one row at a time, and describes a statement only once it has run.
    [[nodiscard]] virtual bool fetchesInBlocks() const { return true; }
    /// What each new connection runs first. `busyTimeout`: how long a statement waits for another user's
    /// lock.
    [[nodiscard]] virtual std::vector<QByteArray> settings(std::chrono::milliseconds busyTimeout) const = 0;

    /// A select of one number, 0 where the server ended the open transaction by itself over a statement that
    /// failed. Empty for a server on which such a statement always takes back itself alone.
    [[nodiscard]] virtual QByteArray openTransactions() const { return {}; }

    /// An INSERT of one row that gives the new key back as its only row.
    [[nodiscard]] virtual QByteArray returningKey(const QByteArray& insert,
                                                  const schema::Table& table) const = 0;
    /// A select of one stored row that nobody else changes before the transaction ends.
    [[nodiscard]] virtual QByteArray locked(const QByteArray& select) const = 0;
    /// A select without a LIMIT that gives its first rows only: a server sends whatever it is asked for, and
    /// plans for it. It may give more.
    [[nodiscard]] virtual QByteArray firstRows(const QByteArray& select, int /*most*/) const {
        return select;
    }
    /// A select whose one text changes with each write that anybody has finished.
    [[nodiscard]] virtual QByteArray dataVersion() const = 0;
    /// A select of one number: the connections to the catalog that are made as this one is, this one among
    /// them. Empty for a server that does not say it to every user.
    [[nodiscard]] virtual QByteArray workstations() const { return {}; }
    /// A select of the tables and columns that there are, one row each.
    [[nodiscard]] virtual QByteArray columns() const = 0;

    /// What the owner of an empty catalog runs first, outside of a transaction.
    [[nodiscard]] virtual std::vector<QByteArray> catalogSettings() const { return {}; }
    /// The statements that make tables, relations, indexes and triggers in an empty catalog, in order.
    [[nodiscard]] virtual std::vector<QByteArray> createStatements() const = 0;
    /// The same for a catalog that has the tables of an earlier version: what came after it.
    [[nodiscard]] virtual std::vector<QByteArray> upgradeStatements(int from) const = 0;
    /// A statement after which new keys of the table lie behind all that it has: rows were added with keys of
    /// their own.
    [[nodiscard]] virtual QByteArray passKeys(const schema::Table& table) const = 0;

    // Rows that are copied from another database bring their keys.

    /// An INSERT of rows of the table, as the server takes it where the rows have keys of their own.
    [[nodiscard]] virtual QByteArray withKeys(const QByteArray& insert,
                                              const schema::Table& /*table*/) const {
        return insert;
    }
    /// A select of one number: the greatest key that the table has ever given out, or 0.
    [[nodiscard]] virtual QByteArray greatestKey(const schema::Table& table) const {
        return "SELECT coalesce(max(" + quoted(table.keyColumn) + "), 0) FROM " + quoted(table.name);
    }
    /// A statement after which new keys of the table lie behind `key`, from 1 on, and behind all before.
    [[nodiscard]] virtual QByteArray keysBehind(const schema::Table& table, qint64 /*key*/) const {
        return passKeys(table);
    }
};

} // namespace tarnwell::data
