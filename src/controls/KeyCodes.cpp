#include "controls/KeyCodes.h"

#include "runtime/modGeneral.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <string_view>

namespace tarnwell {

namespace {

struct NamedKey {
    int key;
    int code;
};

constexpr int backspace = 8, capsLock = 20, pageUp = 33, pageDown = 34, insert = 45, firstFunctionKey = 112,
              functionKeys = 16;
/// A key that has no code of its own still is a key: 0 would mean that it was swallowed.
constexpr int unknownKey = 255;

constexpr std::array namedKeys{
    NamedKey{Qt::Key_Tab, KeyCode::Tab},       NamedKey{Qt::Key_Backtab, KeyCode::Tab},
    NamedKey{Qt::Key_Return, KeyCode::Enter},  NamedKey{Qt::Key_Enter, KeyCode::Enter},
    NamedKey{Qt::Key_Shift, KeyCode::Shift},   NamedKey{Qt::Key_Control, KeyCode::Control},
    NamedKey{Qt::Key_Alt, KeyCode::Alt},       NamedKey{Qt::Key_AltGr, KeyCode::Alt},
    NamedKey{Qt::Key_Escape, KeyCode::Escape}, NamedKey{Qt::Key_End, KeyCode::End},
    NamedKey{Qt::Key_Home, KeyCode::Home},     NamedKey{Qt::Key_Left, KeyCode::Left},
    NamedKey{Qt::Key_Up, KeyCode::Up},         NamedKey{Qt::Key_Right, KeyCode::Right},
    NamedKey{Qt::Key_Down, KeyCode::Down},     NamedKey{Qt::Key_Delete, KeyCode::Delete},
    NamedKey{Qt::Key_Backspace, backspace},    NamedKey{Qt::Key_CapsLock, capsLock},
    NamedKey{Qt::Key_PageUp, pageUp},          NamedKey{Qt::Key_PageDown, pageDown},
    NamedKey{Qt::Key_Insert, insert},
};

/// Characters of the upper row and the two blocks of punctuation keys, plain and shifted in turn. Their own
/// numbers would be those of other keys: '%' that of Left, '.' that of Delete.
constexpr std::string_view shiftedDigits = ")!@#$%^&*(", firstBlock = ";:=+,<-_.>/?`~",
                           secondBlock = "[{\\|]}'\"";
constexpr int firstBlockCode = 186, secondBlockCode = 219;

int printableKeyCode(int key) {
    const char character = static_cast<char>(key);
    if (const auto at = shiftedDigits.find(character); at != std::string_view::npos)
        return '0' + static_cast<int>(at);
    if (const auto at = firstBlock.find(character); at != std::string_view::npos)
        return firstBlockCode + static_cast<int>(at / 2);
    if (const auto at = secondBlock.find(character); at != std::string_view::npos)
        return secondBlockCode + static_cast<int>(at / 2);
    return key;
}

} // namespace

int keyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde)
        return printableKeyCode(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F16)
        return firstFunctionKey + (key - Qt::Key_F1);
    const auto* const found = std::find_if(namedKeys.begin(), namedKeys.end(),
                                           [key](const NamedKey& named) { return named.key == key; });
    return found != namedKeys.end() ? found->code : unknownKey;
}

int shiftStateOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    return (held.testFlag(Qt::ShiftModifier) ? 1 : 0) | (held.testFlag(Qt::ControlModifier) ? 2 : 0) |
           (held.testFlag(Qt::AltModifier) ? 4 : 0);
}

bool isEntryKey(int keyCode, int shift) {
    constexpr int onlyShift = 1;
    constexpr std::array passing{KeyCode::Tab, KeyCode::Shift, KeyCode::Control,
                                 KeyCode::Alt, capsLock,       unknownKey};
    const bool function = keyCode >= firstFunctionKey && keyCode < firstFunctionKey + functionKeys;
    const bool arrow = keyCode >= KeyCode::Left && keyCode <= KeyCode::Down;
    return shift <= onlyShift && !function && !arrow &&
           std::find(passing.begin(), passing.end(), keyCode) == passing.end();
}

} // namespace tarnwell
