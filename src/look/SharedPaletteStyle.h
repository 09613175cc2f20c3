#pragma once

#include <QProxyStyle>

namespace tarnwell {

/// A style whose kept drawings are found again by later widgets of the same colours. Every style of ours
/// derives from it: the toolkit keeps a drawing under the identity of the widget's palette, so each new
/// widget would add its own.
class SharedPaletteStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace tarnwell
