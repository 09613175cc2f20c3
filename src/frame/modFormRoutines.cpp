#include "frame/modFormRoutines.h"

#include "controls/ShortcutTips.h"
#include "data/RunTimeError.h"
#include "frame/Screen.h"
#include "frame/ToolbarButtons.h"
#include "look/Icons.h"
#include "runtime/EventGuard.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <cmath>

namespace tarnwell {

namespace {

constexpr int lastSeparatedGroup = 4;

constexpr std::array buttonTable{
    ToolbarButton{1, Button::Exit, "Exit", "Exit", "Exit", "Exit Form", "Ctrl+W"},
    ToolbarButton{1, Button::Save, "Save", "Save", "Save", "Save Record", "Ctrl+S"},
    ToolbarButton{1, Button::Wizard, "Wizard", "Wiz", "Wizard", "Help Wizard"},
    ToolbarButton{2, Button::Add, "Add", "Add", "Add", "Add Record", "Ctrl+N"},
    ToolbarButton{2, Button::Remove, "Remove", "Del", "Remove", "Delete Record", "Ctrl+D"},
    ToolbarButton{2, Button::RemoveQuestion, "RemoveQuestion", "Del Q", "RemoveQuestion", "Delete Question"},
    ToolbarButton{2, Button::RemoveAnswer, "RemoveAnswer", "Del A", "RemoveAnswer", "Delete Answer"},
    ToolbarButton{2, Button::RemoveList, "RemoveList", "Del L", "RemoveList", "Delete from List", "Ctrl+L"},
    ToolbarButton{2, Button::AddSame, "AddSame", "Same", "AddSame", "Add Same Record", "Ctrl+T"},
    ToolbarButton{3, Button::BeginningOfFile, "BOF", "BOF", "BFile", "Goto Beginning of File"},
    ToolbarButton{3, Button::Previous, "Previous", "Prev", "PRecord", "Previous Record"},
    ToolbarButton{3, Button::Next, "Next", "Next", "NRecord", "Next Record"},
    ToolbarButton{3, Button::EndOfFile, "EOF", "EOF", "EFile", "Goto End of File"},
    ToolbarButton{4, Button::Info, "Info", "Info", "Info", "Information", "Ctrl+I"},
    ToolbarButton{4, Button::Find, "Find", "Find", "Lookup", "Find Record", "Ctrl+F"},
    ToolbarButton{4, Button::Group, "Group", "Group", "Group", "Option Group", "Ctrl+G"},
    ToolbarButton{4, Button::Download, "Download", "Down", "Download", "Download"},
    ToolbarButton{4, Button::Upload, "Upload", "Upload", "Upload", "Upload"},
    ToolbarButton{4, Button::Website, "Website", "Web", "Website", "Load Website"},
    ToolbarButton{5, Button::Cut, "Cut", "Cut", "Cut", "Cut Data"},
    ToolbarButton{5, Button::Paste, "Paste", "Paste", "Paste", "Paste Data"},
    ToolbarButton{5, Button::Undo, "Undo", "Undo", "Undo", "Undo Change"},
    ToolbarButton{5, Button::Print, "Print", "Print", "Print", "Print Data", "Ctrl+P"},
    ToolbarButton{5, Button::PrintPreview, "PrintPreview", "Prevw", "PrintPreview", "Preview Print Data",
                  "Ctrl+R"},
    ToolbarButton{5, Button::Copy, "Copy", "Copy", "Copy", "Copy Data", "Ctrl+O"},
    ToolbarButton{5, Button::Void, "Void", "Void", "Void", "Void Entry"},
    ToolbarButton{5, Button::Refresh, "Refresh", "Refresh", "Refresh", "Refresh Page"},
};

QToolBar& toolbarOf(const Screen& form) {
    if (form.toolbar() == nullptr)
        raise(Failure::NoSuchMember, QStringLiteral("Toolbar1"));
    return *form.toolbar();
}

ButtonMask bitOfKey(const QString& key) {
    const auto* const found =
        std::find_if(buttonTable.begin(), buttonTable.end(),
                     [&](const ToolbarButton& row) { return key == QLatin1String(row.key); });
    return found != buttonTable.end() ? found->bit : 0;
}

QToolButton* makeButton(const ToolbarButton& row, QToolBar& toolbar) {
    auto* button = new QToolButton(&toolbar);
    button->setObjectName(QLatin1String(row.key));
    button->setText(QLatin1String(row.caption));
    button->setIcon(toolbarIcon(QLatin1String(row.imageKey)));
    button->setToolTip(QLatin1String(row.toolTip));
    setTipKeys(*button, QKeySequence(QLatin1String(row.shortcut)));
    button->setAccessibleDescription(shownToolTip(*button));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    // The widest caption of the table, so that buttons stand evenly and a caption may change.
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(QStringLiteral("Refresh")) + 12);
    return button;
}

/// The children that are controls of the form: group boxes are looked into, composite controls are not.
void storeChildren(ControlPositions& positions, const QWidget& container, QSizeF form) {
    for (QWidget* control : container.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (control->isWindow())
            continue;
        const QRectF place = control->geometry();
        positions.push_back({.control = control,
                             .width = static_cast<float>(place.width()),
                             .widthShare = static_cast<float>(place.width() / form.width()),
                             .height = static_cast<float>(place.height()),
                             .heightShare = static_cast<float>(place.height() / form.height()),
                             .topShare = static_cast<float>(place.top() / form.height()),
                             .leftShare = static_cast<float>(place.left() / form.width())});
        if (qobject_cast<QGroupBox*>(control) != nullptr)
            storeChildren(positions, *control, form);
    }
}

/// The least number of pixels that is a whole number of the display's dots; 1 when not even 4 are.
int pixelsOfWholeDots(double dotsEach) {
    for (const int pixels : {1, 2, 4})
        if (std::abs(pixels * dotsEach - std::round(pixels * dotsEach)) < 0.01)
            return pixels;
    return 1;
}

/// At 150 percent an edge may fall between two dots, and what a list shows would then cover its frame: the
/// first and the last pixel each begin on a dot.
QRect onWholeDots(const QRect& place, const QWidget& parent) {
    const int step = pixelsOfWholeDots(parent.devicePixelRatioF());
    if (step == 1)
        return place;
    const auto whole = [step](int pixels) { return qRound(static_cast<double>(pixels) / step) * step; };
    const QPoint origin = parent.mapTo(parent.window(), QPoint());
    const QPoint start(whole(place.x() + origin.x()), whole(place.y() + origin.y()));
    return {start - origin, QSize(whole(place.width() - 1) + 1, whole(place.height() - 1) + 1)};
}

/// A combo keeps its height at the top of its place, and its label's text stays level with it.
void levelWithCombo(QLabel& label) {
    const auto* combo = qobject_cast<const QComboBox*>(label.buddy());
    if (combo == nullptr || combo->parentWidget() != label.parentWidget())
        return;
    const QRect place = label.geometry();
    const int down = combo->y() + combo->geometry().bottom() - place.y() - place.bottom(); // Twice the way.
    const int most = std::max(place.height() - label.fontMetrics().height(), 0);
    label.setContentsMargins(0, std::clamp(down, 0, most), 0, std::clamp(-down, 0, most));
}

} // namespace

