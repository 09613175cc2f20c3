#pragma once

#include "data/engine/WaitWatcher.h"

#include <QPointer>

class QMessageBox;

namespace tarnwell {

/// Keeps the windows drawn while a write waits for another user. After a second a box says so, with Cancel to
/// give the wait up; nothing else can be clicked or typed meanwhile.
class WaitNotice : public WaitWatcher {
public:
    ~WaitNotice() override;

    [[nodiscard]] bool goesOn(std::chrono::milliseconds waited) override;
    void ended() noexcept override;

private:
    void show();

    QPointer<QMessageBox> m_box;
    bool m_cancelled = false;
};

} // namespace tarnwell
