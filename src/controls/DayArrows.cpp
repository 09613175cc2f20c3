#include "controls/DayArrows.h"

#include "look/SharedPaletteStyle.h"
#include "look/Theme.h"

#include <QContextMenuEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int leastWidth = 18;

/// Gives the bar's height to the two arrows, whatever it is, and none to a slider.
class ArrowsOnly : public SharedPaletteStyle {
public:
    using SharedPaletteStyle::SharedPaletteStyle;

    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl part, const QWidget* widget) const override {
        if (control != CC_ScrollBar)
            return SharedPaletteStyle::subControlRect(control, option, part, widget);
        const QRect whole = option->rect;
        const int upper = whole.height() / 2;
        switch (part) {
        case SC_ScrollBarSubLine:
            return {whole.left(), whole.top(), whole.width(), upper};
        case SC_ScrollBarAddLine:
            return {whole.left(), whole.top() + upper, whole.width(), whole.height() - upper};
        default:
            return {};
        }
    }
};

} // namespace

DayArrows::DayArrows(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    // The toolkit's own: some desktops' bars have no arrows.
    auto* style = new ArrowsOnly(QStringLiteral("fusion"));
    style->setParent(this);
    setStyle(style);
    setRange(Upper, Lower);
    setPageStep(1);
    setValue(Rest);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DayArrows::sizeHint() const {
    return {std::max(QScrollBar::sizeHint().width(), scaledToText(leastWidth, *this)),
            fontMetrics().height() + 10};
}

void DayArrows::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    QStylePainter painter(this);
    // A bar's style outlines the side towards the text only; these stand alone, beside a field.
    constexpr int outlineChange = 140;
    const QColor window = palette().color(QPalette::Window);
    painter.setPen(isDark(window) ? outlineColor(palette(), !isEnabled()) : window.darker(outlineChange));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

void DayArrows::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QScrollBar::wheelEvent(event);
    else
        event->ignore();
}

void DayArrows::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
}

} // namespace tarnwell
