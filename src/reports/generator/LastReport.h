#pragma once

#include <QString>

#include <optional>

namespace tarnwell {

/// A report as it was started, with the dates that stood on the screen.
struct LastReport {
    QString name; ///< As the list of reports shows it.
    QString startDate;
    QString stopDate;
};

void rememberReport(const LastReport& report);

/// The report that was remembered last; nothing when there is none, or what was kept is damaged.
[[nodiscard]] std::optional<LastReport> lastReport();

} // namespace tarnwell
