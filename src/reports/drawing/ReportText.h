#pragma once

#include "data/Value.h"

#include <QString>

namespace tarnwell {

// How reports write dates and amounts.

/// "Lot Budget: 06/05/26 14:30": a page's title and the moment of the run.
[[nodiscard]] QString titleText(const QString& title);
/// "06/05/26"; empty for Null.
[[nodiscard]] QString dateText(const Value& date);
/// "672.50"; empty for Null.
[[nodiscard]] QString amountText(const Value& amount);

} // namespace tarnwell
