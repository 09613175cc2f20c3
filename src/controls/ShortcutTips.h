#pragma once

#include <QKeySequence>
#include <QObject>

class QWidget;

namespace tarnwell {

/// The keys that a control's tool tip names where the toolkit knows none: those of a shortcut that presses
/// it.
void setTipKeys(QWidget& control, const QKeySequence& keys);

/// The keys that lead to a control: those of `setTipKeys`, its own shortcut, its action's, or the mnemonic of
/// its label.
[[nodiscard]] QKeySequence keysOf(const QWidget& control);

/// A control's tool tip as it is shown, with its keys: "Add Record (Ctrl+N)". Empty without a tool tip.
[[nodiscard]] QString shownToolTip(const QWidget& control);

/// Shows every tool tip so, for as long as it lives. `QWidget::toolTip` stays the text alone, which the
/// status bar shows too.
class ShortcutTips : public QObject {
    Q_OBJECT

public:
    explicit ShortcutTips(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarnwell
