#include "timecard/PaymentRules.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"

#include <type_traits>
#include <utility>

namespace tarnwell {

namespace {

constexpr auto messageTitle = "Payment Error!";
constexpr auto doublePaymentProblem = "Employee paid twice for same job/task";

/// A yes/no of a row: without a row, or with Null in it, it is not True.
bool isTrue(const Value& flag) {
    return !flag.isNull() && flag.toBool();
}

/// The screen's date as a row takes it. An empty box is not a date: a payment stored without one would be
/// missing from every list.
Value dateToStore(const Value& completed) {
    if (completed.isEmpty() || completed.isNull())
        raise(Failure::WrongType);
    return completed;
}

/// True when the statement returns a row.
bool hasRow(Connection& connection, const QString& sql) {
    Recordset rows;
    rows.Open(sql, connection);
    return !rows.atEnd();
}

bool hasUnpaidTask(Connection& connection, const QString& lotKey, const QString& categoryKey) {
    Recordset tasks;
    tasks.Open("SELECT JobLotTask.JobLotTaskKey FROM JobLotTask INNER JOIN Code ON JobLotTask.CodeKey = "
               "Code.CodeKey WHERE ExcludeDependency=0 AND MasterPrice<>0 AND JobLotKey=" +
                   lotKey + " AND JobLotTask.CodeKey = " + categoryKey,
               connection);
    for (; !tasks.atEnd(); tasks.MoveNext())
        if (!hasRow(connection, "SELECT JobLotTaskKey FROM JobTaskEmployee WHERE JobLotTaskKey=" +
                                    FieldText(tasks.field(0))))
            return true;
    return false;
}

/// One press of the button: the steps in their order, on one selection.
class Payment {
public:
    Payment(Connection& connection, const PaymentSelection& selection, const PaymentCallbacks& callbacks)
        : m_connection(connection), m_selection(selection), m_callbacks(callbacks) {}

    PaymentResult apply() {
        if (m_selection.priceText.isEmpty())
            return PaymentResult::NoPrice;
        if (m_selection.jobLotTaskKey.isNoKey())
            return PaymentResult::NoTask;
        m_payeeKey = payee();
        if (m_payeeKey == 0)
            return PaymentResult::NoEmployee;
        if (!acceptsDependency() || !acceptsPrice() || !acceptsDoublePayment())
            return PaymentResult::Refused;
        resume([this] { writePayment(); });
        return PaymentResult::Paid;
    }

private:
    template <class Statement>
    std::invoke_result_t<Statement> resume(Statement&& statement) const {
        return resumeOnDeletedRow(m_callbacks.rowDeleted, std::forward<Statement>(statement));
    }

    [[nodiscard]] bool confirmed(const QString& text, int defaultButton) const {
        return m_callbacks.ask({.text = text,
                                .title = QString::fromLatin1(messageTitle),
                                .buttons = MessageButtons::YesNo,
                                .icon = MessageIcon::Critical,
                                .defaultButton = defaultButton}) == Answer::Yes;
    }

    /// 0 for none: the blank item's key.
    [[nodiscard]] qint64 payee() const {
        if (m_selection.useTaskEmployee && !m_selection.taskEmployeeKey.isNoKey())
            return m_selection.taskEmployeeKey.toLong();
        return m_selection.employeeKey.value_or(0);
    }

    [[nodiscard]] bool acceptsDependency() const {
        const qint64 category =
            resume([this] { return Value(CheckDependency(m_connection, m_selection)).toLong(); });
        if (category == 0)
            return true;
        const Value name = resume([&] {
            Recordset code;
            code.Open("SELECT Description FROM Code WHERE CodeKey=" + QString::number(category),
                      m_connection);
            return code.field(0);
        });
        // The one warning whose safe answer is the default.
        return confirmed(
            "This task has a dependent task in category " + FieldText(name) + "\nContinue paying task?", 2);
    }

    [[nodiscard]] bool acceptsPrice() const {
        // Doubles as they are: a prefilled price that was rounded up stands above its own difference.
        return !(Val(m_selection.priceText) > m_selection.taskDifference) ||
               confirmed("Price entered is greater than task difference.\nContinue paying task?", 1);
    }

    [[nodiscard]] bool acceptsDoublePayment() const {
        const std::optional<Value> paidOn = resume([this] {
            return firstValue(m_connection, "SELECT Completed FROM JobTaskEmployee WHERE JobLotTaskKey=" +
                                                FieldText(m_selection.jobLotTaskKey) +
                                                " AND EmployeeKey=" + QString::number(m_payeeKey));
        });
        if (!paidOn)
            return true;
        if (!confirmed("This employee was paid for this task on: " + Format(*paidOn, "mm/dd/yy") +
                           "\nPay this employee again?",
                       1))
            return false;
        resume([this] { writeLog(); });
        resume([this] { m_callbacks.logged(); });
        return true;
    }

    void writeLog() const {
        Recordset log;
        log.Open("EmployeeLog", m_connection, CursorType::Dynamic, LockType::Optimistic);
        log.AddNew();
        log.set("JobLotTaskKey", m_selection.jobLotTaskKey);
        log.set("EmployeeKey", m_payeeKey);
        log.set("Occured", dateToStore(m_selection.completed));
        log.set("Problem", Value(doublePaymentProblem));
        log.Update();
    }

    void writePayment() const {
        Recordset payments;
        payments.Open("JobTaskEmployee", m_connection, CursorType::Dynamic, LockType::Optimistic);
        payments.AddNew();
        payments.set("JobLotTaskKey", m_selection.jobLotTaskKey);
        payments.set("EmployeeKey", m_payeeKey);
        payments.set("Price", Val(m_selection.priceText));
        payments.set("Completed", dateToStore(m_selection.completed));
        payments.set("Note", m_selection.note);
        payments.Update();
    }

    Connection& m_connection;
    const PaymentSelection& m_selection;
    const PaymentCallbacks& m_callbacks;
    qint64 m_payeeKey = 0;
};

} // namespace

PaymentResult applyPayment(Connection& connection, const PaymentSelection& selection,
                           const PaymentCallbacks& callbacks) {
    return Payment(connection, selection, callbacks).apply();
}

QString CheckDependency(Connection& connection, const PaymentSelection& selection) {
    QString nothing = "0";
    // Outside the trap: what fails here is the caller's.
    if (isTrue(selection.excludeDependencyCheck) || isTrue(selection.excludeDependency))
        return nothing;
    try {
        Recordset dependencies;
        dependencies.Open("SELECT DISTINCT DependentKey FROM CategoryDependency WHERE CategoryKey=" +
                              FieldText(selection.codeKey),
                          connection);
        for (; !dependencies.atEnd(); dependencies.MoveNext()) {
            QString category = FieldText(dependencies.field(0));
            if (hasUnpaidTask(connection, FieldText(selection.jobLotKey), category))
                return category;
        }
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
    return nothing;
}

} // namespace tarnwell
