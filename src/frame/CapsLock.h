#pragma once

#include <QObject>

namespace tarnwell {

/// Whether Caps Lock is on. The toolkit has no way to ask; the state is found out from the letters typed, and
/// is off until the first one.
class CapsLock : public QObject {
    Q_OBJECT

public:
    /// All windows share the one keyboard.
    [[nodiscard]] static CapsLock& instance();
    [[nodiscard]] bool isOn() const { return m_on; }

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit CapsLock(QObject* application);

    bool m_on = false;
};

} // namespace tarnwell
