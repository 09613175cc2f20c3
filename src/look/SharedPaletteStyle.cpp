#include "look/SharedPaletteStyle.h"

#include "look/PaletteSwap.h"
#include "look/SharedPalettes.h"

namespace tarnwell {

namespace {

QPalette sharedOf(const QStyleOption* option) {
    return option != nullptr ? sharedPalette(option->palette) : QPalette();
}

} // namespace

void SharedPaletteStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                            QPainter* painter, const QWidget* widget) const {
    const PaletteSwap palette(option, sharedOf(option));
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void SharedPaletteStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                     const QWidget* widget) const {
    const PaletteSwap palette(option, sharedOf(option));
    QProxyStyle::drawControl(element, option, painter, widget);
}

void SharedPaletteStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                       QPainter* painter, const QWidget* widget) const {
    const PaletteSwap palette(option, sharedOf(option));
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

} // namespace tarnwell
