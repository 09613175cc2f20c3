#include "look/Theme.h"

#include "look/Contrast.h"

#include <algorithm>

namespace tarnwell {

namespace {

/// Lightness below which a background counts as dark.
constexpr int darkLightness = 128;
constexpr QColor linkOnLight(0x1d, 0x6f, 0x93);
constexpr QColor linkOnDark(0x6f, 0xc0, 0xe8);

/// A selection, hints and what is disabled, none of them fainter than who chose such a desktop can see.
void strengthen(QPalette& palette, const QPalette& desktop) {
    constexpr double hintShade = 0.3, disabledShade = 0.4;
    const QColor base = desktop.color(QPalette::Active, QPalette::Base);
    const QColor text = desktop.color(QPalette::Active, QPalette::Text);
    palette.setColor(QPalette::PlaceholderText, mixed(text, base, hintShade));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, mixed(text, base, disabledShade));
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        palette.setColor(QPalette::Inactive, role, desktop.color(QPalette::Active, role));
}

} // namespace

QColor mixed(const QColor& base, const QColor& other, double share) {
    const auto channel = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return {channel(base.red(), other.red()), channel(base.green(), other.green()),
            channel(base.blue(), other.blue())};
}

bool isDark(const QColor& background) {
    return background.lightness() < darkLightness;
}

QColor markColor(const QPalette& palette) {
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    return isDark(palette.color(QPalette::Active, QPalette::Base))
               ? mixed(highlight, palette.color(QPalette::Active, QPalette::Text), 0.35)
               : highlight;
}

QColor outlineColor(const QPalette& palette, bool isQuiet) {
    constexpr double usual = 0.45, quiet = 0.2;
    if (isHighContrast(palette))
        isQuiet = false; // What is disabled shows by its text.
    return mixed(palette.color(QPalette::Active, QPalette::Window),
                 palette.color(QPalette::Active, QPalette::WindowText), isQuiet ? quiet : usual);
}

int scaledToText(int pixels, const QWidget& widget) {
    constexpr int usualAdvance = 252; // Of nine points at a hundred percent.
    const int advance =
        widget.fontMetrics().horizontalAdvance(QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789"));
    return pixels * std::max(advance, usualAdvance) / usualAdvance;
}

QPalette refinements(const QPalette& desktop) {
    const QColor base = desktop.color(QPalette::Active, QPalette::Base);
    const QColor text = desktop.color(QPalette::Active, QPalette::Text);
    const QColor link = isDark(base) ? linkOnDark : linkOnLight;
    QPalette refined = desktop;
    refined.setResolveMask(0);
    refined.setColor(QPalette::Link, link);
    refined.setColor(QPalette::LinkVisited, link);
    refined.setColor(QPalette::PlaceholderText, mixed(text, base, 0.45));
    refined.setColor(QPalette::Inactive, QPalette::Highlight, mixed(base, markColor(desktop), 0.35));
    refined.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    // On some desktops only the faint text shows that an empty field is disabled.
    if (refined.color(QPalette::Disabled, QPalette::Base) == base)
        refined.setColor(QPalette::Disabled, QPalette::Base,
                         refined.color(QPalette::Disabled, QPalette::Window));
    // Lists without the keyboard draw with it. Some desktops make it as faint as what is disabled.
    refined.setColor(QPalette::Inactive, QPalette::Text, text);
    if (isHighContrast(desktop))
        strengthen(refined, desktop);
    return refined;
}

} // namespace tarnwell
