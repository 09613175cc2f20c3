#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <QString>

#include <functional>

namespace tarnwell {

/// The money state of the selected task, kept from one reading of its history to the next.
struct PaymentFigures {
    double TotalPaid = 0;      ///< All payments of the task, whoever got them.
    double TaskDifference = 0; ///< The task's price less that; negative when overpaid. Stays as it was
                               ///< without a task and for a price of Null.
};

/// A line of a history list, and the key of the row behind it.
using AddHistoryLine = std::function<void(const QString& text, qint64 key)>;

/// Reads the payments of a task, newest first, two lines each, and computes the figures. Returns what is left
/// to pay, never below 0; 0 without a task (Empty, Null or 0) and for a price of Null. Raises what the
/// connection raises, and Overflow for a total beyond a double; lines and total then stand as far as they
/// were read.
[[nodiscard]] double readTaskHistory(Connection& connection, const Value& jobLotTaskKey,
                                     const Value& masterPrice, PaymentFigures& figures,
                                     const AddHistoryLine& addLine);

/// The price less what was paid, 0 when overpaid. Raises InvalidUseOfNull for a price of Null.
[[nodiscard]] double remainingPrice(const Value& masterPrice, double totalPaid);

/// "60.00", ".00" for a figure's 0.
[[nodiscard]] QString priceText(double price);
[[nodiscard]] QString figureText(double amount);

} // namespace tarnwell
