#include "controls/DateBox.h"

#include "controls/DayArrows.h"
#include "controls/SingleLine.h"
#include "runtime/EventGuard.h"
#include "runtime/RunTime.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

namespace tarnwell {

namespace {

constexpr int longestDateText = 30;
constexpr int firstYear = 1, lastYear = 9999; // What a date column takes.

} // namespace

DateBox::DateBox(Arrows arrows, QWidget* parent) : QWidget(parent), m_edit(new QLineEdit(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    row->addWidget(m_edit);
    m_edit->setMaxLength(longestDateText);
    m_edit->setPlaceholderText(QStringLiteral("mm/dd/yy"));
    keepOnOneLine(*m_edit);
    m_edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_edit->installEventFilter(this);
    installEventFilter(this);
    setFocusProxy(m_edit);
    setFocusPolicy(Qt::StrongFocus); // A label's mnemonic passes over a buddy without.
    connect(m_edit, &QLineEdit::textChanged, this, &DateBox::changed);
    if (arrows == Arrows::None)
        return;
    auto* bar = new DayArrows(this);
    bar->setFocusPolicy(Qt::NoFocus);
    bar->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    row->addWidget(bar);
    connect(bar, &DayArrows::valueChanged, this, guarded([this, bar](int value) {
                if (value == DayArrows::Rest)
                    return;
                turn(value == DayArrows::Upper ? 1 : -1);
                bar->setValue(DayArrows::Rest);
            }));
}

Value DateBox::value() const {
    const QString shown = m_edit->text();
    if (shown.trimmed().isEmpty())
        return Value::null();
    if (m_date.isValid() && shown == m_dateText)
        return m_date;
    if (const DateTime typed = dateFromText(shown); typed.isValid())
        return typed;
    return shown;
}

void DateBox::setValue(const Value& value) {
    if (value.kind() != Value::Kind::Date) {
        setText(value.isNull() ? QString() : value.toText());
        return;
    }
    m_date = value.toDate();
    m_dateText = Format(value, QStringLiteral("mm/dd/yy"));
    m_edit->setText(m_dateText);
}

QString DateBox::text() const {
    return m_edit->text();
}

void DateBox::setText(const QString& text) {
    m_date = {};
    m_edit->setText(text);
}

void DateBox::addDays(int days) {
    const Value now = value();
    if (now.isNull())
        return;
    DateTime moment = CDate(now);
    moment.date = moment.date.addDays(days);
    if (moment.date.year() >= firstYear && moment.date.year() <= lastYear)
        setValue(moment);
}

/// The box's own keys and arrows ignore a text that is not a date.
void DateBox::turn(int days) {
    if (value().kind() == Value::Kind::Date)
        addDays(days);
}

bool DateBox::eventFilter(QObject* watched, QEvent* event) {
    // Assistive tools meet the line, not the box around it.
    if (watched == this && event->type() == QEvent::ToolTipChange)
        m_edit->setAccessibleDescription(toolTip());
    if (watched == m_edit && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down) {
            runEvent([&] { turn(key->key() == Qt::Key_Up ? 1 : -1); });
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tarnwell
