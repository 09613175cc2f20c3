#pragma once

#include "reports/output/PageOutput.h"
#include "reports/preview/PreviewWindow.h"

#include <QString>

class QWidget;

namespace tarnwell {

/// Shows finished reports, each as the user left the one before.
class ReportPreview {
public:
    /// Returns when the user is done with it. `title` names the window, the print and the PDF; `owner` may be
    /// null. A message says what failed.
    void show(const ReportPages& report, const QString& title, QWidget* owner);

private:
    [[nodiscard]] QString save(const ReportPages& report, const QString& title, const QPageSize& paper,
                               QWidget* owner);

    PreviewLook m_look;
};

/// Prints a finished report on the current printer; a message says what failed. Without pages nothing is
/// printed.
void printReport(const ReportPages& report, const QString& title, const FollowPages& follow);

} // namespace tarnwell
