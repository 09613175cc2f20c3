#include "controls/grid/GridDelegate.h"

#include "controls/grid/GridEditor.h"
#include "controls/grid/GridModel.h"
#include "look/Contrast.h"
#include "look/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int textMargin = 5;
constexpr int leastButton = 20, leastBranch = 18;
constexpr double activeShade = 0.30, quietShade = 0.14, quietShadeOnDark = 0.22, quietFrame = 0.55,
                 gridLine = 0.15, strongLine = 0.5, boxLine = 0.45, branchLine = 0.5;

/// Buttons and branches grow with the rows, and so with the font.
int buttonWidth(const QRect& cell) {
    return std::max(leastButton, cell.height());
}

/// By which a child's text is indented.
int branchWidth(const QRect& cell) {
    return std::max(leastBranch, cell.height() - (leastButton - leastBranch));
}

QColor baseColor(const QStyleOptionViewItem& option) {
    const bool alternate = option.features.testFlag(QStyleOptionViewItem::Alternate);
    return option.palette.color(alternate ? QPalette::AlternateBase : QPalette::Base);
}

/// The view has the focus, itself or through an open editor.
bool isActive(const QStyleOptionViewItem& option) {
    const QWidget* focus = QApplication::focusWidget();
    return option.widget != nullptr && focus != nullptr &&
           (option.widget == focus || option.widget->isAncestorOf(focus));
}

/// How much of the highlight is in the current row. A dark base swallows a shade that a light one shows.
double currentShade(const QStyleOptionViewItem& option) {
    if (isActive(option))
        return activeShade;
    return isDark(baseColor(option)) ? quietShadeOnDark : quietShade;
}

QStyle& styleOf(const QStyleOptionViewItem& option) {
    return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

} // namespace

GridDelegate::GridDelegate(const GridModel& model, Handlers handlers, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model), m_handlers(std::move(handlers)) {}

QRect GridDelegate::buttonRect(const GridColumn& column, const QRect& cell) {
    if (!hasButton(column) && column.edit != ColumnEdit::ValueList)
        return {};
    const QRect inside = cell.adjusted(1, 1, -1, -1);
    if (column.edit == ColumnEdit::ButtonOnly)
        return inside;
    const int width = buttonWidth(cell);
    return {inside.right() - width + 1, inside.top(), width, inside.height()};
}

QRect GridDelegate::checkBoxRect(const QRect& cell) {
    QRect rect(0, 0, cell.height(), cell.height());
    rect.moveCenter(cell.center());
    return rect & cell;
}

int GridDelegate::rowHeight(const QWidget& view) {
    return std::max(view.fontMetrics().height() + 6,
                    view.style()->pixelMetric(QStyle::PM_IndicatorHeight) + 6);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const GridColumn& column = m_model.column(index.column() + 1);
    painter->save();
    paintBackground(*painter, option, index);
    if (showsCheckBox(column))
        paintCheckBox(*painter, option, index);
    else
        paintText(*painter, option, index);
    if (hasButton(column) || offersList(index))
        paintButton(*painter, option, index);
    if (index.row() == m_currentRow && index.column() == m_currentColumn)
        paintFrame(*painter, option);
    painter->restore();
}

