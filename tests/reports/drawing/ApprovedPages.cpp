#include "reports/drawing/ApprovedPages.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

QString place(int x, int y) {
    return QStringLiteral("%1,%2").arg(x).arg(y);
}

/// What the looks change on the page, in few words.
QString looksOf(const TextLook& look) {
    QStringList words;
    if (look.Bold)
        words << QStringLiteral("bold");
    words << QString::number(look.FontSize);
    if (!look.FontName.isEmpty())
        words << look.FontName;
    if (look.BackColor != 0)
        words << QStringLiteral("on #%1").arg(look.BackColor, 0, 16);
    if (look.ForeColor != TextLook::windowText)
        words << QStringLiteral("in #%1").arg(look.ForeColor, 0, 16);
    return words.join(u' ');
}

QString approvedFile(const QString& name) {
    return QDir(QStringLiteral(TARNWELL_APPROVED_PAGES)).filePath(name + QStringLiteral(".txt"));
}

void approve(const QStringList& drawn, const QString& path) {
    QFile file(path);
    QByteArray contents;
    for (const QString& line : drawn)
        contents += line.toUtf8() + '\n';
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size())
        << "can't write " << path.toStdString();
}

void appendMarked(QStringList& report, QLatin1Char mark, const QStringList& lines) {
    constexpr qsizetype most = 25;
    for (const QString& line : lines.first(std::min(most, lines.size())))
        report << mark + QStringLiteral(" ") + line;
    if (lines.size() > most)
        report << mark + QStringLiteral(" ... and %1 lines more").arg(lines.size() - most);
}

} // namespace

QStringList RecordedPages::texts(qint64 page) const {
    QStringList found;
    for (const PageText& item : m_texts)
        if (page == 0 || item.page == page)
            found << item.text;
    return found;
}

void RecordedPages::store(qint64, const PageText& text) {
    m_texts.push_back(text);
    note(text.page, text.orientation,
         QStringLiteral("%1   %2 \"%3\"%4%5")
             .arg(place(text.x, text.y), -11)
             .arg(looksOf(text.look), -9)
             .arg(text.text, text.look.PageTotal ? QStringLiteral(" + total") : QString(),
                  text.look.Flag2 ? QStringLiteral(" flag 2") : QString()));
}

void RecordedPages::store(qint64, const PageLine& line) {
    m_rules.push_back(line);
    note(line.page, line.orientation,
         QStringLiteral("%1 - %2%3")
             .arg(place(line.x1, line.y1), -11)
             .arg(place(line.x2, line.y2))
             .arg(line.width == 1 ? QString() : QStringLiteral(" width %1").arg(line.width)));
}

void RecordedPages::note(qint64 page, Orientation orientation, const QString& item) {
    m_pageCount = std::max(m_pageCount, page);
    m_lines << QStringLiteral("%1 %2 %3")
                   .arg(page)
                   .arg(orientation == Orientation::Landscape ? QStringLiteral("landscape")
                                                              : QStringLiteral("portrait"))
                   .arg(item);
}

QString lineDifference(const QStringList& approved, const QStringList& drawn) {
    if (approved == drawn)
        return {};
    const auto [first, firstDrawn] =
        std::mismatch(approved.begin(), approved.end(), drawn.begin(), drawn.end());
    const auto [last, lastDrawn] = std::mismatch(approved.rbegin(), std::make_reverse_iterator(first),
                                                 drawn.rbegin(), std::make_reverse_iterator(firstDrawn));
    const qsizetype same = first - approved.begin();
    const qsizetype tail = last - approved.rbegin();
    QStringList report{QStringLiteral("line %1:").arg(same + 1)};
    if (same > 0)
        report << QStringLiteral("  ") + approved[same - 1];
    appendMarked(report, QLatin1Char('-'), approved.mid(same, approved.size() - same - tail));
    appendMarked(report, QLatin1Char('+'), drawn.mid(same, drawn.size() - same - tail));
    if (tail > 0)
        report << QStringLiteral("  ") + approved[approved.size() - tail];
    return report.join(u'\n');
}

void expectApproved(const RecordedPages& pages, const QString& name) {
    const QString path = approvedFile(name);
    if (qEnvironmentVariable("TARNWELL_APPROVE") == QStringLiteral("1")) {
        approve(pages.lines(), path);
        return;
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly))
        << "no approved pages " << path.toStdString() << "; drawn were\n"
        << pages.lines().join(u'\n').toStdString()
        << "\nIf that is right, approve it as described in CONTRIBUTING.md.";
    QStringList approved = QString::fromUtf8(file.readAll()).split(u'\n');
    approved.removeLast(); // Behind the last line's end there is none.
    const QString difference = lineDifference(approved, pages.lines());
    EXPECT_TRUE(difference.isEmpty())
        << name.toStdString() << " is not as approved (-), but (+), from " << difference.toStdString()
        << "\nIf that is right, approve it as described in CONTRIBUTING.md.";
}

} // namespace tarnwell::test
