#include "bench/ReportSample.h"

#include "bench/LargeSample.h"
#include "data/recordset/Recordset.h"
#include "data/schema/Schema.h"
#include "runtime/DataEnvironment.h"

#include <initializer_list>
#include <optional>
#include <utility>

namespace tarnwell::bench {

namespace {

constexpr int lotCount = 1'000;
constexpr int tasksOfLot = 40;
constexpr int tasksOfParent = 4;
constexpr int paymentsOfTask = 2;

/// A table to which rows are added, one after the other.
class Appender {
public:
    explicit Appender(const QString& table) : m_key(schema::findTable(table)->keyColumn) {
        m_rows.Open(table, DataEnvironment::cnnConnection(), CursorType::Dynamic, LockType::Optimistic);
    }

    qint64 add(std::initializer_list<std::pair<const char*, Value>> values) {
        m_rows.AddNew();
        for (const auto& [column, value] : values)
            m_rows.set(column, value);
        m_rows.Update();
        return m_rows.field(m_key).toLong();
    }

    /// Changes the row that was added last.
    void change(const char* column, const Value& value) {
        m_rows.set(column, value);
        m_rows.Update();
    }

private:
    QString m_key;
    Recordset m_rows;
};

/// On a server the job stays from one run to the next.
std::optional<Value> foundBudgetJob() {
    return firstValue(DataEnvironment::cnnConnection(), "SELECT JobKey FROM Job WHERE JobNumber='99-LOTS'");
}

qint64 makeBudgetJob() {
    Transaction transaction(DataEnvironment::cnnConnection());
    Appender jobs("Job");
    Appender lots("JobLot");
    Appender tasks("JobLotTask");
    Appender payments("JobTaskEmployee");
    Appender log("EmployeeLog");
    const qint64 builder = middleOf("SELECT ContractorKey FROM Contractor").toLongLong();
    const qint64 employee = middleOf("SELECT EmployeeKey FROM Employee").toLongLong();
    const qint64 category = middleOf("SELECT CodeKey FROM Code").toLongLong();
    const Value completed = DateTime{QDate(2026, 3, 6)};
    const qint64 job = jobs.add({{"JobNumber", "99-LOTS"}, {"Name", "All lots"}, {"ContractorKey", builder}});
    for (int i = 0; i < lotCount; ++i) {
        const qint64 lot = lots.add({{"JobKey", job},
                                     {"LotBlock", QString("%1/A").arg(i)},
                                     {"PlanName", "Sequoia 2400"},
                                     {"Address", QString("%1 Copper Ridge Dr").arg(100 + i)}});
        qint64 parent = 0;
        for (int j = 0; j < tasksOfLot; ++j) {
            const bool isOption = j % tasksOfParent != 0;
            const qint64 task =
                tasks.add({{"JobLotKey", lot},
                           {"ParentKey", isOption ? parent : 0},
                           {"Child", isOption ? j % tasksOfParent : 0},
                           {"CodeKey", category},
                           {"EmployeeKey", employee + i % 500},
                           {"StartDate", DateTime{QDate(2026, 3, 2).addDays(i % 60)}},
                           {"StopDate", DateTime{QDate(2026, 3, 6).addDays(i % 60)}},
                           {"Name", QString("Hang drywall, floor %1").arg(j * 7 % tasksOfLot)},
                           {"MasterPrice", 100.0 + j * 0.25}});
            if (!isOption) {
                parent = task;
                tasks.change("ParentKey", task);
                log.add({{"EmployeeKey", employee + i % 500},
                         {"JobLotTaskKey", task},
                         {"Occured", completed},
                         {"Problem", "Paid twice"}});
            }
            for (int k = 0; k < paymentsOfTask; ++k)
                payments.add({{"JobLotTaskKey", task},
                              {"EmployeeKey", employee + (i + j + k) % 500},
                              {"Price", 40.0 + j * 0.25},
                              {"Completed", completed}});
        }
    }
    transaction.commit();
    return job;
}

} // namespace

qint64 budgetJob() {
    static const qint64 job = [] {
        const std::optional<Value> found = foundBudgetJob();
        return found ? found->toLong() : makeBudgetJob();
    }();
    return job;
}

} // namespace tarnwell::bench
