#include "frame/main/IconBarButton.h"

#include "look/Icons.h"

#include <QPainter>
#include <QStyle>

namespace tarnwell {

namespace {

constexpr int iconExtent = 32;
constexpr int innerMargin = 10;
constexpr int gap = 12;
constexpr double cornerRadius = 6;
constexpr double hoverOpacity = 0.18;
constexpr double pressedOpacity = 0.38;

} // namespace

IconBarButton::IconBarButton(const IconBarItem& item, QWidget* parent)
    : QToolButton(parent), m_label(item.label) {
    setObjectName(item.key);
    setText(item.caption);
    setAccessibleName(item.caption);
    setToolTip(item.toolTip);
    setIcon(barIcon(item.imageKey));
    setIconSize({iconExtent, iconExtent});
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    // A click opens a screen; the focus stays where the keyboard left it.
    setFocusPolicy(Qt::TabFocus);
    // The text holds no "&", so the toolkit makes no shortcut of it.
    setShortcut(QKeySequence::mnemonic(item.label));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.1);
    setFont(large);
}

QSize IconBarButton::sizeHint() const {
    const int textWidth = fontMetrics().horizontalAdvance(text());
    return {4 * innerMargin + iconExtent + gap + textWidth, iconExtent + innerMargin};
}

void IconBarButton::paintBackground(QPainter& painter) const {
    const bool hovered = isEnabled() && underMouse();
    if (!hovered && !isDown() && !hasFocus())
        return;
    QColor fill = palette().color(QPalette::Active, QPalette::Highlight);
    const QColor outline = fill;
    fill.setAlphaF(static_cast<float>(isDown() ? pressedOpacity : hovered ? hoverOpacity : 0));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(outline, 1.5) : QPen(Qt::NoPen));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
}

void IconBarButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintBackground(painter);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const QRect inner = rect().adjusted(innerMargin, 0, -innerMargin, 0);
    const QRect iconRect =
        QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, iconSize(), inner);
    icon().paint(&painter, iconRect, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const int taken = iconExtent + gap;
    const QRect textRect = mirrored ? inner.adjusted(0, 0, -taken, 0) : inner.adjusted(taken, 0, 0, 0);
    const QString label =
        fontMetrics().elidedText(m_label, Qt::ElideRight, textRect.width(), Qt::TextShowMnemonic);
    style()->drawItemText(&painter, textRect,
                          Qt::AlignVCenter | Qt::TextShowMnemonic |
                              (mirrored ? Qt::AlignRight : Qt::AlignLeft),
                          palette(), isEnabled(), label, QPalette::WindowText);
}

} // namespace tarnwell
