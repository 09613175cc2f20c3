#pragma once

#include <QHeaderView>

namespace tarnwell {

class GridModel;

/// The narrow margin left of a grid's rows: an arrow at the current row, a pencil while it is being edited,
/// an asterisk at the new-row line.
class GridRowHeader : public QHeaderView {
    Q_OBJECT

public:
    GridRowHeader(const GridModel& model, QWidget* parent);

    void setCurrentRow(int modelRow);
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void rowPressed(int modelRow);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int row) const override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const GridModel& m_model;
    int m_currentRow = -1;
};

} // namespace tarnwell
