#include "frame/main/IconBar.h"

#include "frame/main/IconBarButton.h"
#include "look/Theme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int margin = 8;
constexpr int captionGap = 6;
/// On a tall window the items stay together at the top.
constexpr int largestItemHeight = 56;

} // namespace

IconBar::IconBar(QWidget* parent) : QWidget(parent), m_caption(new QLabel(this)) {
    QFont bold = m_caption->font();
    bold.setBold(true);
    m_caption->setFont(bold);
    m_caption->setIndent(margin);
}

void IconBar::setGroup(const QString& caption, const QString& toolTip) {
    m_caption->setText(caption);
    m_caption->setToolTip(toolTip);
    setAccessibleName(caption);
}

void IconBar::addItem(const IconBarItem& item) {
    auto* button = new IconBarButton(item, this);
    button->installEventFilter(this);
    connect(button, &QToolButton::clicked, this, [this, key = item.key] { Q_EMIT itemClicked(key); });
    m_buttons.push_back(button);
}

void IconBar::setItemEnabled(const QString& key, bool enabled) {
    for (IconBarButton* button : m_buttons)
        if (button->objectName() == key)
            button->setEnabled(enabled);
}

void IconBar::focusFirst(int position) {
    focusFrom(position, 1);
}

QSize IconBar::sizeHint() const {
    QSize hint(0, margin + m_caption->sizeHint().height() + captionGap + margin);
    for (const IconBarButton* button : m_buttons) {
        const QSize item = button->sizeHint();
        hint = {std::max(hint.width(), item.width() + 2 * margin), hint.height() + item.height()};
    }
    return hint;
}

// The bar lays its items out itself: whatever size the frame gives it, they share its height.
void IconBar::resizeEvent(QResizeEvent* /*event*/) {
    const int captionHeight = m_caption->sizeHint().height();
    const int width = this->width() - 2 * margin;
    m_caption->setGeometry(margin, margin, width, captionHeight);
    if (m_buttons.empty())
        return;
    int y = margin + captionHeight + captionGap;
    const int share = (height() - y - margin) / static_cast<int>(m_buttons.size());
    const int itemHeight = std::clamp(share, 0, largestItemHeight);
    for (IconBarButton* button : m_buttons) {
        button->setGeometry(margin, y, width, itemHeight);
        y += itemHeight;
    }
}

void IconBar::paintEvent(QPaintEvent* /*event*/) {
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.setPen(mixed(window, text, 0.2));
    painter.drawLine(rect().topRight(), rect().bottomRight());
}

bool IconBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    return handleKey(qobject_cast<IconBarButton*>(watched), static_cast<QKeyEvent*>(event)->key());
}

bool IconBar::handleKey(IconBarButton* from, int key) {
    const int last = static_cast<int>(m_buttons.size()) - 1;
    const int position = static_cast<int>(std::ranges::find(m_buttons, from) - m_buttons.begin());
    switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Right:
        focusFrom(position + 1, 1);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Left:
        focusFrom(position - 1, -1);
        return true;
    case Qt::Key_Home:
        focusFrom(0, 1);
        return true;
    case Qt::Key_End:
        focusFrom(last, -1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        from->click();
        return true;
    default:
        return false;
    }
}

void IconBar::focusFrom(int position, int step) {
    for (; position >= 0 && position < static_cast<int>(m_buttons.size()); position += step) {
        IconBarButton* button = m_buttons[static_cast<std::size_t>(position)];
        if (button->isEnabled()) {
            button->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

} // namespace tarnwell
