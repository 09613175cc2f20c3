#include "frame/Accessibility.h"

#include "controls/AccessibleControls.h"
#include "controls/ShortcutTips.h"
#include "controls/grid/GridAccessible.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QLabel>

namespace tarnwell {

void installAccessibility() {
    installAccessibleControls();
    installAccessibleGrids();
    new ShortcutTips(QCoreApplication::instance());
}

/// A label reports by itself that it says something else, which is what is read out on some platforms; others
/// wait for an alert.
void announce(QLabel& text) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&text, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace tarnwell
