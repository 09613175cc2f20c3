#pragma once

#include <QPalette>
#include <QStyleOption>

#include <utility>

namespace tarnwell {

/// Draws a part of a widget in other colours: the option has them while the object lives.
class PaletteSwap {
public:
    /// Null: nothing happens. The toolkit hands its options over as constants, and makes each as a variable
    /// for one drawing.
    PaletteSwap(const QStyleOption* option, const QPalette& palette)
        : m_option(const_cast<QStyleOption*>(option)) { // NOLINT(cppcoreguidelines-pro-type-const-cast)
        if (m_option != nullptr)
            m_own = std::exchange(m_option->palette, palette);
    }
    ~PaletteSwap() {
        if (m_option != nullptr)
            m_option->palette = m_own;
    }
    PaletteSwap(const PaletteSwap&) = delete;
    PaletteSwap& operator=(const PaletteSwap&) = delete;

private:
    QStyleOption* m_option;
    QPalette m_own;
};

} // namespace tarnwell
