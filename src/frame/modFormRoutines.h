#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <span>
#include <vector>

namespace tarnwell {

class Screen;

using ButtonMask = std::uint32_t;

/// One row of the button table.
struct ToolbarButton {
    int group;
    ButtonMask bit;
    const char* key;
    const char* caption;
    const char* imageKey;
    const char* toolTip;
    const char* shortcut = ""; ///< Presses the button from the keyboard, since it takes no focus.
};

/// All buttons in their left-to-right order.
[[nodiscard]] std::span<const ToolbarButton> toolbarButtons();

/// Adds the buttons whose bits are set, and a separator behind each of the groups 1 to 4 that got one. Raises
/// NoSuchMember (438) for a form without a toolbar, as `EnableToolbar` does.
void BuildToolbar(Screen& form, ButtonMask mask);

/// Enables exactly the buttons whose bits are set in `wanted`. Does nothing when `wanted` equals `current`;
/// otherwise `current` becomes `wanted`.
void EnableToolbar(Screen& form, ButtonMask wanted, ButtonMask& current);

/// Size and place of one control at load, as shares of its form (width, height, top, left). A control in a
/// frame has its place in the frame.
struct ControlPosition {
    QPointer<QWidget> control;
    float width = 0, widthShare = 0, height = 0, heightShare = 0, topShare = 0, leftShare = 0;
};
using ControlPositions = std::vector<ControlPosition>;

/// Records every control of the form's canvas, also those inside frames; what a control is made of is its
/// own.
void StoreFormPositions(ControlPositions& positions, QWidget& canvas);
/// Moves every control to its shares of the canvas's present size. A combo keeps its height; a scroll bar
/// never grows thicker than at load.
void ResizeForm(const ControlPositions& positions, QWidget& canvas);

} // namespace tarnwell
