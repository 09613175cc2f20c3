#include "frame/main/ElidedLine.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tarnwell {

QSize ElidedLine::minimumSizeHint() const {
    return {0, fontMetrics().height()};
}

QString ElidedLine::shownText() const {
    return fontMetrics().elidedText(text(), m_shortenedAt, contentsRect().width());
}

void ElidedLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeft, shownText());
}

bool ElidedLine::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    const QString tip = shownText() == text() ? QString() : text();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
    return true;
}

} // namespace tarnwell
