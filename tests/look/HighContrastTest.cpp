#include "look/Contrast.h"
#include "look/Theme.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

struct Desktop {
    const char* name;
    QColor base, text, highlight, highlightedText;

    [[nodiscard]] QPalette palette() const {
        QPalette made(base, base);
        for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase})
            made.setColor(role, base);
        for (const auto role :
             {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText})
            made.setColor(role, text);
        made.setColor(QPalette::Highlight, highlight);
        made.setColor(QPalette::HighlightedText, highlightedText);
        return refinements(made).resolve(made);
    }
};

const Desktop desktops[] = {{"black", Qt::black, Qt::white, Qt::yellow, Qt::black},
                            {"black and purple", Qt::black, Qt::yellow, QColor(0x80, 0x00, 0x80), Qt::white},
                            {"white", Qt::white, Qt::black, QColor(0x37, 0x00, 0x6e), Qt::white}};

} // namespace

TEST(HighContrast, IsADesktopOfOneColourAndTextThatStandsOff) {
    for (const Desktop& desktop : desktops)
        EXPECT_TRUE(isHighContrast(desktop.palette())) << desktop.name;
    QPalette usual(QColor(0xef, 0xef, 0xef));
    EXPECT_FALSE(isHighContrast(usual));
    EXPECT_NEAR(contrastOf(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrastOf(Qt::blue, Qt::blue), 1, 0.01);
}

TEST(HighContrast, WhatIsFaintElsewhereCanBeRead) {
    constexpr double readable = 4.5, outline = 3, seen = 1.7;
    for (const Desktop& desktop : desktops) {
        SCOPED_TRACE(desktop.name);
        const QPalette palette = desktop.palette();
        for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            EXPECT_GE(contrastOf(palette.color(QPalette::Disabled, role), desktop.base), readable) << role;
        for (const auto role : {QPalette::PlaceholderText, QPalette::Link})
            EXPECT_GE(contrastOf(palette.color(role), desktop.base), readable) << role;
        for (const bool isQuiet : {false, true})
            EXPECT_GE(contrastOf(outlineColor(palette, isQuiet), desktop.base), outline) << isQuiet;
        // A selection in a window that is not in front.
        const QColor quiet = palette.color(QPalette::Inactive, QPalette::Highlight);
        EXPECT_GE(contrastOf(quiet, desktop.base), seen);
        EXPECT_GE(contrastOf(quiet, palette.color(QPalette::Inactive, QPalette::HighlightedText)), readable);
        EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Text), desktop.text)
            << "differs from what is not";
    }
}

} // namespace tarnwell::test
