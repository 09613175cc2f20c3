#pragma once

#include "controls/grid/GridColumn.h"
#include "controls/grid/GridLayout.h"

#include <QObject>

#include <vector>

class QTableView;

namespace tarnwell {

/// Order and widths of a grid's columns: fixed ones keep their width (which grows with the font), the
/// others share what is left of the view; when none shares, the last one takes it. A column that the user
/// resizes is fixed from then on.
class GridWidths : public QObject {
    Q_OBJECT

public:
    explicit GridWidths(QTableView& view);

    /// The columns' own order and widths.
    void reset(const std::vector<GridColumn>& columns);
    /// A layout's order and widths; columns that it does not name follow in their own order.
    void apply(const std::vector<LayoutColumn>& layout, const std::vector<GridColumn>& columns);
    /// Fits the columns into the view's present width.
    void share();

private:
    void sectionResized(int section, int oldSize, int newSize);
    void setWidth(int section, int width);
    /// From left to right.
    [[nodiscard]] std::vector<int> visibleSections() const;

    QTableView& m_view;
    std::vector<int> m_widths; ///< By section; 0 shares.
    bool m_sharing = false;
};

} // namespace tarnwell
