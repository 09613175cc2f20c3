#pragma once

#include "tour/Driver.h"

#include <span>

namespace tarnwell::tour {

/// What a step does in the window in front.
enum class Do {
    See,         ///< Waits for the window `what`.
    Show,        ///< Waits until the control `what` shows `text`.
    Press,       ///< The keys `what`.
    Type,        ///< The text `what`.
    Click,       ///< The control `what`.
    Toolbar,     ///< The button with the caption `what`.
    Line,        ///< The first line of the list `what` that holds `text`.
    DoubleLine,  ///< The same, with a double click.
    Cell,        ///< In the grid `what` the cell of the column `column` that shows `text`.
    Choose,      ///< In the list of the combo `what` the entry `text`.
    Size,        ///< Makes the window `what` large, such as "900x600".
    Picture,     ///< Saves the window as `what`.png.
    PicturePart, ///< Saves the control `what` alone as `text`.png.
};

struct Step {
    Do action;
    const char* what;
    const char* text = "";
    const char* column = "";
};

/// Throws StepFailed at the first step that does not show what it should.
void take(Driver& driver, std::span<const Step> steps);

} // namespace tarnwell::tour
