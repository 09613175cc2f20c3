#include "controls/grid/GridLayout.h"

#include "data/DiskPath.h"
#include "runtime/DiskFile.h"
#include "runtime/ProgramFolders.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int widest = 4000;
constexpr qint64 longestFile = 65536;

std::optional<LayoutColumn> parseLine(const QString& line) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*column\\s+(\\S+)\\s+width\\s+(rest|\\d{1,4})\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    const int width = match.captured(2).toInt(); // "rest" is not a number: 0
    if (width > widest)
        return std::nullopt;
    return LayoutColumn{match.captured(1), width};
}

/// The program's own layout where the settings name a folder that no longer exists, as they do when the
/// program's folder was moved or an older copy was removed.
QString layoutFile(const QString& path) {
    QString stored = pathOnDisk(path);
    const QFileInfo file(stored);
    const QString& own = programFolders().layouts;
    return own.isEmpty() || QFileInfo(file.path()).isDir() ? stored : own + file.fileName();
}

} // namespace

std::vector<LayoutColumn> parseLayout(const QByteArray& text) {
    std::vector<LayoutColumn> layout;
    for (const QByteArray& line : text.split('\n')) {
        const std::optional<LayoutColumn> column = parseLine(QString::fromUtf8(line));
        if (!column)
            continue;
        const bool known = std::any_of(layout.begin(), layout.end(), [&](const LayoutColumn& each) {
            return each.key.compare(column->key, Qt::CaseInsensitive) == 0;
        });
        if (!known)
            layout.push_back(*column);
    }
    return layout;
}

std::optional<std::vector<LayoutColumn>> readLayout(const QString& path) {
    const std::optional<QByteArray> text = readPlainFile(layoutFile(path), longestFile);
    return text ? std::optional(parseLayout(*text)) : std::nullopt;
}

} // namespace tarnwell
