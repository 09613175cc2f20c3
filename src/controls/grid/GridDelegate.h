#pragma once

#include "controls/grid/GridColumn.h"

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

class QKeyEvent;

namespace tarnwell {

class GridModel;

/// Draws a grid's cells and makes their editors. What a key or a lost focus in the editor means is the
/// grid's to say.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    struct Handlers {
        /// A key in the open editor; true when the grid took it.
        std::function<bool(const QKeyEvent&)> editorKey;
        /// The focus went from the editor to another control.
        std::function<void()> editorLeft;
    };
    GridDelegate(const GridModel& model, Handlers handlers, QObject* parent);

    /// The cell drawn as the current one, -1 for none.
    void setCurrent(int modelRow, int modelColumn) {
        m_currentRow = modelRow;
        m_currentColumn = modelColumn;
    }
    /// The column of the new-row line that shows where to type, -1 for none.
    void setHintColumn(int modelColumn) { m_hintColumn = modelColumn; }
    /// The button drawn as held down.
    void setPressed(const QModelIndex& index) { m_pressed = index; }
    /// The open editor, or null.
    [[nodiscard]] QWidget* editor() const { return m_editor; }
    /// The editor is about to be closed: its events are ignored from here on.
    void forgetEditor() { m_editor = nullptr; }
    /// The open editor stands on another text or list entry than it was opened with.
    [[nodiscard]] bool isEdited() const;

    /// Where a cell's button or a list's arrow is drawn; empty when the column has none.
    [[nodiscard]] static QRect buttonRect(const GridColumn& column, const QRect& cell);
    /// Where a check box takes a click.
    [[nodiscard]] static QRect checkBoxRect(const QRect& cell);
    /// Space for one line of text.
    [[nodiscard]] static int rowHeight(const QWidget& view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paintBackground(QPainter& painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const;
    void paintFrame(QPainter& painter, const QStyleOptionViewItem& option) const;
    void paintCheckBox(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    /// The cell is the current one and opens a list.
    [[nodiscard]] bool offersList(const QModelIndex& index) const;
    [[nodiscard]] QRect textRect(const QRect& cell, const QModelIndex& index) const;
    [[nodiscard]] TreeLevel levelOf(const QModelIndex& index) const;
    [[nodiscard]] QFont fontOf(const QFont& usual, const QModelIndex& index) const;
    void paintBranch(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintButton(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const GridModel& m_model;
    Handlers m_handlers;
    int m_currentRow = -1;
    int m_currentColumn = -1;
    int m_hintColumn = -1;
    QPersistentModelIndex m_pressed;
    mutable QPointer<QWidget> m_editor; ///< The toolkit asks for editors through const calls.
    mutable QString m_textBefore;       ///< What the editor showed when it was opened.
    mutable int m_entryBefore = -1;
};

} // namespace tarnwell
