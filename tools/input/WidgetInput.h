#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

class QComboBox;
class QToolButton;

/// Keys and clicks on widgets as the desktop sends them, for whoever drives the program: its tests and its
/// tour.
namespace tarnwell::input {

/// What keys go to: the widget with the focus, else the window itself.
[[nodiscard]] QWidget& keyTarget(QWidget& window);

/// The control of that name. Throws std::runtime_error when there is none.
template <class T = QWidget>
[[nodiscard]] T& find(const QWidget& window, const QString& name);

/// The toolbar button with that caption. Throws std::runtime_error when there is none.
[[nodiscard]] QToolButton& toolbarButton(const QWidget& window, const QString& caption);

/// At a place in the control (in a grid's or list's rows), else in its middle or on its tick box. Whatever
/// stands at that place of the window takes it.
void click(QWidget& control, QPoint at = {});
void doubleClick(QWidget& control, QPoint at = {});

/// A line of a list, or of a grid in its first column, from 0; scrolls to it.
void clickLine(QWidget& list, int row);
/// The button that opens a combo's list.
void openList(QComboBox& combo);
/// An entry of a list that is open. Throws std::runtime_error when there is none with that text.
void clickEntry(QComboBox& combo, const QString& text);

[[noreturn]] void reportMissing(const QString& name);

template <class T>
T& find(const QWidget& window, const QString& name) {
    T* found = window.findChild<T*>(name);
    if (found == nullptr)
        reportMissing(name);
    return *found;
}

} // namespace tarnwell::input
