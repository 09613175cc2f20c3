#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWindow>

namespace tarnwell::tour {

/// What a desktop does where there is none: when the window in front closes, the one that was in front before
/// it comes back.
class WindowKeeper : public QObject {
    Q_OBJECT

public:
    WindowKeeper(bool isDesktop, QObject* parent);

    /// The windows on the desktop from the one at the back to the one in front.
    [[nodiscard]] QList<QWindow*> fromTheBack() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QWindow* front);
    void bringBack();

    bool m_isDesktop;
    QList<QPointer<QWindow>> m_before; ///< The last one was in front last.
};

} // namespace tarnwell::tour
