#pragma once

#include "reports/drawing/KeyBatch.h"
#include "reports/drawing/TaskAmounts.h"

namespace tarnwell {

struct BudgetPayment {
    qint64 jobLotTaskKey;
    Value completed;
    Value employee; ///< "Last, First"; Null when a part of the name is Null.
    Value price;
};

struct BudgetTask {
    qint64 jobLotKey;
    qint64 jobLotTaskKey;
    Value name;
    Value masterPrice;
};

struct BudgetSums {
    double total = 0;    ///< Of the tasks' prices; a Null price counts as 0.
    double paid = 0;     ///< Of all payments.
    bool settled = true; ///< Every task has a payment, whatever its amount. True without tasks.
};

/// Tasks and payments of the lots that a report walks through, read for many lots at a time.
class LotBudgetTasks {
public:
    /// Requires: `lots` has the column JobLotKey, and outlives this. Without `withPayments` no task has any.
    LotBudgetTasks(Connection& connection, const Recordset& lots, bool withPayments);

    /// Reads what belongs to the current lot, and to those after it, unless that has been done. Spans that
    /// were returned before are invalid then.
    void prepare();
    /// In the order of their names. Requires: the lot is prepared; the same for what follows.
    [[nodiscard]] std::span<const BudgetTask> tasksOf(qint64 jobLotKey) const;
    /// In the order of their dates.
    [[nodiscard]] std::span<const BudgetPayment> paymentsOf(qint64 jobLotTaskKey) const;
    /// 0 without payments.
    [[nodiscard]] double paidFor(qint64 jobLotTaskKey) const { return m_paid.of(jobLotTaskKey); }
    [[nodiscard]] BudgetSums sumsOf(qint64 jobLotKey) const;

private:
    void readTasks(const QString& condition);
    void readPayments(const QString& condition);
    void readSums(const QString& condition);

    Connection& m_connection;
    KeyBatch m_batch;
    bool m_withPayments;
    std::vector<BudgetTask> m_tasks;
    std::vector<BudgetPayment> m_payments;
    AmountSums m_paid; // by task
    AmountSums m_lotPaid;
    AmountSums m_lotTotal;
};

} // namespace tarnwell
