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

const QString groupMark = QStringLiteral("## ");

/// The fixed parts of a listed message stand in the message, in their order.
bool shows(const QString& message, const QString& listed) {
    static const QRegularExpression number(
        QStringLiteral(R"(\s*\(-?\d+\)$)")); // Of an error, behind its text.
    qsizetype from = 0;
    for (const QString& part :
         QString(listed).remove(number).split(QStringLiteral("..."), Qt::SkipEmptyParts)) {
        const qsizetype at = message.indexOf(part.simplified(), from);
        if (at < 0)
            return false;
        from = at + part.simplified().size();
    }
    return true;
}

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
    std::vector<HelpPage> pages{
        {QStringLiteral("Contents"), contentsPage, pageText(folder, contentsPage), {}}};
    const QString contents = pages.front().text;
    QString group;
    for (const QString& line : contents.split(u'\n')) {
        if (line.startsWith(groupMark))
            group = line.mid(groupMark.size()).trimmed();
        for (auto links = link.globalMatch(line); links.hasNext();) {
            const QRegularExpressionMatch match = links.next();
            const QString name = match.captured(2);
            pages.push_back({match.captured(1), name, pageText(folder, name), group});
        }
    }
    return pages;
}

QStringList listedMessages(const QString& page) {
    QStringList messages;
    bool isBody = false; // Behind the rule below the headings.
    for (const QString& line : page.split(u'\n')) {
        const bool isRule = line.startsWith(QLatin1String("|---"));
        isBody = line.startsWith(u'|') && (isBody || isRule);
        if (isBody && !isRule)
            messages << line.section(u'|', 1, 1).trimmed();
    }
    return messages;
}

QString listedMessage(const QString& page, const QString& message) {
    QString longest;
    for (const QString& listed : listedMessages(page))
        if (listed.size() > longest.size() && shows(message.simplified(), listed))
            longest = listed;
    return longest;
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
