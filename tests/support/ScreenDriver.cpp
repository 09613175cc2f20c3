#include "support/ScreenDriver.h"

#include "frame/Screen.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <gtest/gtest.h>
#include <stdexcept>

namespace tarnwell::test {

namespace {

QWidget& keyTarget(QWidget& window) {
    QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? *focused : window;
}

/// A composite takes clicks where it shows its rows, a tick box on its box.
struct Target {
    QWidget& widget;
    QPoint point;
};

Target mouseTarget(QWidget& control, QPoint at) {
    auto* area = qobject_cast<QAbstractScrollArea*>(&control);
    QWidget& widget = area != nullptr ? *area->viewport() : control;
    const auto* button = qobject_cast<QAbstractButton*>(&control);
    const bool box = button != nullptr && (control.inherits("QCheckBox") || control.inherits("QRadioButton"));
    const QPoint middle = box ? QPoint(8, control.height() / 2) : widget.rect().center();
    return {widget, at.isNull() ? middle : at};
}

/// A press at its place in the window, as the desktop sends it: whatever is there takes it.
using Send = void (*)(QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int);

void clickAt(QWidget& control, QPoint at, Send send) {
    const Target target = mouseTarget(control, at);
    QWidget* window = control.window();
    send(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, target.widget.mapTo(window, target.point),
         -1);
}

} // namespace

ScreenDriver::ScreenDriver(QWidget& window) : m_window(window) {
    if (auto* screen = qobject_cast<Screen*>(&window))
        screen->Show(Screen::Modality::Modeless, nullptr);
    else
        window.show();
    window.activateWindow();
    // A window whose owner is active would count as active itself.
    EXPECT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
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
    clickAt(find(name), at, &QTest::mouseClick);
}

void ScreenDriver::doubleClick(const QString& name, QPoint at) const {
    clickAt(find(name), at, &QTest::mouseDClick);
}

void ScreenDriver::clickToolbar(const QString& caption) const {
    for (auto* button : m_window.findChildren<QToolButton*>())
        if (button->text() == caption) {
            clickAt(*button, {}, &QTest::mouseClick);
            return;
        }
    reportMissing(caption);
}

void ScreenDriver::focus(const QString& name) const {
    find(name).setFocus(Qt::OtherFocusReason);
}

QString ScreenDriver::focusedName() const {
    for (QWidget* widget = QApplication::focusWidget(); widget != nullptr; widget = widget->parentWidget())
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            return widget->objectName();
    return {};
}

void ScreenDriver::choose(const QString& name, const QString& text) const {
    auto& combo = find<QComboBox>(name);
    const int index = combo.findText(text);
    if (index < 0)
        reportMissing(text);
    click(name, QPoint(combo.width() - 8, combo.height() / 2));
    QAbstractItemView* list = combo.view();
    if (!QTest::qWaitFor([list] { return list->isVisible(); }))
        reportMissing(text);
    const QModelIndex line = combo.model()->index(index, combo.modelColumn());
    list->scrollTo(line);
    clickAt(*list, list->visualRect(line).center(), &QTest::mouseClick);
}

void ScreenDriver::clickLine(const QString& name, int row) const {
    auto& list = find<QAbstractItemView>(name);
    const QModelIndex line = list.model()->index(row, 0);
    list.scrollTo(line);
    clickAt(list, list.visualRect(line).center(), &QTest::mouseClick);
}

bool waitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 2000);
}

void whenModal(std::function<void(QWidget&)> routine) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, routine = std::move(routine)] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isActiveWindow())
            return;
        timer->deleteLater();
        timer->stop();
        routine(*modal);
    });
    timer->start(1);
}

} // namespace tarnwell::test
