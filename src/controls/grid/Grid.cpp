#include "controls/grid/Grid.h"

#include "controls/grid/GridAccessible.h"
#include "controls/grid/GridEditor.h"
#include "controls/grid/GridParts.h"
#include "data/recordset/Recordset.h"
#include "runtime/EventGuard.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>

namespace tarnwell {

Grid::Parts::Parts(Grid& owner)
    : grid(owner), model(new GridModel(&owner)),
      delegate(new GridDelegate(*model,
                                {.editorKey =
                                     [this](const QKeyEvent& event) {
                                         bool taken = true;
                                         runEvent([&] { taken = editorKey(event); });
                                         return taken;
                                     },
                                 .editorLeft = [this] { runEvent([this] { editorLeft(); }); }},
                                &owner)),
      rowHeader(new GridRowHeader(*model, &owner)), refusal(new QTimer(&owner)) {
    refusal->setSingleShot(true);
    connect(refusal, &QTimer::timeout, &owner, guarded([this] { finishEdit(Asked::ByUser); }));
}

Grid::Grid(QWidget* parent) : QTableView(parent), m(std::make_unique<Parts>(*this)) {
    setVerticalHeader(m->rowHeader);
    setModel(m->model);
    setItemDelegate(m->delegate);
    setSelectionMode(
        QAbstractItemView::NoSelection); // the current row is the selection; the delegate shows it
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setAlternatingRowColors(true);
    setShowGrid(false); // the delegate draws the lines
    setWordWrap(false);
    setCornerButtonEnabled(false);
    QHeaderView& header = *horizontalHeader();
    header.setSectionsClickable(false);
    header.setHighlightSections(false);
    header.setTextElideMode(Qt::ElideRight);
    header.setMinimumSectionSize(16);
    m->widths = new GridWidths(*this);
    verticalHeader()->setMinimumSectionSize(GridDelegate::rowHeight(*this));
    verticalHeader()->setDefaultSectionSize(GridDelegate::rowHeight(*this));
    connect(m->rowHeader, &GridRowHeader::rowPressed, this,
            guarded([this](int modelRow) { m->pressRow(modelRow); }));
}

Grid::~Grid() {
    m->delegate->forgetEditor(); // it outlives the parts, and still loses the focus
}

void Grid::setColumns(std::vector<GridColumn> columns) {
    if (columns == m->model->columns())
        return;
    m->abandonEdit();
    m->layoutPath.clear();
    m->model->setColumns(std::move(columns));
    m->widths->reset(m->model->columns());
    m->arrange();
}

const std::vector<GridColumn>& Grid::columns() const {
    return m->model->columns();
}

void Grid::setAllowAdd(bool allow, NewRowPosition position) {
    m->abandonEdit();
    m->model->setAllowAdd(allow, position);
    m->arrange();
}

void Grid::setHasOwner(bool has) {
    m->model->setHasOwner(has);
}

void Grid::setEmptyHint(EmptyHint hint) {
    m->emptyHint = std::move(hint);
}

void Grid::setAllowEdit(bool allow) {
    m->model->setAllowEdit(allow);
}

void Grid::setAllowDelete(bool allow) {
    m->allowDelete = allow;
}

void Grid::bind(Recordset* recordset) {
    bind(std::shared_ptr<Recordset>(std::shared_ptr<void>(), recordset)); // owned by the caller
}

void Grid::bind(std::shared_ptr<Recordset> recordset, const QString& list) {
    try {
        m->commit(Parts::Asked::ByProgram, Parts::Then::Leave);
    } catch (const RunTimeError&) {
        // A row that no longer exists can't be corrected: the new rows are shown, and the caller learns of
        // it.
        if (m->model->pending().isStale())
            m->showRows(std::move(recordset), 1, list);
        throw;
    }
    m->showRows(std::move(recordset), 1, list);
}

void Grid::Rebind() {
    const Recordset* rows = m->model->recordset();
    m->showRows(m->model->boundTo(), rows != nullptr ? rows->AbsolutePosition() : 1, m->shownList);
}

bool Grid::shows(const Recordset& rows) const {
    const Recordset* shown = m->model->recordset();
    if (shown == nullptr || shown->RecordCount() != rows.RecordCount())
        return false;
    for (int row = 1; rows.hasRow(row); ++row)
        for (int field = 0; field < rows.FieldCount(); ++field)
            if (shown->valueAt(row, field) != rows.valueAt(row, field))
                return false;
    return true;
}

bool Grid::showAgain(std::shared_ptr<Recordset> recordset, const QString& key) {
    return m->showAgain(std::move(recordset), key);
}

void Grid::LoadLayout(const QString& path) {
    // The same file again would only undo what the user has resized since.
    if (path == m->layoutPath)
        return;
    const std::optional<std::vector<LayoutColumn>> layout = readLayout(path);
    if (!layout)
        return;
    m->layoutPath = path;
    m->widths->apply(*layout, m->model->columns());
    m->arrange();
}

int Grid::RowCount() const {
    return m->model->recordCount();
}

int Grid::Row() const {
    return m->model->recordset() != nullptr ? m->rowNumber() : -1;
}

void Grid::setRow(int row) {
    const int modelRow = m->model->modelRowOf(row);
    if (modelRow >= 0 && m->model->recordset() != nullptr)
        m->goTo(modelRow, m->column > 0 ? m->column : m->startColumn(modelRow), Parts::Asked::ByProgram);
}

int Grid::Col() const {
    return m->model->recordset() != nullptr ? m->column : 0;
}

void Grid::setCol(int column) {
    if (m->row >= 0 && m->model->hasColumn(column) && isStop(m->model->column(column)))
        m->goTo(m->row, column, Parts::Asked::ByProgram);
}

int Grid::lastColumn() const {
    return m->endColumn(1);
}

Value Grid::value(int column) const {
    return m->model->cellValue(m->row, column);
}

Value Grid::value(const QString& key) const {
    return value(m->model->columnOf(key));
}

Value Grid::valueAt(int row, int column) const {
    return m->model->writtenValue(row, column);
}

void Grid::setValue(int column, const Value& value) {
    if (m->row < 0 || m->model->recordset() == nullptr)
        tarnwell::raise(Failure::NoCurrentRecord);
    m->beginRow();
    m->model->setPending(column, value);
}

bool Grid::isPending() const {
    return m->model->pending().isActive() || m->editorChanged();
}

void Grid::Update() {
    m->commit(Parts::Asked::ByProgram, Parts::Then::Stay);
}

bool Grid::UpdateOrTell() {
    return m->commit(Parts::Asked::ByUser, Parts::Then::Stay);
}

void Grid::CancelUpdate() {
    m->cancel();
}

void Grid::Delete() {
    m->deleteRow();
}

void Grid::setValueList(int column, std::vector<ListEntry> entries) {
    m->model->setValueList(column, std::move(entries));
}

void Grid::setTree(int column, TreeRule rule) {
    m->model->setTree(column, std::move(rule));
    viewport()->update();
}

QString Grid::columnTag(int column) const {
    return m->model->hasColumn(column) ? m->model->column(column).tag : QString();
}

void Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    runEvent([&] { m->followView(current); });
    if (currentIndex() != current)
        return; // the move was refused, or led elsewhere
    // The table's own would tell assistive tools of a place that counts the hidden columns.
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
    tellCurrentCell(*this);
}

