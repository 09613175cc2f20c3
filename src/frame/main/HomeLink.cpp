#include "frame/main/HomeLink.h"

#include "look/Theme.h"

#include <QEvent>
#include <QPainter>

namespace tarnwell {

namespace {

constexpr int linkMargin = 4;
constexpr int partOfAPixel = 2; ///< Widths of texts are rounded, and what is too wide would be shortened.
constexpr double linkCorner = 4;

} // namespace

HomeLink::HomeLink(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setAutoDefault(false);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QSize HomeLink::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + partOfAPixel + 2 * linkMargin,
            fontMetrics().height() + 2 * linkMargin};
}

QSize HomeLink::minimumSizeHint() const {
    return {2 * linkMargin, sizeHint().height()};
}

void HomeLink::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect inner = rect().adjusted(linkMargin, 0, -linkMargin, 0);
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(markColor(palette()), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), linkCorner, linkCorner);
    }
    QFont font = this->font();
    font.setUnderline(underMouse());
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::Link));
    painter.drawText(inner, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, inner.width()));
}

bool HomeLink::event(QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        update();
    return QPushButton::event(event);
}

} // namespace tarnwell
