#pragma once

#include "reports/drawing/KeyBatch.h"
#include "reports/drawing/TaskAmounts.h"

namespace tarnwell {

/// An option of a parent task.
struct OptionTask {
    qint64 parentKey;
    qint64 jobLotTaskKey;
    Value name;
    Value masterPrice;
};

/// Options and payments of the parent tasks that a report walks through, read for many parents at a time.
class LotOptionTasks {
public:
    /// Requires: `parents` has the column JobLotTaskKey, and outlives this.
    LotOptionTasks(Connection& connection, const Recordset& parents);

    /// Reads what belongs to the current parent, and to those after it, unless that has been done. Spans that
    /// were returned before are invalid then.
    void prepare();
    /// In the order of their names. Requires: the parent is prepared; the same for what follows.
    [[nodiscard]] std::span<const OptionTask> optionsOf(qint64 parentKey) const;
    /// The sum of the options' prices; a Null price counts as 0.
    [[nodiscard]] double optionTotalOf(qint64 parentKey) const { return m_optionTotal.of(parentKey); }
    /// For a parent or an option; 0 without payments.
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
