#include "sample/SamplePayments.h"

#include "sample/SampleWords.h"

#include <algorithm>
#include <array>

namespace tarnwell::sample {

namespace {

/// Wages are paid on Fridays.
QDate payday(QDate done) {
    constexpr int friday = 5;
    const QDate day = done.addDays((friday - done.dayOfWeek() + 7) % 7);
    const QDate last = baseDate.addDays(-((baseDate.dayOfWeek() - friday + 7) % 7));
    return std::min(day, last);
}

} // namespace

const PaymentWriter::Outcome& PaymentWriter::outcomeAt(std::size_t index) {
    // Walked in turn and not drawn, so that the smallest sample has them all.
    static constexpr auto all = std::to_array<Outcome>(
        {{1, 100, false}, {1, 100, false}, {2, 100, false}, {1, 60, false},  {1, 100, false}, {1, 100, false},
         {0, 0, false},   {1, 100, false}, {2, 100, true},  {1, 100, false}, {3, 100, false}, {1, 100, false},
         {1, 100, false}, {1, 40, false},  {1, 100, false}, {1, 115, false}, {1, 100, false}, {2, 100, false},
         {1, 100, false}, {2, 75, false},  {1, 100, false}, {1, 100, false}, {1, 100, false}});
    return all[index % all.size()];
}

void PaymentWriter::payProgress(const std::vector<LotTask>& tasks, bool finished) {
    for (const LotTask& task : tasks) {
        if (task.cents == 0 || (task.due > baseDate && !finished))
            continue;
        const Outcome& outcome = outcomeAt(m_outcome++);
        // Nothing is left open when a job is completed.
        pay(task, finished && outcome.percent < 100 ? Outcome{1, 100, false} : outcome);
    }
}

void PaymentWriter::payExactly(const std::vector<LotTask>& tasks, int count) {
    // Some tasks take what is there before others have their turn: those stay unpaid.
    std::vector<int> counts(tasks.size(), 0);
    for (std::size_t i = 0; count > 0 && !tasks.empty(); i = (i + 1) % tasks.size()) {
        const int payments = std::min(count, m_random.between(1, 4));
        counts[i] += payments;
        count -= payments;
    }
    for (std::size_t i = 0; i < tasks.size(); ++i)
        pay(tasks[i], {counts[i], m_random.chance(85) ? 100 : 55, m_random.chance(4)});
}

void PaymentWriter::pay(const LotTask& task, Outcome outcome) {
    const int total = static_cast<int>(static_cast<qint64>(task.cents) * outcome.percent / 100);
    std::vector<qint64> paid;
    for (int i = 0; i < outcome.payments; ++i) {
        const QDate day = payday(task.due.addDays(qint64{i} * 7));
        const qint64 before = paid.empty() ? 0 : paid.back();
        const qint64 employee =
            outcome.sameWorker && before != 0 ? before : m_staff.workerFor(m_random, task.trade, day, before);
        // The log entry of an accepted double payment stands before the payment itself.
        if (std::ranges::find(paid, employee) != paid.end())
            m_tables.log.add({task.key, employee, DateTime{day},
                              m_tables.log.rows() % 3 == 2
                                  ? "Employee paid twice for same job/task - foreman's approval"
                                  : "Employee paid twice for same job/task"});
        const int share = total / outcome.payments;
        const bool last = i + 1 == outcome.payments;
        writePayment(task, employee, day, last ? total - share * i : share);
        paid.push_back(employee);
    }
}

void PaymentWriter::writePayment(const LotTask& task, qint64 employee, QDate day, int cents) {
    const bool noted = m_tables.payment.rows() % 6 == 5;
    m_tables.payment.add(
        {task.key, employee, money(cents), DateTime{day},
         noted ? Value(QString::fromLatin1(m_random.pick(words::paymentNotes()))) : Value("")});
}

} // namespace tarnwell::sample
