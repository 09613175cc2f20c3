#pragma once

#include <QHash>
#include <QImage>
#include <QStringList>
#include <QTextBrowser>
#include <QUrl>

#include <optional>

namespace tarnwell {

/// Shows a page of the manual: tables with space between their columns, nothing wider than the page, and the
/// words that were looked for marked. Links and pictures that lead out of the manual's folder do nothing.
class HelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit HelpBrowser(const QString& folder, QWidget* parent = nullptr);

    /// Marks every occurrence of the words, on this page and on those that are opened later.
    void markWords(const QStringList& words);
    /// Shows the row of a table that begins with this text, marked; nothing for another text.
    void showRow(const QString& text);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] std::optional<QByteArray> fileAt(const QUrl& name) const;
    void dressPage();
    void showMarks();
    /// The widest that a picture may be, in the page's pixels.
    [[nodiscard]] int pictureWidth() const;
    [[nodiscard]] QImage fitted(const QImage& picture) const;

    QString m_folder;
    QStringList m_words;
    QHash<QUrl, QImage> m_pictures; ///< In their own size, of the pages seen.
};

} // namespace tarnwell
