#include "controls/grid/GridModel.h"

#include "data/recordset/Recordset.h"

#include <algorithm>

namespace tarnwell {

GridModel::GridModel(QObject* parent) : QAbstractTableModel(parent) {}
GridModel::~GridModel() = default;

void GridModel::setColumns(std::vector<GridColumn> columns) {
    const int count = countRows(recordset());
    beginResetModel();
    m_columns = std::move(columns);
    m_lists.clear();
    m_lists.resize(m_columns.size());
    takeRows(count);
    endResetModel();
}

int GridModel::columnOf(const QString& key) const {
    const auto found = std::find_if(m_columns.begin(), m_columns.end(), [&](const GridColumn& each) {
        return each.key.compare(key, Qt::CaseInsensitive) == 0;
    });
    return found != m_columns.end() ? static_cast<int>(found - m_columns.begin()) + 1 : 0;
}

void GridModel::setValueList(int column, std::vector<ListEntry> entries) {
    if (!hasColumn(column))
        return;
    const auto at = static_cast<std::size_t>(column - 1);
    m_columns[at].valueList = std::move(entries);
    m_lists[at].reset();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, column - 1), index(rowCount() - 1, column - 1));
}

const ValueListIndex& GridModel::valueList(int column) const {
    auto& list = m_lists[static_cast<std::size_t>(column - 1)];
    if (list == nullptr)
        list = std::make_unique<ValueListIndex>(this->column(column).valueList);
    return *list;
}

void GridModel::setTree(int column, TreeRule rule) {
    m_treeColumn = column;
    m_tree = std::move(rule);
}

TreeLevel GridModel::treeLevel(int modelRow, int column) const {
    if (!m_tree || column != m_treeColumn || modelRow < 0 || modelRow >= rowCount())
        return TreeLevel::Plain;
    return m_tree([this, modelRow](int of) { return cellValue(modelRow, of); });
}

void GridModel::setAllowAdd(bool allow, NewRowPosition position) {
    const int count = countRows(recordset());
    beginResetModel();
    m_allowAdd = allow;
    m_position = position;
    takeRows(count);
    endResetModel();
}

bool GridModel::takesEdits() const {
    return recordset() != nullptr && (m_allowEdit || m_allowAdd);
}

bool GridModel::isEditable(int modelRow, int column) const {
    if (!hasColumn(column) || modelRow < 0 || recordset() == nullptr ||
        m_fields[static_cast<std::size_t>(column - 1)] < 0)
        return false;
    const GridColumn& described = this->column(column);
    if (described.edit == ColumnEdit::None || !(modelRow == newRowLine() ? m_allowAdd : m_allowEdit))
        return false;
    return takesText(described) || showsCheckBox(described);
}

void GridModel::bind(std::shared_ptr<Recordset> recordset) {
    const int count = countRows(recordset.get());
    beginResetModel();
    m_recordset.swap(recordset); // the former rows live on until the views have let go of them
    takeRows(count);
    endResetModel();
}

int GridModel::countRows(const Recordset* rows) {
    return rows != nullptr && rows->State() == ObjectState::Open ? rows->RecordCount() : 0;
}

void GridModel::takeRows(int count) {
    m_pending.clear();
    const Recordset* rows = recordset();
    m_count = count;
    m_line = m_allowAdd && m_hasOwner && rows != nullptr;
    m_fields.assign(m_columns.size(), -1);
    for (std::size_t i = 0; rows != nullptr && i < m_columns.size(); ++i) {
        if (!m_columns[i].key.isEmpty())
            m_fields[i] = rows->FieldIndex(m_columns[i].key);
    }
}

Recordset* GridModel::recordset() const {
    return m_recordset != nullptr && m_recordset->State() == ObjectState::Open ? m_recordset.get() : nullptr;
}

int GridModel::recordCount() const {
    return recordset() != nullptr ? m_count : 0;
}

int GridModel::newRowLine() const {
    if (!m_line)
        return -1;
    return m_position == NewRowPosition::First ? 0 : m_count;
}

int GridModel::numberOf(int modelRow) const {
    if (modelRow < 0 || modelRow >= rowCount())
        return -1;
    return modelRow == newRowLine() ? m_count + 1 : modelRow + 1 - rowsBefore();
}

int GridModel::modelRowOf(int number) const {
    if (number == m_count + 1)
        return newRowLine();
    return number >= 1 && number <= m_count ? number - 1 + rowsBefore() : -1;
}

int GridModel::pendingLine() const {
    if (!m_pending.isActive())
        return -1;
    return m_pending.isNew() ? newRowLine() : modelRowOf(m_pending.number());
}

