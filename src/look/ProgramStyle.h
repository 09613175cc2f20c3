#pragma once

#include <QProxyStyle>

namespace tarnwell {

/// The desktop's own style. Where that is the toolkit's plain one: boxes whose outline can be seen also on a
/// dark window, room around the captions of buttons and columns, and a frame around an empty list that has
/// the keyboard.
class ProgramStyle : public QProxyStyle {
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
