#include "frame/ChangeWatch.h"

#include "data/RunTimeError.h"
#include "frame/Forms.h"
#include "frame/Screen.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>
#include <chrono>

namespace tarnwell {

namespace {

using namespace std::chrono_literals;

constexpr auto interval = 1s;
/// Who types goes on within this time, as a rule, and must not wait for a list.
constexpr std::chrono::milliseconds rest = 700ms;
/// A network that is down holds the program up until an attempt is given up. The next one waits so many times
/// as long.
constexpr int pausePerAttempt = 30;

/// All screens, or the one dialog that keeps the user from the others. None behind a message.
std::vector<Screen*> reachableScreens() {
    if (QWidget* dialog = QApplication::activeModalWidget(); dialog != nullptr) {
        auto* const screen = qobject_cast<Screen*>(dialog);
        return screen != nullptr ? std::vector{screen} : std::vector<Screen*>();
    }
    return loadedForms();
}

} // namespace

ChangeWatch::ChangeWatch(QObject* parent) : QObject(parent) {
    m_sinceInput.start();
    connect(&m_timer, &QTimer::timeout, this, guarded([this] {
        if (m_sinceInput.hasExpired(rest.count()) && QApplication::activePopupWidget() == nullptr &&
            QApplication::mouseButtons() == Qt::NoButton)
            look();
    }));
    m_timer.start(interval);
    qApp->installEventFilter(this);
}

void ChangeWatch::look() {
    if (!DataEnvironment::isOpen()) // Whoever closed it, as a restore does, must find it closed.
        return;
    const std::vector<Screen*> screens = reachableScreens();
    const auto begin = std::chrono::steady_clock::now();
    try {
        const quint32 version = connection().dataVersion();
        setPause(interval);
        if (version == m_shown)
            return;
        const auto shows = [](Screen* screen) { return !screen->isVisible() || screen->showChanges(); };
        // Every screen has its turn; who is being edited is asked again.
        if (std::ranges::count_if(screens, shows) == std::ssize(screens))
            m_shown = version;
    } catch (const RunTimeError&) {
        m_shown.reset();
        setPause(pausePerAttempt * (std::chrono::steady_clock::now() - begin));
    }
}

/// Setting an interval, even the same one, would begin the present one again.
void ChangeWatch::setPause(std::chrono::nanoseconds pause) {
    const auto wanted = std::max<std::chrono::milliseconds>(
        interval, std::chrono::duration_cast<std::chrono::milliseconds>(pause));
    if (m_timer.intervalAsDuration() != wanted)
        m_timer.setInterval(wanted);
}

bool ChangeWatch::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::InputMethod:
        m_sinceInput.start();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tarnwell
