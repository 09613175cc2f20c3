#include "frame/StatusBar.h"

#include "frame/Accessibility.h"
#include "frame/CapsLock.h"
#include "runtime/EventGuard.h"
#include "runtime/RunTime.h"

#include <QLocale>
#include <QPainter>
#include <QStyle>

namespace tarnwell {

namespace {

constexpr int millisecondsOfMinute = 60'000;

QLabel* fixedPanel(const QString& widestText, QWidget* parent) {
    auto* panel = new QLabel(parent);
    panel->setAlignment(Qt::AlignCenter);
    panel->setMinimumWidth(panel->fontMetrics().horizontalAdvance(widestText) + 16);
    return panel;
}

} // namespace

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          shown, foregroundRole());
}

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent), m_text(new ElidedLabel(this)), m_capsLock(fixedPanel(QStringLiteral("CAPS"), this)),
      m_clock(fixedPanel(QStringLiteral("00:00 AM"), this)) {
    setObjectName(QStringLiteral("StatusBar1"));
    setAccessibleName(QStringLiteral("Status"));
    setSizeGripEnabled(false);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setIndent(0);
    m_text->setContentsMargins(6, 0, 6, 0);
    addWidget(m_text, 1);
    addPermanentWidget(m_capsLock);
    addPermanentWidget(m_clock);
    int number = 0;
    for (QLabel* panel : {static_cast<QLabel*>(m_text), m_capsLock, m_clock})
        panel->setObjectName(QStringLiteral("StatusBar1(%1)").arg(++number));
    m_capsLock->setAccessibleDescription(QStringLiteral("Caps Lock"));
    m_clock->setAccessibleDescription(QStringLiteral("Time"));
    m_nextMinute.setSingleShot(true);
    connect(&m_nextMinute, &QTimer::timeout, this, guarded([this] { showTime(); }));
    m_nextMinute.setTimerType(Qt::PreciseTimer);
    connect(&CapsLock::instance(), &CapsLock::changed, this, guarded([this] { showCapsLock(); }));
    showCapsLock();
    showTime();
}

void StatusBar::setText(const QString& text) {
    if (text == m_text->text())
        return;
    m_text->setText(text);
    announce(*m_text);
}

void StatusBar::showTime() {
    const QTime now = Now().time;
    m_clock->setText(QLocale::c().toString(now, QStringLiteral("hh:mm AP")));
    m_nextMinute.start(millisecondsOfMinute - now.msecsSinceStartOfDay() % millisecondsOfMinute);
}

void StatusBar::showCapsLock() {
    m_capsLock->setText(CapsLock::instance().isOn() ? QStringLiteral("CAPS") : QString());
}

} // namespace tarnwell
