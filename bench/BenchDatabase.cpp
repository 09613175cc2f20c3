#include "bench/BenchDatabase.h"

#include "data/file/DatabaseFile.h"
#include "data/recordset/Recordset.h"

namespace tarnwell::bench {

BenchDatabase& BenchDatabase::shared() {
    static BenchDatabase database;
    return database;
}

BenchDatabase::BenchDatabase() {
    createDatabase(path());
    m_connection.setConnectionString(fileConnectionString(path()));
    m_connection.Open();
    const qint64 builder = add(QStringLiteral("Contractor"), QString(), 0);
    const qint64 job = add(QStringLiteral("Job"), QStringLiteral("ContractorKey"), builder);
    m_lotKey = add(QStringLiteral("JobLot"), QStringLiteral("JobKey"), job);
    addTasks();
}

qint64 BenchDatabase::add(const QString& table, const QString& parentColumn, qint64 parent) {
    Recordset rows;
    rows.Open(table, m_connection, CursorType::Dynamic, LockType::Optimistic);
    rows.AddNew();
    if (!parentColumn.isEmpty())
        rows.set(parentColumn, parent);
    rows.Update();
    return rows.field(0).toLong();
}

void BenchDatabase::addTasks() {
    Transaction transaction(m_connection);
    Recordset rows;
    rows.Open(QStringLiteral("JobLotTask"), m_connection, CursorType::Dynamic, LockType::Optimistic);
    for (int i = 0; i < taskCount; ++i) {
        rows.AddNew();
        rows.set(QStringLiteral("JobLotKey"), m_lotKey);
        rows.set(QStringLiteral("Name"), QStringLiteral("Hang drywall, floor %1").arg(i % 977));
        rows.set(QStringLiteral("MasterPrice"), i * 0.25);
        rows.set(QStringLiteral("CustomTask"), "N");
        rows.Update();
    }
    transaction.commit();
}

} // namespace tarnwell::bench
