#pragma once

#include "frame/Forms.h"
#include "frame/modFormRoutines.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <vector>

class QEventLoop;
class QPushButton;
class QToolBar;

namespace tarnwell {

class ActiveControl;
class StatusBar;

/// A form: the life that all share, its active control, its toolbar and status bar.
///
/// `Show` loads the form at first use: `Form_Load` builds the controls into `canvas()` with a Qt layout for
/// the design size; after it the layouts of the canvas and of its group boxes are dropped and `ResizeForm`
/// places the controls; toolbar and status bar keep the full width. Forms are made by `theForm` or `new`: an
/// unloaded form deletes itself after the event that unloaded it (for a modal one: the event that showed it),
/// so that its caller can still read its fields.
///
/// `Form_Activate` runs when the window becomes active for the first time after it was shown, and when it
/// becomes active again after another form was. Coming back from a message box or another program doesn't
/// count.
///
/// An error in an event routine reaches the outer handler, unless code with a handler fired the event.
class Screen : public QMainWindow {
    Q_OBJECT

public:
    enum class Modality { Modeless, Modal };
    enum class Part { Toolbar = 1, StatusBar = 2 };

    /// `name` becomes the objectName: "frmPayroll".
    Screen(const QString& name, const QString& caption, std::vector<Part> parts);
    ~Screen() override;

    /// Loads the form without showing it; nothing if it is loaded. An error of `Form_Load` comes back here
    /// and leaves the form unloaded.
    void Load();
    /// Loads the form if it is not, shows it with `owner` as its owner and raises it. Modal: returns when the
    /// form is hidden or unloaded. A form that is shown already is raised only.
    void Show(Modality modality, QWidget* owner);
    /// Takes the window off the screen and keeps the form loaded; ends a modal `Show`.
    void Hide();
    /// `Form_Unload`, then the form is closed and forgotten; the next use makes it anew. An error of
    /// `Form_Unload` comes back here and leaves the form loaded.
    void Unload();
    [[nodiscard]] bool isLoaded() const { return m_life == Life::Loaded || m_life == Life::Unloading; }
    /// The form was unloaded; only its fields can still be read.
    [[nodiscard]] bool isUnloaded() const { return m_life == Life::Unloaded; }

    /// The control that has the focus, an open editor counting as its grid; kept while another window or a
    /// message has it. Null before the first focus.
    [[nodiscard]] QWidget* ActiveControl() const;
    /// Moves the focus to a control (a composite hands it to its editor). The got routine of the control that
    /// is active already runs again.
    void SetFocus(QWidget* control);

    /// Another workstation wrote something: shows its rows where this form shows the old ones. What is being
    /// edited, the current row, marks and focus stay. False while that is impossible: asked again later.
    /// Raises what reading raises; what was on show stays then.
    [[nodiscard]] virtual bool showChanges() { return true; }

    /// Panel 1 of the status bar.
    void setStatusText(const QString& text);
    [[nodiscard]] QString statusText() const;

    /// Holds the form's controls, below the toolbar and above the status bar.
    [[nodiscard]] QWidget* canvas() const { return m_canvas; }
    /// Null for a form without one.
    [[nodiscard]] QToolBar* toolbar() const { return m_toolbar; }

protected:
    /// Builds and fills the form; runs once.
    virtual void Form_Load() = 0;
    virtual void Form_Activate() {}
    /// Commits the grids and closes the recordsets; runs once unless it raises.
    virtual void Form_Unload() {}
    /// A button was pressed; `caption` is its caption, not its key.
    virtual void Toolbar1_ButtonClick(const QString& /*caption*/) {}
    /// Closing by the title bar; unloads. A dialog that hides itself overrides it.
    virtual void closeRequested() { Unload(); }

    /// Names a control (its objectName) and gives it its tool tip, which panel 1 shows when it takes the
    /// focus.
    void nameControl(QWidget* control, const QString& name, const QString& toolTip = {});
    /// Runs when the control becomes the active one; replaces the tool tip in panel 1.
    void onGotFocus(QWidget* control, std::function<void()> routine);
    void onLostFocus(QWidget* control, std::function<void()> routine);
    /// The control's tool tip in panel 1.
    void showToolTip(const QWidget* control);
    /// Gives a built toolbar button another caption and tool tip.
    void setToolbarButton(const QString& key, const QString& caption, const QString& toolTip);
    /// Enter in a control that has no use for it presses the default button, Escape the cancel button.
    void setDefaultButton(QPushButton* button);
    void setCancelButton(QPushButton* button);
    /// Where there is space, the form is shown beside this from now on, and not over its owner.
    void openBeside(const QWidget& what) { m_beside = &what; }
    /// Size of the canvas at which the form opens; without it the layout's size.
    void setDesignSize(QSize size);

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend void BuildToolbar(Screen& form, ButtonMask mask);
    enum class Life { New, Loading, Loaded, Unloading, Unloaded };

    void addToolbar();
    [[nodiscard]] QSize sizeForText(QSize usual) const;
    void takeDesign();
    void placeOn(const QWidget* owner);
    void moveBeside(const QWidget& what);
    void waitForClose(QWidget* owner);
    void endModal();

    Life m_life = Life::New;
    QWidget* m_canvas;
    QToolBar* m_toolbar = nullptr;
    StatusBar* m_statusBar = nullptr;
    tarnwell::ActiveControl* m_focus;
    QPointer<QPushButton> m_defaultButton;
    QPointer<QPushButton> m_cancelButton;
    ControlPositions m_positions;
    QSize m_designSize;
    QPointer<const QWidget> m_beside;
    QEventLoop* m_modalLoop = nullptr;
    bool m_placed = false;
    bool m_activateDue = false;
};

} // namespace tarnwell
