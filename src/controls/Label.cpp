#include "controls/Label.h"

#include "controls/AccessibleName.h"
#include "runtime/EventGuard.h"

#include <QCheckBox>
#include <QMouseEvent>

namespace tarnwell {

namespace {

/// The words of a check box that stands beside them, also in a larger window: a click on them ticks it, as on
/// words of its own.
class CheckBoxLabel : public QLabel {
public:
    CheckBoxLabel(const QString& text, QCheckBox& box) : QLabel(text), m_box(box) {
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton)
            runEvent([&] { m_box.setFocus(Qt::MouseFocusReason); });
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
            runEvent([&] { m_box.click(); });
    }

private:
    QCheckBox& m_box;
};

QLabel* newLabel(const QString& text, QWidget* buddy) {
    auto* box = qobject_cast<QCheckBox*>(buddy);
    return box == nullptr ? new QLabel(text) : new CheckBoxLabel(text, *box);
}

} // namespace

QLabel* label(const QString& text, const QString& name, QWidget* buddy) {
    QLabel* made = newLabel(text, buddy);
    made->setObjectName(name);
    made->setTextFormat(Qt::PlainText);
    if (buddy == nullptr)
        return made;
    made->setBuddy(buddy);
    setSpokenName(*buddy, text);
    return made;
}

QLabel* fieldLabel(int index, const QString& text, QWidget* buddy) {
    return label(text, QStringLiteral("lblFieldLabel(%1)").arg(index), buddy);
}

} // namespace tarnwell
