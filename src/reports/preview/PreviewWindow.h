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

/// What the preview can do with the report besides showing it. A message says what failed, and the
/// preview stays open.
struct PreviewCommands {
    /// Return what the status bar shows; nothing when the user cancelled before it began. The page is the
    /// one in front of the user; the pages may have another paper after a print.
    std::function<QString(int page, QWidget* owner)> print;
    std::function<QString(QWidget* owner)> savePdf;
    /// True when the pages have another paper now.
    std::function<bool(QWidget* owner)> setUpPage;
};

/// How the user left a preview; the next one opens so.
struct PreviewLook {
    QByteArray geometry;
    ZoomFit fit = ZoomFit::Width;
    double zoom = 1;
    Arrangement arrangement = Arrangement::Single;
};

/// The preview of a report: its pages with everything to walk through them, find, print and save them.
class PreviewWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `pages` and `look` outlive the window, which opens with the look and keeps it up to date when it
    /// closes. Without pages all that needs one is disabled.
    PreviewWindow(const PreviewDocument& pages, const QString& title, PreviewCommands commands,
                  PreviewLook& look);

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
    void fitToPaper(const QRect& screenArea);
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

    const PreviewDocument& m_pages;
    PreviewCommands m_commands;
    PreviewLook& m_look;
    PreviewView* m_view;
    PreviewFindBar* m_findBar;
    QLineEdit* m_page;
    QComboBox* m_zoom;
    QLabel* m_paper;
};

} // namespace tarnwell
