#include "input/WidgetInput.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QToolButton>
#include <QWindow>

#include <stdexcept>

namespace tarnwell::input {

namespace {

/// A composite takes clicks where it shows its rows, a tick box on its box.
struct Target {
    QWidget& widget;
    QPoint point;
};

Target mouseTarget(QWidget& control, QPoint at) {
    auto* area = qobject_cast<QAbstractScrollArea*>(&control);
    QWidget& widget = area != nullptr ? *area->viewport() : control;
    const auto* button = qobject_cast<QAbstractButton*>(&control);
    const bool box = button != nullptr && (control.inherits("QCheckBox") || control.inherits("QRadioButton"));
    const QPoint middle = box ? QPoint(8, control.height() / 2) : widget.rect().center();
    return {widget, at.isNull() ? middle : at};
}

using Send = void (*)(QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int);

void clickAt(QWidget& control, QPoint at, Send send) {
    const Target target = mouseTarget(control, at);
    QWidget* window = control.window();
    send(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, target.widget.mapTo(window, target.point),
         -1);
}

} // namespace

void reportMissing(const QString& name) {
    throw std::runtime_error("no control named " + name.toStdString());
}

QWidget& keyTarget(QWidget& window) {
    QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? *focused : window;
}

QToolButton& toolbarButton(const QWidget& window, const QString& caption) {
    for (auto* button : window.findChildren<QToolButton*>())
        if (button->text() == caption)
            return *button;
    reportMissing(caption);
}

void click(QWidget& control, QPoint at) {
    clickAt(control, at, &QTest::mouseClick);
}

void doubleClick(QWidget& control, QPoint at) {
    clickAt(control, at, &QTest::mouseDClick);
}

void clickLine(QWidget& list, int row) {
    auto* view = qobject_cast<QAbstractItemView*>(&list);
    if (view == nullptr)
        reportMissing(list.objectName());
    const QModelIndex line = view->model()->index(row, 0);
    view->scrollTo(line);
    click(*view, view->visualRect(line).center());
}

void openList(QComboBox& combo) {
    constexpr int fromEdge = 8;
    click(combo, QPoint(combo.width() - fromEdge, combo.height() / 2));
}

void clickEntry(QComboBox& combo, const QString& text) {
    const int index = combo.findText(text);
    if (index < 0)
        reportMissing(text);
    QAbstractItemView* list = combo.view();
    const QModelIndex line = combo.model()->index(index, combo.modelColumn());
    list->scrollTo(line);
    click(*list, list->visualRect(line).center());
}

} // namespace tarnwell::input