void Grid::keyPressEvent(QKeyEvent* event) {
    runEvent([&] { event->setAccepted(m->pressKey(*event, false)); });
}

void Grid::inputMethodEvent(QInputMethodEvent* event) {
    runEvent([&] {
        if (m->beginTyping())
            QCoreApplication::sendEvent(lineOf(m->delegate->editor()), event);
        else
            event->ignore();
    });
}

void Grid::mousePressEvent(QMouseEvent* event) {
    runEvent([&] { m->press(*event); });
}

void Grid::mouseMoveEvent(QMouseEvent* event) {
    // Dragging over cells selects nothing and leaves no row.
    event->accept();
}

void Grid::mouseReleaseEvent(QMouseEvent* event) {
    runEvent([&] { m->release(*event); });
}

void Grid::mouseDoubleClickEvent(QMouseEvent* event) {
    runEvent([&] {
        m->press(*event);
        if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
            Q_EMIT doubleClick();
    });
}

void Grid::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    m->clickedInto = event->reason() == Qt::MouseFocusReason;
    m->repaintRow(m->row);
    // Behind the toolkit's own word, which is that the grid has the focus.
    if (QAccessible::isActive())
        QTimer::singleShot(0, this, guarded([this] { tellCurrentCell(*this); }));
}

void Grid::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    m->repaintRow(m->row);
}

void Grid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (m->model->rowCount() == 0)
        paintEmptyHint(*this, m->emptyHint);
}

void Grid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    m->widths->share();
}

void Grid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m->rowHeader->updateGeometry();
        verticalHeader()->setMinimumSectionSize(GridDelegate::rowHeight(*this));
        verticalHeader()->setDefaultSectionSize(GridDelegate::rowHeight(*this));
    }
}

Grid* editableGrid(QWidget* parent, std::vector<GridColumn> columns) {
    auto* grid = new Grid(parent);
    grid->setColumns(std::move(columns));
    grid->setAllowEdit(true);
    grid->setAllowAdd(true);
    grid->setAllowDelete(true);
    return grid;
}

} // namespace tarnwell