std::span<const ToolbarButton> toolbarButtons() {
    return buttonTable;
}

void BuildToolbar(Screen& form, ButtonMask mask) {
    QToolBar& toolbar = toolbarOf(form);
    int groupWithButtons = 0;
    for (const ToolbarButton& row : buttonTable) {
        if ((mask & row.bit) == 0)
            continue;
        if (groupWithButtons != 0 && groupWithButtons != row.group)
            toolbar.addSeparator();
        groupWithButtons = row.group;
        QToolButton* button = makeButton(row, toolbar);
        QObject::connect(button, &QToolButton::clicked, &form,
                         guarded([&form, button] { form.Toolbar1_ButtonClick(button->text()); }));
        if (*row.shortcut != '\0')
            QObject::connect(new QShortcut(QKeySequence(QLatin1String(row.shortcut)), &form),
                             &QShortcut::activated, button, &QToolButton::click);
        toolbar.addWidget(button);
    }
    if (groupWithButtons != 0 && groupWithButtons <= lastSeparatedGroup)
        toolbar.addSeparator();
}

void EnableToolbar(Screen& form, ButtonMask wanted, ButtonMask& current) {
    if (wanted == current)
        return;
    QToolBar& toolbar = toolbarOf(form);
    for (QAction* action : toolbar.actions())
        if (auto* button = qobject_cast<QToolButton*>(toolbar.widgetForAction(action)))
            button->setEnabled((wanted & bitOfKey(button->objectName())) != 0);
    current = wanted;
}

void StoreFormPositions(ControlPositions& positions, QWidget& canvas) {
    positions.clear();
    storeChildren(positions, canvas, canvas.size());
}

void ResizeForm(const ControlPositions& positions, QWidget& canvas) {
    const auto formWidth = static_cast<float>(canvas.width());
    const auto formHeight = static_cast<float>(canvas.height());
    for (const ControlPosition& position : positions) {
        if (position.control == nullptr)
            continue;
        float width = formWidth * position.widthShare;
        float height = formHeight * position.heightShare;
        const float left = formWidth * position.leftShare;
        const float top = formHeight * position.topShare;
        if (qobject_cast<QComboBox*>(position.control) != nullptr)
            height = position.height;
        else if (const auto* bar = qobject_cast<QScrollBar*>(position.control)) {
            if (bar->orientation() == Qt::Vertical)
                width = std::min(width, position.width);
            else
                height = std::min(height, position.height);
        }
        position.control->setGeometry(onWholeDots({qRound(left), qRound(top), qRound(width), qRound(height)},
                                                  *position.control->parentWidget()));
    }
    for (const ControlPosition& position : positions)
        if (auto* label = qobject_cast<QLabel*>(position.control))
            levelWithCombo(*label);
}

} // namespace tarnwell
