#pragma once

#include "reports/output/PageOutput.h"

#include <QString>

class QWidget;

namespace tarnwell {

/// Shows a finished report until the user is done with it. `title` names the window, the print and the PDF.
void showPreview(const StoredReport& report, const QString& title, QWidget* owner);

/// Prints a finished report on the current printer; what goes wrong is told by message. Without pages nothing
/// is printed.
void printReport(const StoredReport& report, const QString& title, const FollowPages& follow);

} // namespace tarnwell
