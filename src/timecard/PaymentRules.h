#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "runtime/MsgBox.h"

#include <QString>

#include <functional>
#include <optional>

namespace tarnwell {

/// Everything that a payment is decided from, as it stands at the press. Values of a row are Empty without
/// one.
struct PaymentSelection {
    // The task row.
    Value jobLotTaskKey;
    Value codeKey;
    Value excludeDependency;
    Value taskEmployeeKey; ///< The employee assigned to the task; 0 or Null for none.
    // The lot row.
    Value jobLotKey;
    Value excludeDependencyCheck;

    bool useTaskEmployee = false;
    std::optional<qint64>
        employeeKey; ///< The chosen item's key, 0 for the blank item; none without a choice.
    QString priceText;
    Value completed; ///< A date; anything else fails when it is stored.
    QString note;
    double taskDifference = 0; ///< As computed when the task's history was last read.
};

/// How a press ended. The four gaps send the focus to what is missing.
enum class PaymentResult { Paid, Refused, NoPrice, NoTask, NoEmployee };

/// What a payment needs of whoever started it.
struct PaymentCallbacks {
    Ask ask;
    /// An accepted double payment was logged; the payment itself is not yet written. What it raises stops the
    /// payment and leaves the log row standing.
    std::function<void()> logged = [] {};
    /// A statement met a row that somebody deleted: true runs the statement again, false
    /// passes its error on.
    std::function<bool()> rowDeleted = [] { return false; };
};

/// Decides on one payment and writes it. A payment is never forbidden: an unpaid dependency, a price above
/// the difference and a double payment each ask, and a Yes goes on. Raises what the connection raises; then
/// no payment is written, but the log row of an accepted double payment stays.
[[nodiscard]] PaymentResult applyPayment(Connection& connection, const PaymentSelection& selection,
                                         const PaymentCallbacks& callbacks);

/// The key of the first category that the task's category depends on and that has an unpaid task in the lot;
/// "0" when nothing blocks, when lot or task take no part, and after an error, which goes to `ErrorHandler`.
[[nodiscard]] QString CheckDependency(Connection& connection, const PaymentSelection& selection);

/// Runs a statement, and again for as long as it fails on a deleted row and `again` says so.
template <class Statement>
auto resumeOnDeletedRow(const std::function<bool()>& again, Statement&& statement) {
    for (;;) {
        try {
            return statement();
        } catch (const RunTimeError& error) {
            if (!error.is(Failure::RowDeleted) || !again())
                throw;
        }
    }
}

} // namespace tarnwell
