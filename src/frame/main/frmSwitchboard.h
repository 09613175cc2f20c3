#pragma once

#include "frame/Screen.h"

#include <QString>

#include <functional>

class QAction;
class QLabel;
class QVBoxLayout;

namespace tarnwell {

class IconBar;

/// A screen that the main window can show: the key of its item or menu entry, how it is shown and its one
/// instance.
struct ScreenEntry {
    QString key;
    Screen::Modality modality;
    std::function<Screen&()> form;
};

/// The start-up object and main window: reads the settings, opens the database when it first becomes active,
/// and shows the screens by its icon bar and menus. What no screen is registered for is disabled. Unloading
/// it unloads every form.
class frmSwitchboard : public Screen {
    Q_OBJECT

public:
    frmSwitchboard();

    /// Called for every screen before the main window loads.
    static void registerScreen(ScreenEntry entry);

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    void closeRequested() override;

private:
    /// Menus and icon bar are built from tables; both end in `choose` or in an action of their own.
    void buildMenus();
    void buildIconBar();
    void layOut();
    [[nodiscard]] QVBoxLayout* welcome();
    /// Ends the program when the connection fails: without one no screen can work.
    void openDatabase();
    /// Shows the screen that is registered for the key, or closes the window for "mnuExit".
    void choose(const QString& key);

    IconBar* m_iconBar = nullptr;
    QLabel* m_today = nullptr;
    QLabel* m_database = nullptr;
    /// The window's only state: the first activation has run.
    bool m_activatedBefore = false;
};

} // namespace tarnwell
