#include "controls/EmptyHint.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

namespace tarnwell {

void paintEmptyHint(QAbstractItemView& view, const EmptyHint& hint) {
    const QString sentence = hint ? hint() : QString();
    if (sentence.isEmpty())
        return;
    constexpr int margin = 12;
    QWidget& page = *view.viewport();
    QPainter painter(&page);
    painter.fillRect(page.rect(), view.palette().color(QPalette::Disabled, QPalette::Base));
    painter.setFont(QApplication::font());
    painter.setPen(view.palette().color(QPalette::Active, QPalette::PlaceholderText));
    painter.drawText(page.rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, sentence);
}

} // namespace tarnwell
