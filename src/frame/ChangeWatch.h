#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace tarnwell {

/// Lets the screens show what other workstations wrote, within two seconds, while the user rests: every
/// second it asks the data for a sign of change, and where there is one calls `Screen::showChanges` of each
/// screen that the user can reach. An error, such as a server that is away, is left to the user's next
/// action; the longer it took to show, the longer the watch waits. Lives as long as the program's event loop.
class ChangeWatch : public QObject {
    Q_OBJECT

public:
    explicit ChangeWatch(QObject* parent = nullptr);

    /// What the timer does, whether the user rests or not.
    void look();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setPause(std::chrono::nanoseconds pause);

    QTimer m_timer;
    QElapsedTimer m_sinceInput;
    std::optional<quint32> m_shown; ///< The version of the data that all screens show.
};

} // namespace tarnwell
