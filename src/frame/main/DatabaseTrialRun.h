#pragma once

#include "frame/Screen.h"
#include "runtime/DatabaseTrial.h"

#include <QPushButton>

#include <optional>
#include <vector>

namespace tarnwell {

/// Tries a database from a screen. A server may keep one waiting: meanwhile the window stays alive, what
/// would change the fields is disabled, and one button ends the trial.
class DatabaseTrialRun {
public:
    /// The screen owns the widgets. `disabled`: all that may not be touched meanwhile.
    DatabaseTrialRun(Screen& screen, std::vector<QWidget*> disabled, QPushButton* ending)
        : m_screen(screen), m_disabled(std::move(disabled)), m_ending(ending) {}

    /// Nothing once the trial was ended. The focus goes to `focusAfter`.
    [[nodiscard]] std::optional<TrialResult> run(const QString& connectionString, QWidget* focusAfter);
    /// Ends a running trial; false when there is none.
    bool end() { return std::exchange(m_running, false); }

private:
    Screen& m_screen;
    std::vector<QWidget*> m_disabled;
    QPushButton* m_ending;
    bool m_running = false;
};

} // namespace tarnwell
