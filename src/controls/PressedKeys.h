#pragma once

#include <QObject>

#include <set>

class QKeyEvent;
class QWidget;

namespace tarnwell {

/// The keys that went down in a control. The release of any other is no input there: it brought the focus, or
/// chose from an open list. When the control loses the focus all are forgotten, since they come up elsewhere.
class PressedKeys : public QObject {
public:
    /// `control` must outlive it.
    explicit PressedKeys(QWidget& control);

    void press(const QKeyEvent& event);
    /// From here on the key counts as pressed elsewhere.
    void forget(const QKeyEvent& event);
    /// True when the key went down here; false for the repeats of one that is held.
    [[nodiscard]] bool release(const QKeyEvent& event);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::set<quint32> m_scanCodes;
};

} // namespace tarnwell
