#include "GridFixture.h"

#include "runtime/modGlobalVariables.h"

namespace tarnwell::test {

namespace {

std::vector<GridColumn> taskColumns() {
    const std::vector<ListEntry> noYes{{.value = "N", .text = "N"}, {.value = "Y", .text = "Y"}};
    return {
        {.key = "JobLotTaskKey", .caption = "JobLotTaskKey", .visible = false},
        {.key = "JobLotKey", .caption = "JobLotKey", .visible = false},
        {.key = "CodeKey", .caption = "CodeKey", .visible = false},
        {.key = "AddOnButton", .edit = ColumnEdit::ButtonOnly, .width = 28},
        {.key = "Name", .caption = "Name", .maxLength = 12},
        {.key = "MasterPrice", .caption = "Price", .format = ColumnFormat::Fixed, .width = 80},
        {.key = "CustomTask",
         .caption = "Custom",
         .edit = ColumnEdit::ValueList,
         .width = 60,
         .valueList = noYes},
        {.key = "ExcludeDependency",
         .caption = "Exclude",
         .format = ColumnFormat::YesNo,
         .edit = ColumnEdit::CheckBox,
         .width = 60,
         .defaultValue = 0},
        {.key = "StartDate", .caption = "Start", .format = ColumnFormat::GeneralDate, .width = 120},
        {.key = "EmployeeKey", .caption = "Employee", .edit = ColumnEdit::ValueList, .width = 140},
    };
}

} // namespace

GridTest::GridTest() : before(new QLineEdit), grid(new Grid), after(new QLineEdit) {
    gProgramFolder = database.folder() + u'/'; // the error log goes there
    const qint64 builder = database.add("Contractor", {{"Name", "Builder"}});
    const qint64 job = database.add("Job", {{"ContractorKey", builder}, {"JobNumber", "1"}});
    lot = database.add("JobLot", {{"JobKey", job}, {"LotBlock", "1/1"}});
    double price = 0;
    for (const char* name : {"Brick", "Frame", "Paint"})
        keys.push_back(database.add("JobLotTask", {{"JobLotKey", lot},
                                                   {"CodeKey", 3},
                                                   {"Name", name},
                                                   {"MasterPrice", price += 10},
                                                   {"CustomTask", "N"}}));
    auto* layout = new QVBoxLayout;
    window.setLayout(layout);
    for (QWidget* each : std::initializer_list<QWidget*>{before, grid, after})
        layout->addWidget(each);
    window.resize(800, 300);
    before->setObjectName("before");
    grid->setObjectName("jgTasks");
    after->setObjectName("after");
    grid->setColumns(taskColumns());
    grid->setValueList(Employee, {{.value = 4, .text = "Smith\\Ann"}, {.value = 5, .text = "Stone\\Bo"}});

    const auto note = [this](const QString& event) { log << event; };
    QObject::connect(grid, &Grid::beforeUpdate, grid, [this, note](bool&) {
        note(QStringLiteral("before %1").arg(grid->value(Name).toText()));
        if (grid->value(Lot).isNoKey()) {
            grid->setValue(Lot, lot);
            grid->setValue(Category, 3);
        }
    });
    QObject::connect(grid, &Grid::afterUpdate, grid, [this, note] {
        note(QStringLiteral("after %1 %2")
                 .arg(grid->value(Name).toText(), grid->value(Key).isEmpty() ? "new" : "old"));
    });
    QObject::connect(grid, &Grid::afterColUpdate, grid,
                     [note](int column) { note(QStringLiteral("column %1").arg(column)); });
    QObject::connect(grid, &Grid::rowColChange, grid, [this, note](int lastRow, int lastCol) {
        note(QStringLiteral("%1,%2 to %3,%4").arg(lastRow).arg(lastCol).arg(grid->Row()).arg(grid->Col()));
    });
    QObject::connect(grid, &Grid::buttonClick, grid,
                     [note](int column) { note(QStringLiteral("button %1").arg(column)); });
}

void GridTest::open(const QString& where) {
    if (rows.State() == ObjectState::Open)
        rows.Close();
    rows.Open("SELECT * FROM JobLotTask WHERE " + where + " ORDER BY Name", database.connection(),
              CursorType::Static, LockType::Optimistic);
}

void GridTest::start(NewRowPosition position) {
    grid->setAllowAdd(true, position);
    grid->setAllowDelete(true);
    open();
    driver = std::make_unique<ScreenDriver>(window);
    grid->bind(&rows);
    grid->setFocus();
    grid->setCol(Name);
    log.clear();
}

QRect GridTest::cell(int row, int column) const {
    return grid->visualRect(grid->model()->index(row - 1, column - 1));
}

void GridTest::clickCell(int row, int column) {
    driver->click("jgTasks", cell(row, column).center());
}

QString GridTest::shown(int row, int column) const {
    return grid->model()->index(row - 1, column - 1).data().toString();
}

QString GridTest::stored(const QString& column, qint64 key) {
    const Value value =
        database.ask(QStringLiteral("SELECT %1 FROM JobLotTask WHERE JobLotTaskKey=%2").arg(column).arg(key));
    return value.isNull() ? QStringLiteral("Null") : value.toText();
}

} // namespace tarnwell::test
