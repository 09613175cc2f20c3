#pragma once

#include "controls/grid/GridColumn.h"
#include "controls/grid/GridLayout.h"

#include <QObject>
#include <QString>

#include <map>
#include <vector>

class QAction;
class QTableView;

namespace tarnwell {

/// Order and widths of a grid's columns: fixed ones keep their width (which grows with the font), the
/// others share what is left of the view; when none shares, the last one takes it. A fixed column whose texts
/// are longer takes what they need, as far as the sharing ones can spare it. A column that the user resizes
/// keeps that width from then on; with a name to remember it by also over later layouts and starts, until
/// "Standard column widths" is chosen from the headings' menu.
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
    /// The same for other rows: measures the texts of the first ones.
    void fitTexts();
    /// Takes over the widths that were dragged under this name ("frmJobs.jgTasks"), also at an earlier start,
    /// and keeps those that are dragged from here on.
    void rememberAs(const QString& name);

private:
    void sectionResized(int section, int oldSize, int newSize);
    void restoreStandard();
    /// The standard widths with the dragged ones over them, in the view.
    void overlay();
    void keep() const;
    void setWidth(int section, int width);
    [[nodiscard]] int widthOfTexts(int section) const;
    /// What the fixed columns take beyond their widths, of what `sharers` have left.
    [[nodiscard]] std::vector<int> widened(int left, const std::vector<int>& shown) const;
    /// From left to right.
    [[nodiscard]] std::vector<int> visibleSections() const;

    QTableView& m_view;
    QAction* m_standardAction;
    QString m_name;                   ///< Empty: nothing is remembered.
    std::vector<QString> m_keys;      ///< By section, as the widths are.
    std::vector<int> m_standard;      ///< Of the columns or the layout; 0 shares.
    std::vector<int> m_widths;        ///< In force; 0 shares.
    std::map<QString, int> m_dragged; ///< By key, for the usual size of text.
    std::vector<int> m_needs;         ///< By section: what its texts take. 0 where that does not count.
    std::vector<bool> m_holdsText, m_hasButton, m_isResized; ///< By section; the last one: by the user.
    bool m_sharing = false;
};

} // namespace tarnwell
