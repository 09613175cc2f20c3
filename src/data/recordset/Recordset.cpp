#include "data/recordset/Recordset.h"

#include "data/engine/Engine.h"
#include "data/recordset/ColumnCoercion.h"
#include "data/recordset/RecordView.h"
#include "data/recordset/RowWriter.h"

#include <algorithm>

namespace tarnwell {

using data::ColumnChange;
using data::noRow;
using data::RowId;

struct Recordset::State_ {
    State_(std::shared_ptr<data::Engine> openEngine, std::shared_ptr<data::RowStore> store, bool isUpdatable)
        : engine(std::move(openEngine)), view(std::move(store)), updatable(isUpdatable) {}

    // The engine must outlive the rows, whose statements it prepared.
    std::shared_ptr<data::Engine> engine;
    data::RecordView view;
    bool updatable;
    CursorType cursor = CursorType::Static;
    QString filterText;
    int pageSize = 10;
    bool adding = false;
    std::vector<ColumnChange> pending; ///< What was set and is not written, each column once.

    [[nodiscard]] data::RowStore& store() const { return view.store(); }
    [[nodiscard]] const data::ResultColumns& columns() const { return store().columns(); }
    [[nodiscard]] bool isEditing() const { return adding || !pending.empty(); }

    [[nodiscard]] int columnNamed(const QString& name) const {
        const int column = columns().find(name);
        if (column < 0)
            raise(Failure::ItemNotFound, name);
        return column;
    }

    void requireColumn(int column) const {
        if (column < 0 || column >= columns().count())
            raise(Failure::ItemNotFound, QString::number(column));
    }

    void requireUpdatable() const {
        if (!updatable)
            raise(Failure::NotUpdatable);
    }

    [[nodiscard]] RowId readableRow() {
        const RowId row = view.current();
        if (row == noRow)
            raise(Failure::NoCurrentRecord);
        if (store().isDeleted(row))
            raise(Failure::RowDeleted);
        return row;
    }

    /// A row being added never became the view's current one, so forgetting it is all.
    void cancel() {
        adding = false;
        pending.clear();
    }

