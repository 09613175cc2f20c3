#pragma once

class QKeyEvent;

namespace tarnwell {

/// The code of a key event as the screens know it (`KeyCode`): letters and digits by their capital character,
/// punctuation by its key, with Shift or without. 255 for a key that has no code, never 0.
[[nodiscard]] int keyCodeOf(const QKeyEvent& event);
/// 1 Shift, 2 Ctrl, 4 Alt.
[[nodiscard]] int shiftStateOf(const QKeyEvent& event);
/// Not a key that passes through a field, switches something or calls a command.
[[nodiscard]] bool isEntryKey(int keyCode, int shift);

} // namespace tarnwell
