#pragma once

#include "frame/modFormRoutines.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <map>
#include <vector>

class QLabel;
class QToolBar;

namespace tarnwell {

/// A form: the life that all share, its active control, its toolbar and status bar.
///
/// `Show` loads the form at first use: `Form_Load` builds the controls into `canvas()` with a Qt layout for the
/// design size; after it the layout is dropped and `ResizeForm` rules, with toolbar and status bar docked at
/// full width. An error in an event routine reaches the outer handler.
class Screen : public QMainWindow {
    Q_OBJECT

public:
    enum class Modality { Modeless, Modal };
    enum class Part { Toolbar = 1, StatusBar = 2 };

    /// `name` becomes the objectName: "frmPayroll".
    Screen(const QString& name, const QString& caption, std::vector<Part> parts);
    ~Screen() override;

    /// Loads the form if it is not, shows it with `owner` as its owner and raises it. Modal: returns when the
    /// form is hidden or unloaded.
    void Show(Modality modality, QWidget* owner);
    void Hide();
    /// `Form_Unload`, then the form is closed and forgotten; the next use makes it anew.
    void Unload();
    [[nodiscard]] bool isLoaded() const { return m_loaded; }

    /// The control that has the focus, an open editor counting as its grid; kept while another window or a
    /// message has it. Null when none.
    [[nodiscard]] QWidget* ActiveControl() const { return m_activeControl; }
    /// Moves the focus to a control (a composite hands it to its editor).
    void SetFocus(QWidget* control);

    /// Panel 1 of the status bar.
    void setStatusText(const QString& text);
    [[nodiscard]] QString statusText() const;

    [[nodiscard]] QWidget* canvas() const { return m_canvas; }
    [[nodiscard]] QToolBar* toolbar() const { return m_toolbar; }

protected:
    virtual void Form_Load() = 0;
    virtual void Form_Activate() {}
    virtual void Form_Unload() {}
    virtual void Toolbar1_ButtonClick(const QString& /*caption*/) {}
    /// Closing by the title bar; unloads. A dialog that hides itself overrides it.
    virtual void closeRequested() { Unload(); }

    /// Names a control (its objectName) and gives it its tool tip, which panel 1 shows when it takes the focus.
    void nameControl(QWidget* control, const QString& name, const QString& toolTip = {});
    /// Runs when the control becomes the active one; replaces the tool tip in panel 1.
    void onGotFocus(QWidget* control, std::function<void()> routine);
    void onLostFocus(QWidget* control, std::function<void()> routine);
    /// Size of the canvas at which the form opens.
    void setDesignSize(QSize size);

    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    friend void BuildToolbar(Screen& form, ButtonMask mask);

    void load();
    void focusMoved(QWidget* now);
    [[nodiscard]] QWidget* controlOf(QWidget* widget) const;

    struct FocusRule {
        std::function<void()> got;
        std::function<void()> lost;
    };
    QWidget* m_canvas;
    QToolBar* m_toolbar = nullptr;
    QLabel* m_panel1 = nullptr;
    QPointer<QWidget> m_activeControl;
    std::map<const QWidget*, FocusRule> m_focusRules;
    ControlPositions m_positions;
    QSize m_designSize;
    bool m_loaded = false;
    bool m_activated = false;
};

/// The forms that are loaded, in the order of their loading; the main window is the first.
[[nodiscard]] const std::vector<Screen*>& loadedForms();

/// The one instance of a screen, made at first use and again after it was unloaded.
template <class Form>
[[nodiscard]] Form& theForm() {
    static QPointer<Form> instance;
    if (instance.isNull())
        instance = new Form;
    return *instance;
}

} // namespace tarnwell
