#pragma once

#include <QString>

class QWidget;

namespace tarnwell {

/// What an assistive tool says for a caption: its words without the mark of a mnemonic (a doubled mark stands
/// for itself) and without the colon behind them.
[[nodiscard]] QString spokenCaption(const QString& caption);

/// Gives a control that name for assistive tools, and the parts of it that they meet by themselves: the line
/// and the list of a combo, the line and the arrows of a date box.
void setSpokenName(QWidget& control, const QString& caption);

/// The same for the options and ticks of a form that have captions of their own with a colon behind.
void setSpokenNamesOfButtons(QWidget& form);

/// The caption of a text that only shows a figure. The figure stays its name; the caption describes it.
void setSpokenCaption(QWidget& figure, const QString& caption);

} // namespace tarnwell
