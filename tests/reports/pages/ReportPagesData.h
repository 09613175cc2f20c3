#pragma once

#include "reports/pages/PageStore.h"

#include <QDir>
#include <QTemporaryDir>

#include <functional>

namespace tarnwell::test {

/// A report in a report database of its own, in a temporary folder.
class ReportPagesData {
public:
    /// Draws on each page from 1 to `pages`.
    ReportPagesData(qint64 pages, const std::function<void(PageStore&, qint64 key, qint64 page)>& draw)
        : m_store(pathOf("Report.mdb")), m_key(m_store.newReport()) {
        for (qint64 page = 1; page <= pages; ++page)
            draw(m_store, m_key, page);
        m_store.finish(m_key);
    }

    [[nodiscard]] QString pathOf(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    /// What lies in the folder besides the report database.
    [[nodiscard]] QStringList files() const {
        QStringList names = QDir(m_folder.path()).entryList(QDir::Files);
        names.removeIf([](const QString& name) { return name.startsWith(QLatin1String("Report.mdb")); });
        return names;
    }
    [[nodiscard]] ReportPages report() const { return {m_store, m_key}; }

private:
    QTemporaryDir m_folder;
    PageStore m_store;
    qint64 m_key;
};

/// A header as the reports have it, and as many lines below it as the page's number.
inline void drawNumberedPage(PageStore& store, qint64 key, qint64 page, Orientation orientation) {
    const QString number = QString::number(page);
    const TextLook header{.FontName = QStringLiteral("Arial")};
    store.add(key, PageText{4200, 800, QStringLiteral("Budget%1").arg(number), page, orientation, header});
    store.add(key, PageText{9800,
                            800,
                            QStringLiteral("Page:%1 of").arg(number),
                            page,
                            orientation,
                            {.FontName = QStringLiteral("Arial"), .PageTotal = true}});
    store.add(key, PageLine{500, 1100, 11100, 1100, page, orientation});
    for (qint64 row = 1; row <= page; ++row)
        store.add(key, PageText{700,
                                static_cast<qint16>(1100 + row * 240),
                                QStringLiteral("Row%1-%2").arg(number).arg(row),
                                page,
                                orientation,
                                {.Bold = row % 2 == 0, .FontSize = 8}});
}

class NumberedReport : public ReportPagesData {
public:
    explicit NumberedReport(qint64 pages, Orientation orientation = Orientation::Portrait)
        : ReportPagesData(pages, [orientation](PageStore& store, qint64 key, qint64 page) {
              drawNumberedPage(store, key, page, orientation);
          }) {}
};

} // namespace tarnwell::test
