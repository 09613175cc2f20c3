#include "controls/AccessibleControls.h"

#include "controls/AccessibleName.h"
#include "controls/DayArrows.h"
#include "controls/ShortcutTips.h"
#include "runtime/EventGuard.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

namespace tarnwell {

namespace {

/// A combo by its name, its text being what its line holds. The toolkit's own gives the text for the name.
class AccessibleCombo : public QAccessibleWidget {
public:
    explicit AccessibleCombo(QComboBox& combo)
        : QAccessibleWidget(&combo, QAccessible::ComboBox), m_combo(combo) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? m_combo.currentText() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        state.expanded = isOpen();
        state.editable = line() != nullptr && !line()->isReadOnly();
        return state;
    }

    // The list, then the line.
    [[nodiscard]] int childCount() const override { return line() != nullptr ? 2 : 1; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        if (index == 0)
            return QAccessible::queryAccessibleInterface(m_combo.view());
        return index == 1 ? QAccessible::queryAccessibleInterface(line()) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == m_combo.view())
            return 0;
        return child->object() != nullptr && child->object() == line() ? 1 : -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* shown = child(1);
        return shown != nullptr && shown->rect().contains(x, y) ? shown : nullptr;
    }

    /// The focus is the combo's, and so is the caret: its line answers for what is typed.
    [[nodiscard]] void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface || type == QAccessible::EditableTextInterface) {
            QAccessibleInterface* shown = child(1);
            return shown != nullptr ? shown->interface_cast(type) : nullptr;
        }
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QStringList actionNames() const override {
        return {showMenuAction(), pressAction(), setFocusAction()};
    }
    void doAction(const QString& action) override {
        if (action == setFocusAction())
            QAccessibleWidget::doAction(action);
        else if (m_combo.isEnabled() && isOpen())
            m_combo.hidePopup();
        else if (m_combo.isEnabled())
            m_combo.showPopup();
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& action) const override {
        if (action == setFocusAction())
            return QAccessibleWidget::keyBindingsForAction(action);
        return {QKeySequence(Qt::ALT | Qt::Key_Down).toString(QKeySequence::NativeText)};
    }

private:
    [[nodiscard]] QLineEdit* line() const { return m_combo.lineEdit(); }
    [[nodiscard]] bool isOpen() const { return m_combo.view()->isVisible(); }

    QComboBox& m_combo;
};

/// A button of a toolbar or the icon bar. The toolkit's own is pressed at once, and the assistive tool would
/// wait until the window that it opens is closed.
class AccessibleToolButton : public QAccessibleWidget {
public:
    explicit AccessibleToolButton(QToolButton& button)
        : QAccessibleWidget(&button, button.isCheckable() ? QAccessible::CheckBox : QAccessible::Button),
          m_button(button) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? spokenCaption(m_button.text()) : own;
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = m_button.isCheckable();
        state.checked = m_button.isChecked();
        state.pressed = m_button.isDown();
        return state;
    }
    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction())
            QTimer::singleShot(0, &m_button, guarded([button = &m_button] { button->click(); }));
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override {
        const QKeySequence keys = keysOf(m_button);
        return keys.isEmpty() ? QStringList() : QStringList{keys.toString(QKeySequence::NativeText)};
    }

private:
    QToolButton& m_button;
};

/// Has no value to tell: it always stands in the middle.
class AccessibleDayArrows : public QAccessibleWidget {
public:
    explicit AccessibleDayArrows(DayArrows& arrows)
        : QAccessibleWidget(&arrows, QAccessible::SpinBox), m_arrows(arrows) {}

    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] QStringList actionNames() const override { return {increaseAction(), decreaseAction()}; }
    void doAction(const QString& action) override {
        if (m_arrows.isEnabled())
            m_arrows.setValue(action == increaseAction() ? DayArrows::Upper : DayArrows::Lower);
    }

private:
    DayArrows& m_arrows;
};

QAccessibleInterface* accessibleControl(const QString& className, QObject* object) {
    if (className == QStringLiteral("QComboBox"))
        if (auto* combo = qobject_cast<QComboBox*>(object))
            return new AccessibleCombo(*combo);
    if (className == QStringLiteral("QToolButton"))
        if (auto* button = qobject_cast<QToolButton*>(object))
            return new AccessibleToolButton(*button);
    if (className == QStringLiteral("tarnwell::DayArrows"))
        if (auto* arrows = qobject_cast<DayArrows*>(object))
            return new AccessibleDayArrows(*arrows);
    return nullptr;
}

} // namespace

void installAccessibleControls() {
    static const bool installed = (QAccessible::installFactory(accessibleControl), true);
    static_cast<void>(installed);
}

} // namespace tarnwell
