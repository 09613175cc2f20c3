#pragma once

#include "reports/drawing/KeyBatch.h"
#include "reports/drawing/TaskAmounts.h"

namespace tarnwell {

struct BudgetPayment {
    qint64 jobLotTaskKey;
    Value completed;
    Value employee; ///< "Last, First"; Null when a part of the name is.
    Value price;
};

struct BudgetTask {
    qint64 jobLotKey;
    qint64 jobLotTaskKey;
    Value name;
    Value masterPrice;
};

struct BudgetSums {
    double total = 0;    ///< Of the tasks' prices; those without one count nothing.
    double paid = 0;     ///< Of all payments.
    bool settled = true; ///< Every task has a payment, whatever its amount. True without tasks.
};

/// Tasks and payments of the lots that a report walks through, read for many lots at a time.
class LotBudgetTasks {
public:
    /// `lots` has the column JobLotKey. Payments are read only when they are wanted.
    LotBudgetTasks(Connection& connection, const Recordset& lots, bool withPayments);

    /// Makes the current lot and some behind it ready; what was given out before is gone then.
    void prepare();
    /// By name.
    [[nodiscard]] std::span<const BudgetTask> tasksOf(qint64 jobLotKey) const;
    /// By date.
    [[nodiscard]] std::span<const BudgetPayment> paymentsOf(qint64 jobLotTaskKey) const;
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
