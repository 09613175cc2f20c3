#include "frame/Theme.h"

namespace tarnwell {

namespace {

/// Lightness below which a background counts as dark.
constexpr int darkLightness = 128;
constexpr QColor linkOnLight(0x1d, 0x6f, 0x93);
constexpr QColor linkOnDark(0x6f, 0xc0, 0xe8);

} // namespace

QColor mixed(const QColor& base, const QColor& other, double share) {
    const auto channel = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return {channel(base.red(), other.red()), channel(base.green(), other.green()),
            channel(base.blue(), other.blue())};
}

QPalette refined(QPalette palette) {
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const bool dark = base.lightness() < darkLightness;
    palette.setColor(QPalette::Link, dark ? linkOnDark : linkOnLight);
    palette.setColor(QPalette::LinkVisited, dark ? linkOnDark : linkOnLight);
    palette.setColor(QPalette::PlaceholderText, mixed(text, base, 0.45));
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, mixed(base, highlight, 0.35));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    return palette;
}

} // namespace tarnwell
