#pragma once

#include "sample/SampleLotTasks.h"

namespace tarnwell::sample {

/// Pays lot tasks as Time Card Entry does: every further payment of a task to the same employee has its entry
/// in the log first.
class PaymentWriter {
public:
    PaymentWriter(SampleTables& tables, SampleRandom& random, const Staff& staff)
        : m_tables(tables), m_random(random), m_staff(staff) {}

    /// Pays what is done by the base date: in full, in parts, to several, twice to one, too much; now and
    /// then a task is forgotten.
    void payProgress(const std::vector<LotTask>& tasks, bool finished);
    /// Exactly `count` payments, spread over the tasks; some get none.
    void payExactly(const std::vector<LotTask>& tasks, int count);
    /// One payment in full.
    void payOnce(const LotTask& task) { pay(task, {1, 100, false}); }

private:
    struct Outcome {
        int payments;
        int percent; ///< Of the task's price, all payments together.
        bool sameWorker;
    };
    static const Outcome& outcomeAt(std::size_t index);

    void pay(const LotTask& task, Outcome outcome);
    void writePayment(const LotTask& task, qint64 employee, QDate day, int cents);

    SampleTables& m_tables;
    SampleRandom& m_random;
    const Staff& m_staff;
    std::size_t m_outcome = 0;
};

} // namespace tarnwell::sample
