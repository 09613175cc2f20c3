#include "frame/main/DatabaseTrialRun.h"

#include "runtime/MousePointer.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace tarnwell {

std::optional<TrialResult> DatabaseTrialRun::run(const QString& connectionString, QWidget* focusAfter) {
    const QScopedValueRollback running(m_running, true);
    const HourGlass hourGlass;
    const auto setEnabled = [this](bool enabled) {
        for (QWidget* widget : m_disabled)
            widget->setEnabled(enabled);
    };
    m_screen.SetFocus(m_ending);
    setEnabled(false);
    m_screen.setStatusText(QStringLiteral("Opening the database. %1 ends the test.").arg(m_ending->text()));
    std::optional<TrialResult> result = tryDatabase(connectionString, [this] {
        QCoreApplication::processEvents();
        return m_running;
    });
    setEnabled(true);
    m_screen.SetFocus(focusAfter);
    if (!result)
        m_screen.setStatusText(QStringLiteral("Test cancelled"));
    return result;
}

} // namespace tarnwell
