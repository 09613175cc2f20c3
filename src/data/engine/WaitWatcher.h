#pragma once

#include <chrono>

namespace tarnwell {

/// Who is asked while a write waits for another user of the database.
class WaitWatcher {
public:
    virtual ~WaitWatcher() = default;
    /// It has waited so long; asked some forty times a second. May handle events: the connection refuses to
    /// be used meanwhile. False gives the wait up.
    [[nodiscard]] virtual bool goesOn(std::chrono::milliseconds waited) = 0;
    /// The wait that was asked about is over.
    virtual void ended() noexcept = 0;
};

namespace data {

/// One wait, from its beginning to its end.
class Wait {
public:
    /// Short ones pass unnoticed.
    static constexpr std::chrono::milliseconds untilAsked{250}, betweenQuestions{25};

    /// `watcher`: null for nobody; must outlive the wait.
    explicit Wait(WaitWatcher* watcher) : m_watcher(watcher) {}
    ~Wait() {
        if (m_asked)
            m_watcher->ended();
    }
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    [[nodiscard]] std::chrono::milliseconds waited() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_begin);
    }
    /// Asks the watcher once the wait is long enough. True without one.
    [[nodiscard]] bool goesOn() {
        if (m_watcher == nullptr || waited() < untilAsked)
            return true;
        m_asked = true;
        return m_watcher->goesOn(waited());
    }

private:
    using Clock = std::chrono::steady_clock;

    WaitWatcher* m_watcher;
    Clock::time_point m_begin = Clock::now();
    bool m_asked = false;
};

} // namespace data

} // namespace tarnwell
