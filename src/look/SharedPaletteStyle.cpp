#include "look/SharedPaletteStyle.h"

#include "look/SharedPalettes.h"

#include <QStyleOption>

#include <utility>

namespace tarnwell {

namespace {

/// Gives an option the shared palette of its colours while it is drawn.
class WithSharedPalette {
public:
    // The toolkit hands its options over as constants, and makes each as a variable for one drawing.
    explicit WithSharedPalette(const QStyleOption* option)
        : m_option(const_cast<QStyleOption*>(option)) { // NOLINT(cppcoreguidelines-pro-type-const-cast)
        if (m_option != nullptr)
            m_own = std::exchange(m_option->palette, sharedPalette(m_option->palette));
    }
    ~WithSharedPalette() {
        if (m_option != nullptr)
            m_option->palette = m_own;
    }
    WithSharedPalette(const WithSharedPalette&) = delete;
    WithSharedPalette& operator=(const WithSharedPalette&) = delete;

private:
    QStyleOption* m_option;
    QPalette m_own;
};

} // namespace

void SharedPaletteStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                            QPainter* painter, const QWidget* widget) const {
    const WithSharedPalette palette(option);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void SharedPaletteStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                     const QWidget* widget) const {
    const WithSharedPalette palette(option);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void SharedPaletteStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                       QPainter* painter, const QWidget* widget) const {
    const WithSharedPalette palette(option);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

} // namespace tarnwell
