#pragma once

#include "reports/pages/PagePainter.h"
#include "reports/pages/PageStore.h"
#include "reports/preview/PreviewDocument.h"

#include <QPageLayout>

namespace tarnwell {

/// The pages of a stored report on the paper that they will be printed on.
class ReportDocument : public PreviewDocument {
public:
    /// US Letter until `setPaper`.
    explicit ReportDocument(const ReportPages& report);

    /// The printer's paper; the pages lie on it as the report wants it.
    void setPaper(QPageLayout paper);
    [[nodiscard]] QPageSize paper() const { return m_paper.pageSize(); }

    [[nodiscard]] int count() const override;
    [[nodiscard]] QSizeF paperSize() const override;
    [[nodiscard]] QString paperName() const override;
    /// A page that can't be read says so on its paper.
    void paint(QPainter& painter, int page) const override;
    [[nodiscard]] int hitsOn(int page, const PageSearch& search) const override;
    [[nodiscard]] std::vector<PageMark> marks(int page, const PageSearch& search) const override;

private:
    [[nodiscard]] QTransform ontoPaper() const;

    const ReportPages& m_report;
    Orientation m_orientation;
    QPageLayout m_paper;
    mutable PagePainter m_painter; ///< Keeps its fonts.
};

} // namespace tarnwell
