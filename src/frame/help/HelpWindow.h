#pragma once

#include "frame/help/HelpPages.h"

#include <QMainWindow>
#include <QString>

#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QUrl;

namespace tarnwell {

class HelpBrowser;

/// The help pages: a list of them on the left, the page on the right. The pages are Markdown files in one
/// folder; the links of `contents.md` make the list, in its groups. Words typed above it leave the pages that
/// hold them.
class HelpWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The folder with the pages, read at each opening.
    static void setFolder(const QString& folder);

    [[nodiscard]] static bool hasPage(const QString& page);

    /// Opens the page of that name (without ".md"), else the contents; where there is space, beside the
    /// window that asked. With a message's text the page shows what it says of it. Without a help folder a
    /// message says so.
    static void open(const QString& page, const QWidget* asking = nullptr, const QString& message = {});

    /// Closes the window if it is open.
    static void closeOpen();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    explicit HelpWindow(QWidget* owner);

    void buildActions();
    void fillContents();
    /// Leaves the pages with the words that are typed; the first of them is shown unless the page shown is
    /// one.
    void search();
    void addHeading(const QString& text);
    /// The page of a line in the list; null for a heading.
    [[nodiscard]] const HelpPage* pageOf(const QListWidgetItem* line) const;
    /// The page's line in the list, or -1.
    [[nodiscard]] int lineOf(const QString& page) const;
    void hideHeadingsWithoutPages();
    void showMessage(const QString& message);
    /// False where there is no space for that.
    bool standBeside(const QWidget& asking);
    /// Nothing when the page is shown already, so that list and page can follow each other.
    void turnTo(const QString& page);
    void followPage(const QUrl& source);

    std::vector<HelpPage> m_pages; ///< In the order of the list, which has headings as well.
    QLineEdit* m_search;
    QListWidget* m_contents;
    QLabel* m_nothing; ///< Says that no page holds the words.
    HelpBrowser* m_page;
};

} // namespace tarnwell
