#include "timecard/PaymentCorrection.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"

namespace tarnwell {

namespace {

constexpr auto priceFormat = "#####.#0";
constexpr auto removeQuestion = "You have selected to remove the payment from the current\n"
                                "employee. Are YOU sure you want to do this?";

QString whereKey(qint64 paymentKey) {
    return " FROM JobTaskEmployee WHERE JobTaskEmployee=" + QString::number(paymentKey);
}

} // namespace

ShownPayment readPayment(Connection& connection, qint64 paymentKey) {
    Recordset payment;
    payment.Open("SELECT *" + whereKey(paymentKey), connection);
    return {.row = RowSnapshot(payment),
            .priceText = Format(payment["Price"], priceFormat),
            .note = payment["Note"],
            .employeeKey = payment["EmployeeKey"].toLong()};
}

void acceptCorrection(Connection& connection, qint64 paymentKey, const RowSnapshot& shown,
                      const CorrectedPayment& corrected) {
    Recordset payment;
    payment.Open("SELECT *" + whereKey(paymentKey), connection, CursorType::Static, LockType::Optimistic);
    shown.requireUnchanged(payment);
    payment.set("Price", Val(corrected.priceText));
    payment.set("Note", corrected.note);
    payment.set("EmployeeKey", corrected.employeeKey);
    payment.Update();
}

bool removePayment(Connection& connection, qint64 paymentKey, const Ask& ask) {
    const Answer answer = ask({.text = removeQuestion,
                               .title = "Delete Verification",
                               .buttons = MessageButtons::YesNoCancel,
                               .icon = MessageIcon::Exclamation});
    if (answer != Answer::Yes)
        return false;
    connection.Execute("DELETE" + whereKey(paymentKey));
    return true;
}

} // namespace tarnwell
