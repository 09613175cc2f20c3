#pragma once

#include "reports/preview/PreviewView.h"

#include <QMainWindow>

#include <functional>
#include <initializer_list>

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QToolBar;

namespace tarnwell {

class PreviewFindBar;

/// What the preview can do with the report besides showing it. Failures are told by message and leave the
/// preview open.
struct PreviewCommands {
    /// Return what the status bar is to say; nothing when it was given up before it began. The page is the
    /// one in front of the user; the pages may have another paper after a print.
    std::function<QString(int page, QWidget* owner)> print;
    std::function<QString(QWidget* owner)> savePdf;
    /// True when the pages have another paper now.
    std::function<bool(QWidget* owner)> setUpPage;
};

/// The preview of a report: its pages with everything to walk through them, find, print and save them.
class PreviewWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `pages` outlives the window. Without pages all that needs one is disabled.
    PreviewWindow(const PreviewPages& pages, const QString& title, PreviewCommands commands);

    ~PreviewWindow() override;

    /// Shows the window in front of `owner`'s and returns when it is closed.
    void showModal(QWidget* owner);

Q_SIGNALS:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildTools();
    QAction* addTool(const QString& name, std::function<void()> routine);
    void addPageBox(QToolBar* bar);
    void addZoomBox(QToolBar* bar);
    void placeOn(const QWidget* owner);
    void connectView();

    void print();
    void arrange(Arrangement arrangement);
    void showPage();
    void showLook();
    void enable(std::initializer_list<const char*> tools, bool on);
    void goToTypedPage();
    void takeTypedZoom();
    void openFind();
    void searchAgain();
    void showHits(const QString& turned = {});
    void stepHit(int direction);
    void closeFind();
    void escape();
    void say(const QString& text);

    const PreviewPages& m_pages;
    PreviewCommands m_commands;
    PreviewView* m_view;
    PreviewFindBar* m_findBar;
    QLineEdit* m_page;
    QComboBox* m_zoom;
    QLabel* m_paper;
};

} // namespace tarnwell
