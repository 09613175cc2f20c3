#include "controls/ShortcutTips.h"

#include <QAction>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QToolButton>
#include <QToolTip>
#include <QVariant>

namespace tarnwell {

namespace {

constexpr auto keysProperty = "tarnwellTipKeys";

QKeySequence keysOfLabel(const QWidget& control) {
    for (const auto* label : control.window()->findChildren<QLabel*>())
        if (label->buddy() == &control)
            return QKeySequence::mnemonic(label->text());
    return {};
}

} // namespace

QKeySequence keysOf(const QWidget& control) {
    if (const QVariant keys = control.property(keysProperty); keys.isValid())
        return keys.value<QKeySequence>();
    if (const auto* tool = qobject_cast<const QToolButton*>(&control);
        tool != nullptr && tool->defaultAction() != nullptr)
        return tool->defaultAction()->shortcut();
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && !button->shortcut().isEmpty() ? button->shortcut() : keysOfLabel(control);
}

void setTipKeys(QWidget& control, const QKeySequence& keys) {
    control.setProperty(keysProperty, QVariant::fromValue(keys));
}

QString shownToolTip(const QWidget& control) {
    const QString tip = control.toolTip();
    const QString keys = tip.isEmpty() ? QString() : keysOf(control).toString(QKeySequence::NativeText);
    // Some tool tips say their keys themselves.
    return keys.isEmpty() || tip.contains(keys) ? tip : QStringLiteral("%1 (%2)").arg(tip, keys);
}

ShortcutTips::ShortcutTips(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool ShortcutTips::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip || !watched->isWidgetType())
        return false;
    auto& control = static_cast<QWidget&>(*watched);
    const QString shown = shownToolTip(control);
    if (shown == control.toolTip())
        return false;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), shown, &control, {},
                       control.toolTipDuration());
    return true;
}

} // namespace tarnwell
