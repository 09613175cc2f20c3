#pragma once

#include "data/Connection.h"
#include "reports/ReportParameters.h"

#include <unordered_map>

namespace tarnwell {

/// What was paid for lot tasks, by the tasks' keys.
class PaidSums {
public:
    /// Adds the tasks that meet a condition on `JobLotTask`.
    void read(Connection& connection, const QString& condition);
    void clear() { m_sums.clear(); }

    [[nodiscard]] bool hasPayment(qint64 jobLotTaskKey) const { return m_sums.contains(jobLotTaskKey); }
    /// 0 without payments, and for payments without prices.
    [[nodiscard]] double of(qint64 jobLotTaskKey) const;

private:
    std::unordered_map<qint64, double> m_sums;
};

/// An amount on its way to a page: two decimals, halves to even.
[[nodiscard]] double roundedAmount(double amount);
/// What a number is after it was held in single precision: cents get lost from 131,072 on.
[[nodiscard]] double inSinglePrecision(double amount);
/// Whether tasks with so much left are on a report of this detail.
[[nodiscard]] bool isShown(DetailLevel detail, double left);

} // namespace tarnwell
