#pragma once

#include "data/recordset/Connection.h"
#include "reports/drawing/ReportParameters.h"

#include <unordered_map>

namespace tarnwell {

/// Sums of amounts of lot tasks, by a key of the tasks. Engines add in different orders, and the last digits
/// of a double with them; amounts of at most six decimals have the same sum in every order here, so that half
/// a cent is rounded the same way everywhere.
class AmountSums {
public:
    /// Adds what was paid for the tasks that meet a condition on `JobLotTask`; `key` is a column of theirs.
    void addPayments(Connection& connection, const QString& key, const QString& condition);
    /// Adds what such tasks cost.
    void addPrices(Connection& connection, const QString& key, const QString& condition);
    void clear() { m_sums.clear(); }

    /// Whether there was a row for the key, with an amount or with Null.
    [[nodiscard]] bool contains(qint64 key) const { return m_sums.contains(key); }
    /// 0 for a key without rows; Null amounts count as 0.
    [[nodiscard]] double of(qint64 key) const;

private:
    void read(Connection& connection, const QString& statement);

    std::unordered_map<qint64, double> m_sums;
};

/// An amount as pages show it: rounded to two decimals, halves to even.
[[nodiscard]] double roundedAmount(double amount);
/// The amount in single precision, which loses cents from 131,072 on.
[[nodiscard]] double inSinglePrecision(double amount);
/// Whether a task with that amount left is on a report of this detail.
[[nodiscard]] bool isShown(DetailLevel detail, double left);

} // namespace tarnwell
