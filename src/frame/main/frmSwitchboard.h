#pragma once

#include "frame/Screen.h"

#include <QString>

#include <functional>

class QAction;
class QLabel;

namespace tarnwell {

class HomePage;
class IconBar;

/// A screen that the main window can show: the key of its item or menu entry, how it is shown and its one
/// instance.
struct ScreenEntry {
    QString key;
    Screen::Modality modality;
    std::function<Screen&()> form;
    /// Brings the record of a key onto the shown screen; empty where the main window offers no records.
    std::function<void(qint64 key)> showRecord = {};
};

/// The start-up object and main window: reads the settings, opens the database when it first becomes active,
/// and shows the screens by its icon bar and menus. What no screen is registered for is disabled. Its free
/// half says how the data stand; that is read whenever the window becomes active, behind its painting.
/// Unloading it unloads every form.
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
    bool event(QEvent* event) override;

private:
    /// Menus and icon bar are built from tables; both end in `choose` or in an action of their own.
    void buildMenus();
    void buildIconBar();
    void layOut();
    void showHome();
    /// Unloads the window, or ends the program, when there is no connection: without one no screen can work.
    void openDatabase();
    /// Shows the screen that is registered for the key, or closes the window for "mnuExit".
    void choose(const QString& key);
    /// Shows the jobs screen with this job on it.
    void chooseJob(qint64 jobKey);

    IconBar* m_iconBar = nullptr;
    HomePage* m_home = nullptr;
    QLabel* m_database = nullptr;
    bool m_activatedBefore = false; ///< The database was opened, or a choice at the start is under way.
    bool m_isDatabaseOpen = false;
};

} // namespace tarnwell
