#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "runtime/MsgBox.h"
#include "timecard/RowSnapshot.h"

#include <QString>

namespace tarnwell {

/// A payment as it is read for its correction.
struct ShownPayment {
    RowSnapshot row;
    QString priceText; ///< "40.00", ".00" for 0; empty for Null.
    Value note;        ///< Null where a row was written without one.
    qint64 employeeKey = 0;
};

/// What a payment is to be from now on. Task and date stay.
struct CorrectedPayment {
    QString priceText; ///< Its numeric prefix counts; a text without digits is 0.
    QString note;
    qint64 employeeKey = 0;
};

/// Raises NoCurrentRecord when the payment no longer exists.
[[nodiscard]] ShownPayment readPayment(Connection& connection, qint64 paymentKey);

/// Writes price, note and employee. None of the questions of a new payment is asked, and nothing is logged.
/// Raises RowChanged when the payment is no longer what was shown, NoCurrentRecord when it no longer exists
/// or was never shown; nothing is written then.
void acceptCorrection(Connection& connection, qint64 paymentKey, const RowSnapshot& shown,
                      const CorrectedPayment& corrected);

/// Asks, and on Yes deletes the payment, whatever it holds by now and even if it no longer exists. The log
/// row of a double payment remains. True when the answer was Yes.
[[nodiscard]] bool removePayment(Connection& connection, qint64 paymentKey, const Ask& ask);

} // namespace tarnwell
