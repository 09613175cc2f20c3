#pragma once

#include "data/recordset/Connection.h"
#include "reports/drawing/ReportParameters.h"

#include <unordered_map>

namespace tarnwell {

/// Sums of amounts of lot tasks, by a key of the tasks. The database adds them up, in the order in which a
/// statement of one key alone does: where prices hold parts of cents, another order of adding may come out on
/// the other side of a half cent.
class AmountSums {
public:
    /// Adds what was paid for the tasks that meet a condition on `JobLotTask`; `key` is a column of theirs.
    void addPayments(Connection& connection, const QString& key, const QString& condition);
    /// Adds what such tasks cost.
    void addPrices(Connection& connection, const QString& key, const QString& condition);
    void clear() { m_sums.clear(); }

    /// Whether there was a row to add, with an amount or without.
    [[nodiscard]] bool contains(qint64 key) const { return m_sums.contains(key); }
    /// 0 without rows, and for rows without amounts.
    [[nodiscard]] double of(qint64 key) const;

private:
    void read(Connection& connection, const QString& statement);

    std::unordered_map<qint64, double> m_sums;
};

/// An amount on its way to a page: two decimals, halves to even.
[[nodiscard]] double roundedAmount(double amount);
/// What a number is after it was held in single precision: cents get lost from 131,072 on.
[[nodiscard]] double inSinglePrecision(double amount);
/// Whether tasks with so much left are on a report of this detail.
[[nodiscard]] bool isShown(DetailLevel detail, double left);

} // namespace tarnwell
