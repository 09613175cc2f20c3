#pragma once

#include "reports/drawing/PageSurface.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace tarnwell::test {

/// A surface that keeps what is drawn on it as readable lines, one an item, in the order of drawing:
///
///     1 landscape 500,900       bold 8    "Job: 1001"
///     1 landscape 13600,300     10 Arial  "Page:1 of" + total
///     1 landscape 500,600     - 14800,600 width 3
class RecordedPages : public PageSurface {
public:
    qint64 NewReport() override { return ++m_reports; }

    /// What was drawn, all pages.
    [[nodiscard]] const QStringList& lines() const { return m_lines; }
    /// The texts alone, of one page or (0) of all.
    [[nodiscard]] QStringList texts(qint64 page = 0) const;
    [[nodiscard]] const std::vector<PageText>& textItems() const { return m_texts; }
    [[nodiscard]] const std::vector<PageLine>& lineItems() const { return m_rules; }
    /// The last page with something on it; 0 for none.
    [[nodiscard]] qint64 pageCount() const { return m_pageCount; }

protected:
    void store(qint64 reportKey, const PageText& text) override;
    void store(qint64 reportKey, const PageLine& line) override;

private:
    void note(qint64 page, Orientation orientation, const QString& item);

    QStringList m_lines;
    std::vector<PageText> m_texts;
    std::vector<PageLine> m_rules;
    qint64 m_pageCount = 0;
    qint64 m_reports = 0;
};

/// Compares the pages with tests/reports/drawing/approved/<name>.txt. A missing or different file fails the
/// test and shows the difference. With TARNWELL_APPROVE=1 in the environment the file is written instead.
void expectApproved(const RecordedPages& pages, const QString& name);

/// The lines that differ, "-" before what was approved and "+" before what is drawn, between the lines around
/// them. Empty when nothing differs.
[[nodiscard]] QString lineDifference(const QStringList& approved, const QStringList& drawn);

} // namespace tarnwell::test