    void write() {
        if (!isEditing())
            return;
        data::RowWriter writer(store());
        if (adding)
            view.showAdded(writer.insert(pending));
        else
            writer.update(readableRow(), pending);
        cancel();
    }
};

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset::State_& Recordset::open() const {
    if (State() == ObjectState::Closed)
        raise(Failure::ObjectClosed);
    return *m_state;
}

void Recordset::Open(const QString& source, Connection& connection, CursorType cursor, LockType lock) {
    if (State() == ObjectState::Open)
        raise(Failure::ObjectOpen);
    m_state.reset(); // of a connection that was closed
    const std::shared_ptr<data::Engine>& engine = connection.sharedEngine();
    const data::Translation translation = engine->translate(source);
    if (translation.shape->kind != data::StatementKind::Select) {
        (void)engine->execute(translation);
        return;
    }
    const bool updatable = lock != LockType::ReadOnly && !translation.shape->keyTables.empty();
    auto store = std::make_shared<data::RowStore>(engine, translation, updatable, m_maxRecords);
    const bool writable = updatable && !store->columns().keyTables().empty();
    auto state = std::make_unique<State_>(engine, std::move(store), writable);
    state->cursor = cursor;
    // A fixed set begins now; a dynamic one begins when somebody looks.
    if (cursor != CursorType::Dynamic)
        (void)state->view.current();
    m_state = std::move(state);
}

void Recordset::setMaxRecords(int rows) {
    if (State() == ObjectState::Open)
        raise(Failure::ObjectOpen);
    if (rows < 0)
        raise(Failure::WrongArguments);
    m_maxRecords = rows;
}

void Recordset::Close() {
    (void)open();
    m_state.reset();
}

ObjectState Recordset::State() const {
    return m_state != nullptr && m_state->engine->isOpen() ? ObjectState::Open : ObjectState::Closed;
}

void Recordset::Requery() {
    State_& state = open();
    state.cancel();
    const data::Translation translation = state.store().translation();
    const bool withKeys = !state.columns().keyTables().empty();
    auto store = std::make_shared<data::RowStore>(state.engine, translation, withKeys, m_maxRecords);
    // Read before they take the place of the old ones: a grid that shows those goes on showing them when
    // reading raises.
    if (state.cursor != CursorType::Dynamic)
        (void)store->fetchedCount();
    state.view.setStore(std::move(store));
}

bool Recordset::atBeginning() const {
    return !open().adding && open().view.atBeginning();
}

bool Recordset::atEnd() const {
    return !open().adding && open().view.atEnd();
}

// Every move first writes what is pending; when that fails, the position stays.

void Recordset::MoveFirst() {
    open().write();
    m_state->view.moveFirst();
}

void Recordset::MoveLast() {
    open().write();
    m_state->view.moveLast();
}

void Recordset::MoveNext() {
    open().write();
    if (m_state->view.atEnd())
        raise(Failure::NoCurrentRecord);
    m_state->view.moveBy(1);
}

void Recordset::MovePrevious() {
    open().write();
    if (m_state->view.atBeginning())
        raise(Failure::NoCurrentRecord);
    m_state->view.moveBy(-1);
}

void Recordset::Move(int rows) {
    open().write();
    m_state->view.moveBy(rows);
}

int Recordset::RecordCount() const {
    return open().view.visibleCount();
}

int Recordset::AbsolutePosition() const {
    State_& state = open();
    const RowId row = state.view.current();
    if (state.adding || row == noRow || state.store().isDeleted(row))
        return -1;
    return state.view.currentIndex() + 1;
}

void Recordset::setAbsolutePosition(int position) {
    open().write();
    if (position < 1)
        raise(Failure::WrongArguments);
    m_state->view.moveTo(position - 1);
}

int Recordset::PageSize() const {
    return open().pageSize;
}

void Recordset::setPageSize(int rows) {
    if (rows < 1)
        raise(Failure::WrongArguments);
    open().pageSize = rows;
}

int Recordset::PageCount() const {
    return (RecordCount() + PageSize() - 1) / PageSize();
}

int Recordset::AbsolutePage() const {
    const int position = AbsolutePosition();
    return position < 0 ? -1 : (position - 1) / PageSize() + 1;
}

void Recordset::setAbsolutePage(int page) {
    if (page < 1 || page > PageCount())
        raise(Failure::WrongArguments);
    setAbsolutePosition((page - 1) * PageSize() + 1);
}

void Recordset::setFilter(const QString& criteria) {
    State_& state = open();
    state.write();
    state.view.setFilter(data::RecordFilter(criteria, state.columns()));
    state.filterText = criteria;
}

const QString& Recordset::Filter() const {
    return open().filterText;
}

void Recordset::Find(const QString& criteria, int skip, bool backward) {
    State_& state = open();
    state.write();
    const data::RecordFilter comparison(criteria, state.columns());
    if (!comparison.isSingle())
        raise(Failure::WrongArguments, criteria);
    if (state.view.current() == noRow)
        raise(Failure::NoCurrentRecord);
    const int step = backward ? -1 : 1;
    int index = state.view.currentIndex() + skip * step;
    for (RowId row = state.view.visibleAt(index); row != noRow; row = state.view.visibleAt(index)) {
        if (comparison.passes(state.store(), row))
            break;
        index += step;
    }
    state.view.moveTo(index);
}

Recordset Recordset::Clone() const {
    const State_& state = open();
    Recordset clone;
    clone.m_state = std::make_unique<State_>(state.engine, state.view.sharedStore(), state.updatable);
    clone.m_state->cursor = state.cursor;
    clone.m_state->pageSize = state.pageSize;
    clone.m_maxRecords = m_maxRecords;
    return clone;
}

int Recordset::FieldCount() const {
    return open().columns().count();
}

QString Recordset::FieldName(int index) const {
    open().requireColumn(index);
    return m_state->columns().at(index).name;
}

int Recordset::FieldIndex(const QString& name) const {
    return open().columns().find(name);
}

Value Recordset::field(const QString& name) const {
    return field(open().columnNamed(name));
}

Value Recordset::field(int index) const {
    State_& state = open();
    state.requireColumn(index);
    // What is set is read back before it is written, as the screens' own rules do.
    if (state.isEditing()) {
        const auto set = std::ranges::find(state.pending, index, &ColumnChange::column);
        if (set != state.pending.end())
            return set->value;
        if (state.adding)
            return {};
    }
    return state.store().value(state.readableRow(), index);
}

void Recordset::AddNew() {
    State_& state = open();
    state.requireUpdatable();
    state.write();
    state.adding = true;
}

void Recordset::set(const QString& name, const Value& value) {
    set(open().columnNamed(name), value);
}

void Recordset::set(int index, const Value& value) {
    State_& state = open();
    state.requireColumn(index);
    state.requireUpdatable();
    const data::ResultColumn& column = state.columns().at(index);
    if (state.columns().keyTableOf(index) == nullptr)
        raise(Failure::NotUpdatable, column.name);
    if (!state.adding)
        (void)state.readableRow();
    // Converted here, so that a wrong value fails where it is set and not at a later move.
    Value converted = data::coerced(value, *column.stored());
    const auto set = std::ranges::find(state.pending, index, &ColumnChange::column);
    if (set != state.pending.end())
        set->value = std::move(converted);
    else
        state.pending.push_back({index, std::move(converted)});
}

void Recordset::Update() {
    open().write();
}

void Recordset::CancelUpdate() {
    open().cancel();
}

bool Recordset::isEditing() const {
    return open().isEditing();
}

void Recordset::Delete() {
    State_& state = open();
    state.requireUpdatable();
    if (state.adding)
        raise(Failure::NotAllowed);
    data::RowWriter(state.store()).remove(state.readableRow());
    state.cancel();
}

Value Recordset::valueAt(int row, int column) const {
    State_& state = open();
    state.requireColumn(column);
    const RowId id = state.view.visibleAt(row - 1);
    return id == noRow ? Value() : state.store().value(id, column);
}

bool Recordset::hasRow(int row) const {
    return row > 0 && open().view.hasVisible(row - 1);
}

bool Recordset::isUpdatable() const {
    return open().updatable;
}

std::optional<Value> firstValue(Connection& connection, const QString& sql) {
    const std::shared_ptr<data::Engine>& engine = connection.sharedEngine();
    data::RowStore rows(engine, engine->translate(sql), false, 1);
    return rows.has(0) ? std::optional(rows.value(0, 0)) : std::nullopt;
}

} // namespace tarnwell
