#include "reports/preview/PreviewToolBar.h"

#include "look/Theme.h"

#include <QAction>
#include <QEvent>
#include <QToolButton>

#include <ranges>

namespace tarnwell {

namespace {

constexpr int toolIcon = 20; ///< At the usual size of text.

void showCaption(QToolButton& button, bool on) {
    button.setToolButtonStyle(on ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}

/// It has no width when it is off. Its tool stays visible: the keys of a hidden one do nothing.
void showButton(QToolButton& button, bool on) {
    button.setMaximumWidth(on ? QWIDGETSIZE_MAX : 0);
}

} // namespace

PreviewToolBar::PreviewToolBar(QWidget* parent) : QToolBar(QStringLiteral("Tools"), parent) {
    setObjectName(QStringLiteral("Toolbar1"));
    setMovable(false);
    const int iconSize = scaledToText(toolIcon, *this);
    setIconSize({iconSize, iconSize});
}

void PreviewToolBar::addTool(QAction* tool, ToolWidth kind) {
    addAction(tool);
    auto* const button = qobject_cast<QToolButton*>(widgetForAction(tool));
    button->setObjectName(QStringLiteral("btn") + tool->objectName());
    showCaption(*button, false);
    if (kind == ToolWidth::Caption)
        m_captioned.push_back(button);
    else if (kind == ToolWidth::Spare)
        m_spare.push_back(button);
}

void PreviewToolBar::keepInSight() {
    for (QToolButton* button : m_captioned)
        showCaption(*button, false);
    for (QToolButton* button : m_spare)
        showButton(*button, false);
    setMinimumWidth(sizeHint().width());
    fit();
}

void PreviewToolBar::fit() {
    for (QToolButton* button : m_captioned)
        showCaption(*button, true);
    for (QToolButton* button : m_spare)
        showButton(*button, true);
    for (QToolButton* button : m_captioned | std::views::reverse)
        if (sizeHint().width() > width())
            showCaption(*button, false);
    for (QToolButton* button : m_spare | std::views::reverse)
        if (sizeHint().width() > width())
            showButton(*button, false);
}

void PreviewToolBar::resizeEvent(QResizeEvent* event) {
    QToolBar::resizeEvent(event);
    fit();
}

void PreviewToolBar::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        keepInSight();
}

} // namespace tarnwell
