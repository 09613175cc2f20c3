#pragma once

#include "look/SharedPaletteStyle.h"

namespace tarnwell {

/// The desktop's own style. Where that is the toolkit's plain style, it adds outlines of boxes that can be
/// seen on a dark window too, space around the captions of buttons and columns, and a frame around an empty
/// list that has the focus.
class ProgramStyle : public SharedPaletteStyle {
    Q_OBJECT

public:
    ProgramStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                         const QWidget* widget) const override;

private:
    bool m_isPlain;
};

} // namespace tarnwell
