#include "look/Contrast.h"

#include <algorithm>
#include <cmath>

namespace tarnwell {

namespace {

/// How bright a colour is for the eye, by the Web Content Accessibility Guidelines.
double luminanceOf(const QColor& color) {
    const auto channel = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) +
           0.0722 * channel(color.blueF());
}

} // namespace

double contrastOf(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminanceOf(one), luminanceOf(other)});
    constexpr double glare = 0.05;
    return (light + glare) / (dark + glare);
}

bool isHighContrast(const QPalette& palette) {
    constexpr double least = 15;
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    return window == palette.color(QPalette::Active, QPalette::Base) &&
           contrastOf(window, palette.color(QPalette::Active, QPalette::WindowText)) >= least;
}

} // namespace tarnwell
