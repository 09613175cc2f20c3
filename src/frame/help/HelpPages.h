#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tarnwell {

/// A page of the manual.
struct HelpPage {
    QString title; ///< As the contents name it.
    QString name;  ///< Its file without ".md".
    QString text;  ///< As it was written.
    QString group; ///< The heading of the contents that it stands under; empty for those above the first one.
};

/// The manual: the contents page and, in its order, the pages that it links to. A page that can't be read has
/// no text. Without a contents page the list is empty.
[[nodiscard]] std::vector<HelpPage> readHelpPages(const QString& folder);

/// The file of a page.
[[nodiscard]] QString helpPageFile(const QString& folder, const QString& name);

/// The bytes of a page or picture. Nothing for a path that leads out of `folder`, also by a link of the disk,
/// and for anything but a plain file of a sensible size.
[[nodiscard]] std::optional<QByteArray> readHelpFile(const QString& folder, const QString& path);

/// The texts of messages that a page explains: the first column of its tables. "..." in one stands for what
/// differs from time to time.
[[nodiscard]] QStringList listedMessages(const QString& page);

/// Which of the page's texts a message shows, the longest where it shows several; empty for one that the page
/// does not explain.
[[nodiscard]] QString listedMessage(const QString& page, const QString& message);

/// The words to look for: in any order, without regard to case.
[[nodiscard]] QStringList searchWords(const QString& typed);

/// True when title and text hold each of the words, the last one as far as it was typed. No words: true.
[[nodiscard]] bool isFound(const HelpPage& page, const QStringList& words);

} // namespace tarnwell
