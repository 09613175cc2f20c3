#pragma once

#include <QBoxLayout>
#include <QGridLayout>

#include <initializer_list>
#include <span>

namespace tarnwell {

// What the forms' layouts have in common. Distances are pixels at the design size.

constexpr int formMargin = 12;    ///< Around what a form shows.
constexpr int formSpacing = 8;    ///< Between controls.
constexpr int formColumnGap = 16; ///< Between parts of a form that stand side by side.

/// A layout with the usual distance between its controls, for another layout or for a frame.
template <class Layout>
[[nodiscard]] Layout* spaced(QWidget* frame = nullptr) {
    auto* made = new Layout(frame);
    made->setSpacing(formSpacing);
    return made;
}

/// The layout that fills a form, inside its margin.
template <class Layout>
[[nodiscard]] Layout* filling(QWidget* form, int spacing = formSpacing) {
    auto* made = new Layout(form);
    made->setContentsMargins(formMargin, formMargin, formMargin, formMargin);
    made->setSpacing(spacing);
    return made;
}

/// A control behind its `label`, as wide as the space allows.
[[nodiscard]] QHBoxLayout* labelled(const QString& text, const QString& name, QWidget* control);

/// The buttons below a dialog, at its right edge.
[[nodiscard]] QHBoxLayout* buttonRow(std::initializer_list<QWidget*> buttons);

/// Tab visits the controls in this order.
void tabThrough(std::span<QWidget* const> order);
void tabThrough(std::initializer_list<QWidget*> order);

} // namespace tarnwell
