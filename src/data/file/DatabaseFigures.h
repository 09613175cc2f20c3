#pragma once

#include "data/file/DatabaseFile.h"

#include <QDate>
#include <QString>

#include <optional>

namespace tarnwell {

/// By these a user tells one state of the data from another.
struct DatabaseFigures {
    qint64 payments = 0;
    std::optional<QDate> lastPayment; ///< The latest day of a payment; none where no payment has a date.
};

/// Reads them without changing anything in or beside the file, whoever uses it meanwhile. Raises what
/// `checkDatabase` raises.
[[nodiscard]] DatabaseFigures readFigures(const QString& path, const GoesOn& goesOn = {});

} // namespace tarnwell
