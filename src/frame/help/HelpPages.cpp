#include "frame/help/HelpPages.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace tarnwell {

namespace {

const QString contentsPage = QStringLiteral("contents");

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

QString helpPageFile(const QString& folder, const QString& name) {
    return QStringLiteral("%1/%2.md").arg(folder, name);
}

std::vector<HelpPage> readHelpPages(const QString& folder) {
    static const QRegularExpression link(QStringLiteral(R"(\[([^\]]+)\]\(([^)]+)\.md\))"));
    const QString path = helpPageFile(folder, contentsPage);
    if (!QFile::exists(path))
        return {};
    std::vector<HelpPage> pages{{QStringLiteral("Contents"), contentsPage, textOf(path)}};
    const QString contents = pages.front().text;
    for (auto links = link.globalMatch(contents); links.hasNext();) {
        const QRegularExpressionMatch match = links.next();
        const QString name = match.captured(2);
        pages.push_back({match.captured(1), name, textOf(helpPageFile(folder, name))});
    }
    return pages;
}

QStringList searchWords(const QString& typed) {
    return typed.split(u' ', Qt::SkipEmptyParts);
}

bool isFound(const HelpPage& page, const QStringList& words) {
    return std::ranges::all_of(words, [&page](const QString& word) {
        return page.title.contains(word, Qt::CaseInsensitive) ||
               page.text.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace tarnwell
