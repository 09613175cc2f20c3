#include "controls/FormLayout.h"

#include "controls/Label.h"

namespace tarnwell {

QHBoxLayout* labelled(const QString& text, const QString& name, QWidget* control) {
    auto* row = spaced<QHBoxLayout>();
    row->addWidget(label(text, name, control));
    row->addWidget(control, 1);
    return row;
}

QHBoxLayout* buttonRow(std::initializer_list<QWidget*> buttons) {
    auto* row = spaced<QHBoxLayout>();
    row->addStretch(1);
    for (QWidget* button : buttons)
        row->addWidget(button);
    return row;
}

void tabThrough(std::span<QWidget* const> order) {
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

void tabThrough(std::initializer_list<QWidget*> order) {
    tabThrough(std::span(order.begin(), order.size()));
}

} // namespace tarnwell
