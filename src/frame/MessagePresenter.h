#pragma once

#include "runtime/MsgBox.h"

namespace tarnwell {

/// Shows the message in front of the active window, named `msgBox`, and waits for the answer. Escape and the
/// close box answer with the last button: Cancel, else No, else OK.
[[nodiscard]] Answer presentMessage(const MessageRequest& request);

/// Messages and the mouse pointer go to the screen from here on.
void installPresenters();

} // namespace tarnwell
