#pragma once

#include <QString>

class QWidget;

namespace tarnwell {

class StoredReport;

/// Shows a finished report until the user is done with it. `title` names the window, the print and the PDF.
/// `report` has one page at least.
void showPreview(const StoredReport& report, const QString& title, QWidget* owner);

} // namespace tarnwell
