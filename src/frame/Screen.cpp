#include "frame/Screen.h"

#include "controls/AccessibleName.h"
#include "controls/FormLayout.h"
#include "controls/ShortcutTips.h"
#include "controls/WindowPlace.h"
#include "controls/grid/GridWidths.h"
#include "data/RunTimeError.h"
#include "frame/ActiveControl.h"
#include "frame/StatusBar.h"
#include "look/PlaceBeside.h"
#include "look/Theme.h"
#include "look/WindowOwner.h"
#include "runtime/EventGuard.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int toolbarIconSize = 24; ///< At the usual size of text.

/// The form that was active last; message boxes and other programs' windows don't count.
QPointer<Screen>& lastActiveForm() {
    static QPointer<Screen> form;
    return form;
}

/// Lays a container out at its present size, then the group boxes in it.
void layOut(QWidget& container) {
    if (QLayout* layout = container.layout()) {
        layout->invalidate();
        layout->setGeometry(container.contentsRect());
    }
    for (auto* frame : container.findChildren<QGroupBox*>(Qt::FindDirectChildrenOnly))
        layOut(*frame);
}

/// Lets texts and check boxes reach into the space around them, so that they are not cut off in a window
/// smaller than the design. At the design size nothing changes.
void widenIntoMargins(QWidget& container) {
    constexpr int beside = formSpacing - 2, aboveAndBelow = 3;
    for (auto* control : container.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        const auto* text = qobject_cast<QLabel*>(control);
        if (text == nullptr && qobject_cast<QCheckBox*>(control) == nullptr &&
            qobject_cast<QRadioButton*>(control) == nullptr)
            continue;
        const bool endsRight = text != nullptr && text->alignment().testFlag(Qt::AlignRight);
        control->setGeometry(control->geometry().adjusted(endsRight ? -beside : 0, -aboveAndBelow,
                                                          endsRight ? 0 : beside, aboveAndBelow));
    }
    for (auto* frame : container.findChildren<QGroupBox*>(Qt::FindDirectChildrenOnly))
        widenIntoMargins(*frame);
}

void dropLayouts(QWidget& container) {
    delete container.layout();
    for (auto* frame : container.findChildren<QGroupBox*>(Qt::FindDirectChildrenOnly))
        dropLayouts(*frame);
}

} // namespace

Screen::Screen(const QString& name, const QString& caption, std::vector<Part> parts)
    : m_canvas(new QWidget(this)),
      m_focus(new tarnwell::ActiveControl(*this, [this](QWidget& control) { showToolTip(&control); })) {
    setObjectName(name);
    setWindowTitle(caption);
    setContextMenuPolicy(Qt::NoContextMenu);
    setMinimumSize(1, 1); // Else toolbar and status bar would set a lower limit.
    setCentralWidget(m_canvas);
    m_canvas->installEventFilter(this);
    if (std::find(parts.begin(), parts.end(), Part::Toolbar) != parts.end())
        addToolbar();
    if (std::find(parts.begin(), parts.end(), Part::StatusBar) != parts.end()) {
        m_statusBar = new StatusBar(this);
        setStatusBar(m_statusBar);
    }
}

Screen::~Screen() {
    forgetForm(*this);
    endModal();
}

void Screen::addToolbar() {
    m_toolbar = addToolBar(QString());
    m_toolbar->setObjectName(QStringLiteral("Toolbar1"));
    m_toolbar->setAccessibleName(QStringLiteral("Toolbar"));
    m_toolbar->setMovable(false);
    m_toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    const int iconSize = scaledToText(toolbarIconSize, *m_toolbar);
    m_toolbar->setIconSize({iconSize, iconSize});
}

