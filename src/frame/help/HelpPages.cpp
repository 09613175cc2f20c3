#include "frame/help/HelpPages.h"

#include "runtime/DiskFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace tarnwell {

namespace {

const QString contentsPage = QStringLiteral("contents");

constexpr qint64 longestFile = qint64{16} * 1024 * 1024;

QString pageText(const QString& folder, const QString& name) {
    return QString::fromUtf8(readHelpFile(folder, helpPageFile(folder, name)).value_or(QByteArray()));
}

} // namespace

QString helpPageFile(const QString& folder, const QString& name) {
    return QStringLiteral("%1/%2.md").arg(folder, name);
}

std::optional<QByteArray> readHelpFile(const QString& folder, const QString& path) {
    const QString inside = QFileInfo(folder).canonicalFilePath() + u'/';
    const QString file = QFileInfo(path).canonicalFilePath();
    return file.startsWith(inside) ? readPlainFile(file, longestFile) : std::nullopt;
}

std::vector<HelpPage> readHelpPages(const QString& folder) {
    static const QRegularExpression link(QStringLiteral(R"(\[([^\]]+)\]\(([^)]+)\.md\))"));
    if (!QFile::exists(helpPageFile(folder, contentsPage)))
        return {};
    std::vector<HelpPage> pages{{QStringLiteral("Contents"), contentsPage, pageText(folder, contentsPage)}};
    const QString contents = pages.front().text;
    for (auto links = link.globalMatch(contents); links.hasNext();) {
        const QRegularExpressionMatch match = links.next();
        const QString name = match.captured(2);
        pages.push_back({match.captured(1), name, pageText(folder, name)});
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
