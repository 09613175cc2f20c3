#include "bench/ReportSample.h"

#include "bench/LargeSample.h"
#include "data/recordset/Recordset.h"
#include "data/schema/Schema.h"
#include "runtime/DataEnvironment.h"

#include <initializer_list>
#include <utility>

namespace tarnwell::bench {

namespace {

constexpr int lotCount = 1'000;
constexpr int tasksOfLot = 40;
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

private:
    QString m_key;
    Recordset m_rows;
};

qint64 makeBudgetJob() {
    Transaction transaction(DataEnvironment::cnnConnection());
    Appender jobs("Job");
    Appender lots("JobLot");
    Appender tasks("JobLotTask");
    Appender payments("JobTaskEmployee");
    const qint64 builder = middleOf("SELECT ContractorKey FROM Contractor").toLongLong();
    const qint64 employee = middleOf("SELECT EmployeeKey FROM Employee").toLongLong();
    const Value completed = DateTime{QDate(2026, 3, 6)};
    const qint64 job = jobs.add({{"JobNumber", "99-LOTS"}, {"Name", "All lots"}, {"ContractorKey", builder}});
    for (int i = 0; i < lotCount; ++i) {
        const qint64 lot = lots.add({{"JobKey", job},
                                     {"LotBlock", QString("%1/A").arg(i)},
                                     {"PlanName", "Sequoia 2400"},
                                     {"Address", QString("%1 Copper Ridge Dr").arg(100 + i)}});
        for (int j = 0; j < tasksOfLot; ++j) {
            const qint64 task =
                tasks.add({{"JobLotKey", lot},
                           {"Name", QString("Hang drywall, floor %1").arg(j * 7 % tasksOfLot)},
                           {"MasterPrice", 100.0 + j * 0.25}});
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
    static const qint64 job = makeBudgetJob();
    return job;
}

} // namespace tarnwell::bench
