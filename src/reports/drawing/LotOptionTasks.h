#pragma once

#include "reports/drawing/KeyBatch.h"
#include "reports/drawing/TaskAmounts.h"

namespace tarnwell {

/// A child of a parent task.
struct OptionTask {
    qint64 parentKey;
    qint64 jobLotTaskKey;
    Value name;
    Value masterPrice;
};

/// Options and payments of the parent tasks that a report walks through, read for many parents at a time.
class LotOptionTasks {
public:
    /// `parents` has the column JobLotTaskKey.
    LotOptionTasks(Connection& connection, const Recordset& parents);

    /// Makes the current parent and some behind it ready; what was given out before is gone then.
    void prepare();
    /// By name.
    [[nodiscard]] std::span<const OptionTask> optionsOf(qint64 parentKey) const;
    /// The sum of the options' prices.
    [[nodiscard]] double optionTotalOf(qint64 parentKey) const { return m_optionTotal.of(parentKey); }
    /// For a parent or an option.
    [[nodiscard]] double paidFor(qint64 jobLotTaskKey) const { return m_paid.of(jobLotTaskKey); }

private:
    void readOptions(const QString& condition);

    Connection& m_connection;
    KeyBatch m_batch;
    std::vector<OptionTask> m_options;
    AmountSums m_optionTotal; // by parent
    AmountSums m_paid;        // by task
};

} // namespace tarnwell
