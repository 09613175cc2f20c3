#pragma once

#include "support/TemporaryDatabase.h"

#include <QString>

namespace tarnwell::test {

// Rows of a report's test data; what a test leaves out is as the screens would leave it.

struct EmployeeRow {
    QString SSN = QStringLiteral("111-11-1111");
    Value lastName = Value::null();
    Value firstName = Value::null();
    Value type = Value::null();
    Value foreman = Value::null();
};

struct JobRow {
    QString number = {};
    Value name = Value::null();
    Value foreman = Value::null();
    Value completed = Value::null();
};

struct LotRow {
    qint64 job = 0;
    QString lotBlock = {};
    Value plan = Value::null();
    Value address = Value::null();
};

struct TaskRow {
    qint64 lot = 0;
    qint64 category = 0;
    Value name = Value::null();
    Value price = 0.0;
    Value start = Value::null();
    Value stop = Value::null();
    Value employee = 0;
};

struct PaymentRow {
    qint64 task = 0;
    qint64 employee = 0;
    double price = 0;
    Value completed = Value::null();
    Value note = Value::null();
};

struct LogRow {
    qint64 task = 0;
    qint64 employee = 0;
    Value occured = Value::null();
    Value problem = Value::null();
};

/// A database to report from: one builder, and the rows that a test adds. Each routine returns the new key.
class ReportDatabase {
public:
    [[nodiscard]] Connection& connection() { return m_db.connection(); }
    [[nodiscard]] TemporaryDatabase& database() { return m_db; }

    qint64 addCategory(const QString& description);
    qint64 add(const EmployeeRow& row);
    qint64 add(const JobRow& row);
    qint64 add(const LotRow& row);
    qint64 add(const TaskRow& row);
    qint64 add(const PaymentRow& row);
    qint64 add(const LogRow& row);
    /// Makes a task a parent, with or without options.
    void makeParent(qint64 task);
    /// An option of a task; makes that task its parent.
    qint64 addOption(qint64 parent, const QString& name, double price);

private:
    TemporaryDatabase m_db;
    qint64 m_builder = m_db.add("Contractor", {{"Name", "Abel Homes"}});
};

/// "03/05/24" or "03/05/24 07:30" as a date value.
[[nodiscard]] Value on(const char* date);

} // namespace tarnwell::test
