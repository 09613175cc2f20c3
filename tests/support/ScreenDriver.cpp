#include "support/ScreenDriver.h"

#include "frame/Screen.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace tarnwell::test {

ScreenDriver::ScreenDriver(QWidget& window) : m_window(window) {
    if (auto* screen = qobject_cast<Screen*>(&window))
        screen->Show(Screen::Modality::Modeless, nullptr);
    else
        window.show();
    window.activateWindow();
    // A window whose owner is active would count as active itself.
    EXPECT_TRUE(waitFor([&window] { return QApplication::activeWindow() == &window; }));
}

void ScreenDriver::type(const QString& text) const {
    for (const QChar character : text)
        QTest::keyClick(&input::keyTarget(m_window), character.toLatin1());
}

void ScreenDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers, int times) const {
    for (int i = 0; i < times; ++i)
        QTest::keyClick(&input::keyTarget(m_window), key, modifiers);
}

void ScreenDriver::click(const QString& name, QPoint at) const {
    input::click(find(name), at);
}

void ScreenDriver::doubleClick(const QString& name, QPoint at) const {
    input::doubleClick(find(name), at);
}

void ScreenDriver::clickToolbar(const QString& caption) const {
    input::click(input::toolbarButton(m_window, caption));
}

QString ScreenDriver::enabledButtons() const {
    QStringList captions;
    for (const auto* button : find("Toolbar1").findChildren<QToolButton*>())
        if (button->isEnabled() && !button->text().isEmpty())
            captions.append(button->text());
    return captions.join(u' ');
}

void ScreenDriver::focus(const QString& name) const {
    find(name).setFocus(Qt::OtherFocusReason);
}

void ScreenDriver::retype(const QString& name, const QString& text) const {
    focus(name);
    press(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        press(Qt::Key_Delete);
    type(text);
}

QString ScreenDriver::focusedName() const {
    for (QWidget* widget = QApplication::focusWidget(); widget != nullptr; widget = widget->parentWidget())
        if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
            return widget->objectName();
    return {};
}

void ScreenDriver::choose(const QString& name, const QString& text) const {
    auto& combo = find<QComboBox>(name);
    input::openList(combo);
    EXPECT_TRUE(waitFor([&combo] { return combo.view()->isVisible(); }));
    input::clickEntry(combo, text);
}

void ScreenDriver::clickLine(const QString& name, int row) const {
    input::clickLine(find(name), row);
}

bool waitFor(const std::function<bool()>& condition) {
    // Only a broken expectation waits so long; a loaded machine may need some of it.
    constexpr int milliseconds = 30'000;
    return QTest::qWaitFor(condition, milliseconds);
}

} // namespace tarnwell::test