void Screen::Load() {
    if (m_life != Life::New)
        return;
    m_life = Life::Loading;
    registerForm(*this);
    try {
        Form_Load();
    } catch (const RunTimeError&) {
        m_life = Life::Unloaded;
        forgetForm(*this);
        deleteLater();
        throw;
    }
    setSpokenNamesOfButtons(*m_canvas);
    if (auto* menus = findChild<QMenuBar*>({}, Qt::FindDirectChildrenOnly))
        menus->setAccessibleName(QStringLiteral("Menu"));
    takeDesign();
    for (auto* widths : m_canvas->findChildren<GridWidths*>())
        widths->rememberAs(objectName() + u'.' + widths->parent()->objectName());
    m_life = Life::Loaded;
}

void Screen::Show(Modality modality, QWidget* owner) {
    Load();
    if (!isLoaded())
        return;
    const bool shown = isVisible();
    if (!shown) {
        m_activateDue = true;
        setWindowModality(modality == Modality::Modal ? Qt::ApplicationModal : Qt::NonModal);
        placeOn(owner);
        if (m_beside != nullptr)
            moveBeside(*m_beside);
        // Only the desktop knows the owner: the owner's end must not delete a form that has not saved.
        setWindowOwner(*this, owner);
    }
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    if (!shown && modality == Modality::Modal)
        waitForClose(owner);
}

void Screen::waitForClose(QWidget* owner) {
    const QPointer<Screen> self(this);
    const QPointer<QWidget> shownBy(owner);
    QEventLoop loop;
    m_modalLoop = &loop;
    loop.exec(QEventLoop::DialogExec);
    if (self != nullptr) {
        m_modalLoop = nullptr;
        if (isUnloaded())
            deleteLater();
    }
    if (shownBy != nullptr && shownBy->isVisible())
        shownBy->window()->activateWindow();
}

void Screen::endModal() {
    if (m_modalLoop != nullptr)
        m_modalLoop->quit();
}

void Screen::Hide() {
    m_focus->forget();
    hide();
    endModal();
}

void Screen::Unload() {
    if (m_life != Life::Loaded)
        return;
    m_life = Life::Unloading;
    try {
        Form_Unload();
    } catch (const RunTimeError&) {
        m_life = Life::Loaded;
        throw;
    }
    m_life = Life::Unloaded;
    forgetForm(*this);
    Hide();
    if (m_modalLoop == nullptr)
        deleteLater();
}

/// A larger font gets a larger form, and a small screen a smaller one: what is laid out for the size at hand
/// has its labels whole, what `ResizeForm` makes smaller has not.
QSize Screen::sizeForText(QSize usual) const {
    const QSize available =
        screen()->availableGeometry().size() - frameAllowance - (sizeHint() - m_canvas->sizeHint());
    const QSize scaled(scaledToText(usual.width(), *this), scaledToText(usual.height(), *this));
    return scaled.boundedTo(available);
}

