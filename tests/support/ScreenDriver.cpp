#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <stdexcept>

namespace tarnwell::test {

namespace {

QWidget& keyTarget(QWidget& window) {
    QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? *focused : window;
}

/// A composite takes clicks where it shows its rows.
QWidget& mouseTarget(QWidget& control) {
    auto* viewport = control.findChild<QWidget*>(QStringLiteral("qt_scrollarea_viewport"));
    return viewport != nullptr ? *viewport : control;
}

} // namespace

ScreenDriver::ScreenDriver(QWidget& window) : m_window(window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

void ScreenDriver::reportMissing(const QString& name) {
    throw std::runtime_error("no control named " + name.toStdString());
}

void ScreenDriver::type(const QString& text) const {
    for (const QChar character : text)
        QTest::keyClick(&keyTarget(m_window), character.toLatin1());
}

void ScreenDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers, int times) const {
    for (int i = 0; i < times; ++i)
        QTest::keyClick(&keyTarget(m_window), key, modifiers);
}

void ScreenDriver::click(const QString& name, QPoint at) const {
    QTest::mouseClick(&mouseTarget(find(name)), Qt::LeftButton, Qt::NoModifier, at);
}

void ScreenDriver::doubleClick(const QString& name, QPoint at) const {
    QTest::mouseDClick(&mouseTarget(find(name)), Qt::LeftButton, Qt::NoModifier, at);
}

void ScreenDriver::clickToolbar(const QString& caption) const {
    for (auto* button : m_window.findChildren<QToolButton*>())
        if (button->text() == caption) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    reportMissing(caption);
}

void ScreenDriver::focus(const QString& name) const { find(name).setFocus(Qt::OtherFocusReason); }

QString ScreenDriver::focusedName() const {
    for (QWidget* widget = QApplication::focusWidget(); widget != nullptr; widget = widget->parentWidget())
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            return widget->objectName();
    return {};
}

bool waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 2000); }

void whenModal(std::function<void(QWidget&)> routine) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, routine = std::move(routine)] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        timer->deleteLater();
        timer->stop();
        routine(*modal);
    });
    timer->start(1);
}

} // namespace tarnwell::test
