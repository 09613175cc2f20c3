#pragma once

#include <QMainWindow>
#include <QString>

class QListWidget;
class QTextBrowser;
class QUrl;

namespace tarnwell {

/// The help pages: a list of them on the left, the page on the right. The pages are Markdown files in one
/// folder; the links of `contents.md` make the list.
class HelpWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The folder with the pages, read at each opening.
    static void setFolder(const QString& folder);

    /// Opens the page of that name (without ".md"), else the contents. Without a help folder a message says
    /// so.
    static void open(const QString& page);

    /// Closes the window if it is open.
    static void closeOpen();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    explicit HelpWindow(QWidget* owner);

    void buildActions();
    /// One line for every link of the contents page.
    void fillContents();
    /// Nothing when the page is shown already, so that list and page can follow each other.
    void turnTo(const QString& page);
    void followPage(const QUrl& source);
    void spaceTables();

    QListWidget* m_contents;
    QTextBrowser* m_page;
};

} // namespace tarnwell
