#pragma once

#include "look/SharedPaletteStyle.h"

namespace tarnwell {

/// The desktop's own style, with the program's own icons in messages. Where that style is the toolkit's plain
/// one, it adds outlines that can be seen on a dark window too, ticks that grow with the font, space around
/// the captions of buttons and columns, and a frame around a list or note that has the focus and shows it in
/// no other way.
class ProgramStyle : public SharedPaletteStyle {
    Q_OBJECT

public:
    ProgramStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                     const QWidget* widget) const override;

private:
    /// The option's palette, or on a dark window one by which the plain style's outlines can be seen.
    [[nodiscard]] QPalette outlined(const QStyleOption& option) const;

    bool m_isPlain;
    mutable bool m_isOutlining =
        false; ///< A control is being drawn with such a palette, and its parts in it.
};

} // namespace tarnwell
