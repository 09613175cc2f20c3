#include "timecard/TaskHistory.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"

#include <algorithm>
#include <cmath>

namespace tarnwell {

namespace {

/// The separator behind the date is part of the format.
QString dateColumn(const Value& date) {
    return Format(date, "mm/dd/yy | ");
}

QString trimmedText(const Value& value) {
    return FieldText(value, 0, true);
}

} // namespace

double readTaskHistory(Connection& connection, const Value& jobLotTaskKey, const Value& masterPrice,
                       PaymentFigures& figures, const AddHistoryLine& addLine) {
    figures.TotalPaid = 0;
    if (jobLotTaskKey.isNoKey())
        return 0;
    Recordset payments;
    payments.Open("SELECT JobTaskEmployee.*, Employee.LastName, Employee.FirstName, Employee.SSN FROM "
                  "JobTaskEmployee INNER JOIN Employee ON JobTaskEmployee.EmployeeKey = Employee.EmployeeKey "
                  "WHERE JobTaskEmployee.JobLotTaskKey=" +
                      FieldText(jobLotTaskKey) + " ORDER BY Completed DESC",
                  connection);
    for (; !payments.atEnd(); payments.MoveNext()) {
        const qint64 key = payments["JobTaskEmployee"].toLong();
        const Value price = payments["Price"];
        addLine(dateColumn(payments["Completed"]) + FieldText(payments["SSN"]) + " | " +
                    Format(price, "###0.00"),
                key);
        addLine(trimmedText(payments["LastName"]) + "," + trimmedText(payments["FirstName"]), key);
        const double total = figures.TotalPaid + price.toDouble();
        if (!std::isfinite(total))
            raise(Failure::Overflow);
        figures.TotalPaid = total;
    }
    if (masterPrice.isNull())
        return 0;
    figures.TaskDifference = masterPrice.toDouble() - figures.TotalPaid;
    return std::max(figures.TaskDifference, 0.0);
}

double remainingPrice(const Value& masterPrice, double totalPaid) {
    return std::max(masterPrice.toDouble() - totalPaid, 0.0);
}

QString priceText(double price) {
    return Format(price, "###0.00");
}

QString figureText(double amount) {
    return Format(amount, "#.#0");
}

} // namespace tarnwell