void GridDelegate::paintBackground(QPainter& painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    QColor color = baseColor(option);
    if (index.row() == m_currentRow)
        color = mixed(color, markColor(option.palette), currentShade(option));
    painter.fillRect(option.rect, color);
    // The styles' own lines can't be seen on a dark base.
    painter.setPen(mixed(option.palette.color(QPalette::Base), option.palette.color(QPalette::Text),
                         isHighContrast(option.palette) ? strongLine : gridLine));
    painter.drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

void GridDelegate::paintFrame(QPainter& painter, const QStyleOptionViewItem& option) const {
    const QColor highlight = markColor(option.palette);
    painter.setPen(isActive(option) ? QPen(highlight, 2)
                                    : QPen(mixed(baseColor(option), highlight, quietFrame), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(isActive(option) ? option.rect.adjusted(1, 1, -1, -1)
                                      : option.rect.adjusted(0, 0, -1, -1));
}

void GridDelegate::paintCheckBox(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    QStyle& style = styleOf(option);
    QStyleOptionViewItem box = option;
    const bool on = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    box.state |= on ? QStyle::State_On : QStyle::State_Off;
    box.state &= ~QStyle::State_HasFocus;
    box.rect = QRect(0, 0, style.pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
    box.rect.moveCenter(option.rect.center());
    style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
    painter.setPen(mixed(baseColor(option), option.palette.color(QPalette::Text), boxLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
}

void GridDelegate::paintButton(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const GridColumn& column = m_model.column(index.column() + 1);
    QStyle& style = styleOf(option);
    QStyleOptionButton button;
    button.rect = buttonRect(column, option.rect);
    button.palette = option.palette;
    button.fontMetrics = option.fontMetrics;
    button.state = (option.state & QStyle::State_Enabled) |
                   (m_pressed == index ? QStyle::State_Sunken : QStyle::State_Raised);
    if (column.edit == ColumnEdit::ButtonOnly) {
        button.text = QChar(0x2026);
        style.drawControl(QStyle::CE_PushButton, &button, &painter, option.widget);
        return;
    }
    if (index.row() == m_currentRow)
        style.drawPrimitive(QStyle::PE_PanelButtonCommand, &button, &painter, option.widget);
    QStyleOption arrow = button;
    const int side = std::min(button.rect.height(), button.rect.width()) - 8;
    arrow.rect = QRect(0, 0, side, side);
    arrow.rect.moveCenter(button.rect.center());
    style.drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, option.widget);
}

bool GridDelegate::offersList(const QModelIndex& index) const {
    return index.row() == m_currentRow && index.column() == m_currentColumn &&
           m_model.column(index.column() + 1).edit == ColumnEdit::ValueList &&
           m_model.isEditable(index.row(), index.column() + 1);
}

QRect GridDelegate::textRect(const QRect& cell, const QModelIndex& index) const {
    QRect rect = cell.adjusted(textMargin, 0, -textMargin, 0);
    if (levelOf(index) == TreeLevel::Child)
        rect.setLeft(cell.left() + branchWidth(cell));
    if (offersList(index) || m_model.column(index.column() + 1).edit == ColumnEdit::TextWithButton)
        rect.setRight(cell.right() - buttonWidth(cell) - 1);
    return rect;
}

TreeLevel GridDelegate::levelOf(const QModelIndex& index) const {
    return m_model.treeLevel(index.row(), index.column() + 1);
}

QFont GridDelegate::fontOf(const QFont& usual, const QModelIndex& index) const {
    QFont font = usual;
    if (levelOf(index) == TreeLevel::Parent)
        font.setBold(true);
    return font;
}

/// From the middle of the cell up, and on down where another child follows.
void GridDelegate::paintBranch(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    if (levelOf(index) != TreeLevel::Child)
        return;
    const QRect& cell = option.rect;
    const int stem = cell.left() + branchWidth(cell) / 2;
    const int middle = cell.center().y();
    const bool last = m_model.treeLevel(index.row() + 1, index.column() + 1) != TreeLevel::Child;
    painter.setPen(mixed(baseColor(option), option.palette.color(QPalette::Text), branchLine));
    painter.drawLine(stem, cell.top(), stem, last ? middle : cell.bottom());
    painter.drawLine(stem, middle, cell.left() + branchWidth(cell) - textMargin, middle);
}

void GridDelegate::paintText(QPainter& painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    paintBranch(painter, option, index);
    const QRect rect = textRect(option.rect, index);
    QString text = index.data(Qt::DisplayRole).toString();
    QPalette::ColorRole role = QPalette::Text;
    if (text.isEmpty() && index.column() == m_hintColumn && index.row() == m_model.newRowLine() &&
        !m_model.pending().isNew()) {
        text = tr("Type here to add");
        role = QPalette::PlaceholderText;
    }
    if (text.isEmpty())
        return;
    painter.setPen(option.palette.color(role));
    const QFont font = fontOf(option.font, index);
    painter.setFont(font);
    const int alignment = index.data(Qt::TextAlignmentRole).toInt();
    painter.drawText(rect, alignment | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(text, Qt::ElideRight, rect.width()));
}

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
    m_editor = makeCellEditor(m_model.column(index.column() + 1), parent);
    return m_editor;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const int column = index.column() + 1;
    setEditorText(editor, m_model.editText(index.row(), column), m_model.entryOf(index.row(), column));
    m_textBefore = lineOf(editor)->text();
    m_entryBefore = chosenEntry(editor);
}

bool GridDelegate::isEdited() const {
    return m_editor != nullptr &&
           (lineOf(m_editor)->text() != m_textBefore || chosenEntry(m_editor) != m_entryBefore);
}

void GridDelegate::setModelData(QWidget* /*editor*/, QAbstractItemModel* /*model*/,
                                const QModelIndex& /*index*/) const {
    // The grid takes the editor's text itself, since it may have to refuse it.
}

void GridDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    if (editor == m_editor)
        m_editor = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

void GridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
    QRect rect = option.rect.adjusted(2, 2, -2, -2);
    if (levelOf(index) == TreeLevel::Child)
        rect.setLeft(option.rect.left() + branchWidth(option.rect));
    if (m_model.column(index.column() + 1).edit == ColumnEdit::TextWithButton)
        rect.setRight(option.rect.right() - buttonWidth(option.rect) - 1);
    editor->setGeometry(rect);
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data(Qt::DisplayRole).toString();
    const QRect rect = textRect(option.rect, index);
    if (QFontMetrics(fontOf(view->font(), index)).horizontalAdvance(text) <= rect.width())
        return false; // the whole text is on show: the grid's own tool tip may come
    QToolTip::showText(event->globalPos(), text, view, option.rect);
    return true;
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_editor)
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Escape && key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        event->accept(); // or a dialog's own buttons would take the key
        return true;
    }
    case QEvent::KeyPress:
        return m_handlers.editorKey(*static_cast<QKeyEvent*>(event));
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
            reason != Qt::MenuBarFocusReason && !isInEditor(QApplication::focusWidget(), m_editor))
            m_handlers.editorLeft();
        return false;
    }
    default:
        return false;
    }
}

} // namespace tarnwell
