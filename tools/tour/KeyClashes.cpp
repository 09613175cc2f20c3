#include "tour/KeyClashes.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMap>
#include <QMenuBar>
#include <QShortcut>

#include <algorithm>
#include <utility>

namespace tarnwell::tour {

namespace {

using Calls = QMap<QKeySequence, QStringList>;

/// A combo's "Category:" beside a button that has to be called by the same letter.
constexpr std::pair<const char*, const char*> sharedKeys[] = {
    {"frmAddDependency", "Alt+C"},
    {"frmReportParameters", "Alt+C"},
};

bool canBeCalled(const QWidget* control) {
    return control != nullptr && control->isVisible() && control->isEnabled();
}

void add(Calls& calls, const QKeySequence& key, const QObject& called) {
    if (!key.isEmpty() && !calls[key].contains(called.objectName()))
        calls[key] << called.objectName();
}

QKeySequence keyOf(const QWidget& control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return button->shortcut();
    if (const auto* group = qobject_cast<const QGroupBox*>(&control))
        return QKeySequence::mnemonic(group->title());
    const auto* label = qobject_cast<const QLabel*>(&control);
    return label != nullptr && canBeCalled(label->buddy()) ? QKeySequence::mnemonic(label->text())
                                                           : QKeySequence();
}

Calls callsOf(const QWidget& window) {
    Calls calls;
    for (const QWidget* control : window.findChildren<QWidget*>())
        if (control->window() == &window && canBeCalled(control))
            add(calls, keyOf(*control), *control);
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>())
        for (const QAction* menu : bar->actions())
            add(calls, QKeySequence::mnemonic(menu->text()), *menu);
    for (const QAction* command : window.findChildren<QAction*>())
        if (command->isEnabled() && command->isVisible())
            for (const QKeySequence& key : command->shortcuts())
                add(calls, key, *command);
    for (const QShortcut* shortcut : window.findChildren<QShortcut*>())
        if (shortcut->isEnabled())
            add(calls, shortcut->key(), *shortcut);
    return calls;
}

bool isShared(const QWidget& window, const QKeySequence& key) {
    return std::ranges::any_of(sharedKeys, [&](const auto& shared) {
        return window.objectName() == QLatin1String(shared.first) &&
               key == QKeySequence(QLatin1String(shared.second));
    });
}

} // namespace

QStringList keyClashes(const QWidget& window) {
    QStringList clashes;
    const Calls calls = callsOf(window);
    for (auto call = calls.cbegin(); call != calls.cend(); ++call)
        if (call.value().size() > 1 && !isShared(window, call.key()))
            clashes << QStringLiteral("%1 calls %2")
                           .arg(call.key().toString(), call.value().join(QStringLiteral(" and ")));
    return clashes;
}

} // namespace tarnwell::tour