/// Takes the layout's places at the design size for the form's own, and does without it and its limits from
/// then on.
void Screen::takeDesign() {
    for (auto* control : m_canvas->findChildren<QWidget*>())
        control->ensurePolished();
    const QLayout* layout = m_canvas->layout();
    const QSize least = layout != nullptr ? layout->totalMinimumSize() : QSize();
    const QSize natural = layout != nullptr ? layout->totalSizeHint() : m_canvas->size();
    m_designSize = (m_designSize.isValid() ? sizeForText(m_designSize) : natural).expandedTo(least);
    m_canvas->resize(m_designSize);
    layOut(*m_canvas);
    widenIntoMargins(*m_canvas);
    StoreFormPositions(m_positions, *m_canvas);
    dropLayouts(*m_canvas);
    for (const ControlPosition& position : m_positions) {
        position.control->setMinimumSize(0, 0);
        position.control->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    m_canvas->setMinimumSize(m_designSize);
    resize(sizeHint());
    m_canvas->setMinimumSize(0, 0);
}

/// Before the first show: in the middle of the owner and inside the screen, no larger than the screen; or
/// where the user left it.
void Screen::placeOn(const QWidget* owner) {
    if (std::exchange(m_placed, true))
        return;
    const QScreen* display = owner != nullptr ? owner->screen() : screen();
    const QRect available = display->availableGeometry();
    resize(size().boundedTo(available.size() - frameAllowance));
    const QPoint middle = owner != nullptr ? owner->window()->geometry().center() : available.center();
    QRect place({}, size() + frameAllowance);
    place.moveCenter(middle);
    place.moveLeft(std::clamp(place.left(), available.left(),
                              std::max(available.left(), available.right() - place.width())));
    place.moveTop(std::clamp(place.top(), available.top(),
                             std::max(available.top(), available.bottom() - place.height())));
    move(place.topLeft());
    new WindowPlace(*this, m_designSize);
}

void Screen::moveBeside(const QWidget& what) {
    const QRect place(what.mapToGlobal(QPoint()), what.size());
    if (const auto corner = placeBeside(place, size(), what.screen()->availableGeometry()))
        move(*corner);
}

QWidget* Screen::ActiveControl() const {
    return m_focus->current();
}

void Screen::SetFocus(QWidget* control) {
    m_focus->setFocus(control);
}

void Screen::setStatusText(const QString& text) {
    if (m_statusBar != nullptr)
        m_statusBar->setText(text);
}

QString Screen::statusText() const {
    return m_statusBar != nullptr ? m_statusBar->text() : QString();
}

void Screen::nameControl(QWidget* control, const QString& name, const QString& toolTip) {
    control->setObjectName(name);
    control->setToolTip(toolTip);
    // Labels and frames never are the active control.
    if (control->focusPolicy() != Qt::NoFocus || control->focusProxy() != nullptr)
        m_focus->add(control);
}

void Screen::onGotFocus(QWidget* control, std::function<void()> routine) {
    m_focus->setGotRoutine(control, std::move(routine));
}

void Screen::onLostFocus(QWidget* control, std::function<void()> routine) {
    m_focus->setLostRoutine(control, std::move(routine));
}

void Screen::showToolTip(const QWidget* control) {
    setStatusText(control->toolTip());
}

void Screen::setToolbarButton(const QString& key, const QString& caption, const QString& toolTip) {
    auto* button = m_toolbar != nullptr ? m_toolbar->findChild<QToolButton*>(key) : nullptr;
    if (button == nullptr)
        tarnwell::raise(Failure::NoSuchMember, key);
    button->setText(caption);
    button->setToolTip(toolTip);
    button->setAccessibleDescription(shownToolTip(*button));
}

void Screen::setDefaultButton(QPushButton* button) {
    m_defaultButton = button;
    button->setDefault(true);
}

void Screen::setCancelButton(QPushButton* button) {
    m_cancelButton = button;
}

void Screen::setDesignSize(QSize size) {
    m_designSize = size;
}

void Screen::closeEvent(QCloseEvent* event) {
    runEvent([this] { closeRequested(); });
    event->setAccepted(!isVisible());
}

void Screen::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QPushButton* button = event->key() == Qt::Key_Escape ? m_cancelButton.data() : nullptr;
    if (enter) {
        auto* focused = qobject_cast<QPushButton*>(QApplication::focusWidget());
        button = focused != nullptr ? focused : m_defaultButton.data();
    }
    if (button != nullptr && !event->isAutoRepeat())
        button->click();
    else
        QMainWindow::keyPressEvent(event);
}

bool Screen::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    if (event->type() != QEvent::WindowActivate || m_life != Life::Loaded)
        return handled;
    const bool due = std::exchange(m_activateDue, false) || lastActiveForm() != this;
    lastActiveForm() = this;
    if (due)
        runEvent([this] { Form_Activate(); });
    return handled;
}

bool Screen::eventFilter(QObject* watched, QEvent* event) {
    const bool isPlaced = event->type() == QEvent::Resize || event->type() == QEvent::Show;
    if (watched == m_canvas && isPlaced && isLoaded())
        ResizeForm(m_positions, *m_canvas);
    return QMainWindow::eventFilter(watched, event);
}

} // namespace tarnwell