Value GridModel::cellValue(int modelRow, int column) const {
    if (!hasColumn(column) || modelRow < 0)
        return {};
    if (m_pending.isActive() && modelRow == pendingLine()) {
        if (const Value* set = m_pending.find(column))
            return *set;
    }
    return modelRow == newRowLine() ? Value() : writtenValue(numberOf(modelRow), column);
}

Value GridModel::writtenValue(int number, int column) const {
    const Recordset* rows = recordset();
    if (rows == nullptr || !hasColumn(column) || number < 1)
        return {};
    const int field = m_fields[static_cast<std::size_t>(column - 1)];
    // The recordset may have been opened anew behind us, with fewer columns or rows.
    if (field < 0 || field >= rows->FieldCount() || !rows->hasRow(number))
        return {};
    return rows->valueAt(number, field);
}

QString GridModel::editText(int modelRow, int column) const {
    return tarnwell::editText(this->column(column), valueList(column), cellValue(modelRow, column));
}

int GridModel::entryOf(int modelRow, int column) const {
    const std::vector<ListEntry>& entries = this->column(column).valueList;
    const ListEntry* entry = valueList(column).find(cellValue(modelRow, column));
    return entry != nullptr ? static_cast<int>(entry - entries.data()) : -1;
}

void GridModel::beginPending(int modelRow) {
    if (modelRow == newRowLine())
        m_pending.beginNew(m_columns);
    else
        m_pending.beginExisting(numberOf(modelRow), *m_recordset);
    refreshRow(modelRow);
}

void GridModel::setPending(int column, const Value& value) {
    m_pending.set(column, value);
    refreshRow(pendingLine());
}

void GridModel::dropPending() {
    const int line = pendingLine();
    m_pending.clear();
    refreshRow(line);
}

void GridModel::writePending() {
    m_pending.writeTo(*m_recordset, m_fields);
}

int GridModel::settlePending() {
    const bool added = m_pending.isNew();
    const int line = pendingLine();
    if (!added) {
        dropPending();
        return line;
    }
    const int position = m_recordset->AbsolutePosition();
    m_pending.clear();
    if (m_recordset->RecordCount() != m_count + 1 || position < 1)
        return -1;
    const int modelRow = position - 1 + rowsBefore();
    beginInsertRows({}, modelRow, modelRow);
    ++m_count;
    endInsertRows();
    refreshRow(newRowLine());
    return modelRow;
}

void GridModel::deleteStored(int number) {
    Recordset& rows = *m_recordset;
    rows.setAbsolutePosition(number);
    rows.Delete();
    if (!rows.atEnd())
        rows.MoveNext();
}

void GridModel::removeRow(int number) {
    const int modelRow = modelRowOf(number);
    beginRemoveRows({}, modelRow, modelRow);
    --m_count;
    endRemoveRows();
}

void GridModel::refreshRow(int modelRow) {
    if (modelRow < 0 || modelRow >= rowCount() || m_columns.empty())
        return;
    Q_EMIT dataChanged(index(modelRow, 0), index(modelRow, columnCount() - 1));
    Q_EMIT headerDataChanged(Qt::Vertical, modelRow, modelRow);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_count + (m_line ? 1 : 0);
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const int number = index.column() + 1;
    const GridColumn& described = column(number);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cellText(described, valueList(number), cellValue(index.row(), number));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(
            Qt::AlignVCenter | (described.format == ColumnFormat::Fixed ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::CheckStateRole:
        if (!showsCheckBox(described))
            return {};
        return isYes(cellValue(index.row(), number)) ? Qt::Checked : Qt::Unchecked;
    case Qt::AccessibleDescriptionRole:
        switch (treeLevel(index.row(), number)) {
        case TreeLevel::Parent:
            return tr("Has rows below it");
        case TreeLevel::Child:
            return tr("Belongs to a row above");
        default:
            return {};
        }
    case Qt::AccessibleTextRole:
        if (!showsCheckBox(described))
            return {};
        return isYes(cellValue(index.row(), number)) ? tr("Yes") : tr("No");
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical || !hasColumn(section + 1))
        return {};
    const GridColumn& described = column(section + 1);
    switch (role) {
    case Qt::DisplayRole:
        return described.caption;
    case Qt::ToolTipRole:
        return described.headerToolTip.isEmpty() ? QVariant() : described.headerToolTip;
    case Qt::TextAlignmentRole:
        if (showsCheckBox(described))
            return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
        return QVariant::fromValue(
            Qt::AlignVCenter | (described.format == ColumnFormat::Fixed ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    const GridColumn& described = column(index.column() + 1);
    if (isEditable(index.row(), index.column() + 1))
        flags |= showsCheckBox(described) ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
    return flags;
}

} // namespace tarnwell
