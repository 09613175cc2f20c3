#include "GridFixture.h"
#include "runtime/modGeneral.h"
#include "support/RaisedNumber.h"

#include <QApplication>
#include <QComboBox>

namespace tarnwell::test {

TEST_F(GridTest, ANewRowIsWrittenWhenItIsLeftAndTellsItsEventsInOrder) {
    start();
    driver->press(Qt::Key_Insert);
    driver->type("Roof");
    driver->press(Qt::Key_Tab);
    driver->type("12.5");
    driver->press(Qt::Key_Up);
    EXPECT_EQ(takeLog(), QStringList({"1,5 to 4,5", "column 5", "4,5 to 4,6", "column 6", "before Roof",
                                      "after Roof new", "4,6 to 3,6"}));
    EXPECT_EQ(grid->RowCount(), 4);
    EXPECT_EQ(grid->model()->rowCount(), 5);
    const qint64 key = grid->valueAt(4, Key).toLong();
    EXPECT_EQ(stored("Name", key), "Roof");
    EXPECT_EQ(stored("MasterPrice", key), "12.5");
    EXPECT_EQ(stored("JobLotKey", key), QString::number(lot)); // set by beforeUpdate
    EXPECT_EQ(stored("StartDate", key), "Null");
    EXPECT_EQ(rows.AbsolutePosition(), 3);
}

TEST_F(GridTest, OnTheLineInFrontRowsAreTypedOneBehindTheOther) {
    grid->setColumns({{.key = "JobLotTaskKey", .visible = false},
                      {.key = "JobLotKey", .visible = false},
                      {.key = "CodeKey", .visible = false},
                      {.key = "X", .visible = false},
                      {.key = "Name"}});
    start(NewRowPosition::First);
    driver->press(Qt::Key_Insert);
    for (const auto& [name, key] : {std::pair("Alpha", Qt::Key_Enter), std::pair("Beta", Qt::Key_Insert)}) {
        driver->type(name);
        driver->press(key);
    }
    EXPECT_EQ(grid->Row(), 6); // the fresh line
    EXPECT_EQ(grid->currentIndex().row(), 0);
    EXPECT_EQ(grid->valueAt(5, Name), Value("Beta"));
    EXPECT_EQ(shown(6, Name), "Beta");
    driver->type("Gamma");
    grid->Update();
    EXPECT_EQ(grid->Row(), 6); // now the row's own number
    EXPECT_EQ(grid->value(Key).toLong(), database.ask("SELECT Max(JobLotTaskKey) FROM JobLotTask").toLong());
}

TEST_F(GridTest, AClickBelowTheRowsStoresATypedLine) {
    start(NewRowPosition::First);
    driver->press(Qt::Key_Insert);
    driver->type("Roof");
    driver->click("jgTasks", QPoint(20, grid->viewport()->height() - 5));
    EXPECT_EQ(grid->RowCount(), 4);
    EXPECT_FALSE(grid->isPending());
}

struct Leaving {
    const char* name;
    std::function<void(Grid&, ScreenDriver&, QPoint otherRow)> leave;
};

class GridLeavingTest : public GridTest, public ::testing::WithParamInterface<Leaving> {};

TEST_P(GridLeavingTest, WritesTheRowWithItsOwnValues) {
    start();
    grid->setCol(Price);
    driver->type("99");
    GetParam().leave(*grid, *driver, cell(2, Name).center());
    EXPECT_EQ(stored("MasterPrice", keys[0]), "99");
    EXPECT_EQ(stored("MasterPrice", keys[1]), "20");
    EXPECT_TRUE(log.contains("after Brick old"));
    EXPECT_FALSE(grid->isPending());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, GridLeavingTest,
    ::testing::Values(
        Leaving{"Arrow", [](Grid&, ScreenDriver& driver, QPoint) { driver.press(Qt::Key_Down); }},
        Leaving{"Tab",
                [](Grid&, ScreenDriver& driver, QPoint) {
                    driver.press(Qt::Key_Tab, Qt::NoModifier, 5);
                    EXPECT_EQ(driver.focusedName(), "after");
                }},
        Leaving{"BackTab",
                [](Grid&, ScreenDriver& driver, QPoint) {
                    driver.press(Qt::Key_Backtab, Qt::ShiftModifier, 3);
                    EXPECT_EQ(driver.focusedName(), "before");
                }},
        Leaving{"Click", [](Grid&, ScreenDriver& driver, QPoint at) { driver.click("jgTasks", at); }},
        Leaving{"RowNumber", [](Grid& grid, ScreenDriver&, QPoint) { grid.setRow(3); }},
        Leaving{"Update", [](Grid& grid, ScreenDriver&, QPoint) { grid.Update(); }},
        Leaving{"LostFocus",
                [](Grid& grid, ScreenDriver& driver, QPoint) {
                    driver.click("after");
                    EXPECT_TRUE(grid.UpdateOrTell());
                }},
        Leaving{"Unbinding", [](Grid& grid, ScreenDriver&, QPoint) { grid.bind(nullptr); }},
        Leaving{"ToolkitsOwnWay",
                [](Grid& grid, ScreenDriver&, QPoint) { grid.setCurrentIndex(grid.model()->index(2, 4)); }}),
    [](const auto& way) { return way.param.name; });

TEST_F(GridTest, EscapeGivesUpTheCellThenTheRow) {
    start();
    driver->type("Wood");
    driver->press(Qt::Key_Tab);
    driver->type("5");
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(shown(1, Price), "10.00");
    EXPECT_EQ(shown(1, Name), "Wood");
    EXPECT_TRUE(grid->isPending());
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(shown(1, Name), "Brick");
    EXPECT_FALSE(grid->isPending());
    driver->press(Qt::Key_Insert);
    driver->type("X");
    driver->press(Qt::Key_Enter);
    driver->press(Qt::Key_Escape);
    driver->press(Qt::Key_Up);
    EXPECT_EQ(grid->RowCount(), 3);
    EXPECT_EQ(stored("Name", keys[0]), "Brick");
}

TEST_F(GridTest, AnEditorThatWasOnlyOpenedChangesNothing) {
    start();
    for (const int column : {Name, Price, Custom, Start, Employee}) {
        grid->setCol(column);
        driver->press(Qt::Key_F2);
        driver->press(Qt::Key_Enter);
    }
    driver->press(Qt::Key_Insert);
    driver->press(Qt::Key_F2);
    driver->press(Qt::Key_Enter);
    EXPECT_FALSE(grid->isPending());
    EXPECT_TRUE(log.filter("before").isEmpty());
}

struct Refused {
    int column;
    const char* typed;
    const char* message;
};

class GridRefusalTest : public GridTest, public ::testing::WithParamInterface<Refused> {};

TEST_P(GridRefusalTest, KeepsTheTypedTextToBeCorrected) {
    start();
    MessageScript messages{Answer::Ok, Answer::Ok};
    grid->setCol(GetParam().column);
    driver->press(Qt::Key_F2);
    driver->type(GetParam().typed);
    driver->press(Qt::Key_Enter);
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_TRUE(messages.shown()[0].text.endsWith(GetParam().message))
        << messages.shown()[0].text.toStdString();
    const auto typed = [this] {
        auto* combo = qobject_cast<QComboBox*>(QApplication::focusWidget());
        return combo != nullptr ? combo->currentText() : editor() != nullptr ? editor()->text() : QString();
    };
    EXPECT_EQ(typed(), GetParam().typed);
    EXPECT_EQ(raisedNumber([this] { grid->Update(); }), numberOf(Failure::WrongType));
    clickCell(2, Name);
    EXPECT_TRUE(waitFor([&] { return typed() == GetParam().typed; }));
    QApplication::processEvents();
    EXPECT_EQ(messages.shown().size(), 2U);
    EXPECT_EQ(grid->Row(), 1);
    driver->press(Qt::Key_Escape);
    EXPECT_FALSE(grid->isPending());
}

INSTANTIATE_TEST_SUITE_P(Columns, GridRefusalTest,
                         ::testing::Values(Refused{Price, "1o", "is not a number."},
                                           Refused{Start, "13/45/02", "Enter it as mm/dd/yy hh:mm."},
                                           Refused{Custom, "Q", "is not in the list."}));

TEST_F(GridTest, ARefusalAtALostFocusBringsTheFocusBack) {
    start();
    MessageScript messages{Answer::Ok};
    grid->setCol(Price);
    driver->type("x");
    driver->click("after");
    EXPECT_TRUE(waitFor([&] { return driver->focusedName() == "jgTasks"; }));
    EXPECT_EQ(editor()->text(), "x");
}

TEST_F(GridTest, TextIsTypedOverOrEditedUpToTheColumnsLength) {
    start();
    driver->type("-.%#'");
    driver->press(Qt::Key_Enter);
    EXPECT_EQ(shown(1, Name), "-.%#'");
    grid->setCol(Name);
    driver->press(Qt::Key_F2);
    driver->press(Qt::Key_End);
    driver->type("123456789");
    driver->press(Qt::Key_Enter);
    EXPECT_EQ(shown(1, Name), "-.%#'1234567");
    driver->press(Qt::Key_Delete); // the price
    grid->setCol(Name);
    driver->press(Qt::Key_Delete);
    grid->Update();
    EXPECT_EQ(stored("Name", keys[0]), "");
    EXPECT_EQ(stored("MasterPrice", keys[0]), "Null");
    EXPECT_EQ(grid->RowCount(), 3);
}

TEST_F(GridTest, AValueListIsSearchedByTypingAndStoresTheKey) {
    database.run(QStringLiteral("UPDATE JobLotTask SET EmployeeKey=8 WHERE JobLotTaskKey=%1").arg(keys[1]));
    start();
    grid->setCol(Employee);
    driver->type("sto");
    driver->press(Qt::Key_Up); // an entry of the list, not a row of the grid
    driver->press(Qt::Key_Enter);
    EXPECT_EQ(stored("EmployeeKey", keys[0]), "4"); // Enter behind the last column leaves the row
    EXPECT_EQ(grid->Row(), 2);
    grid->setCol(Employee);
    EXPECT_EQ(shown(2, Employee), "");
    driver->press(Qt::Key_F2);
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(grid->value(Employee), Value(8));
    EXPECT_FALSE(grid->isPending());
    grid->setFocus();
    driver->type("sto");
    grid->Update();
    EXPECT_EQ(stored("EmployeeKey", keys[1]), "5");
}

TEST_F(GridTest, ACheckBoxTurnsBySpaceAndByClick) {
    start();
    grid->setCol(Exclude);
    driver->press(Qt::Key_Space);
    EXPECT_EQ(grid->model()->index(0, Exclude - 1).data(Qt::CheckStateRole), Qt::Checked);
    driver->press(Qt::Key_Down);
    EXPECT_EQ(stored("ExcludeDependency", keys[0]), "True");
    clickCell(3, Exclude);
    EXPECT_EQ(grid->Row(), 3);
    clickCell(3, Exclude);
    clickCell(3, Exclude);
    clickCell(2, Name);
    EXPECT_EQ(stored("ExcludeDependency", keys[2]), "True");
}

TEST_F(GridTest, AButtonIsPressedByMouseAndByKeys) {
    start();
    clickCell(2, Button);
    driver->press(Qt::Key_F4);
    driver->press(Qt::Key_Down, Qt::AltModifier);
    driver->press(Qt::Key_Space);
    EXPECT_EQ(takeLog().filter("button"), QStringList(4, "button 4"));
    EXPECT_EQ(grid->Row(), 2);

    std::vector<GridColumn> columns = grid->columns();
    columns[Name - 1].edit = ColumnEdit::TextWithButton;
    grid->setColumns(columns);
    clickCell(2, Name);
    EXPECT_TRUE(takeLog().filter("button").isEmpty());
    driver->click("jgTasks", cell(2, Name).center() + QPoint(cell(2, Name).width() / 2 - 8, 0));
    driver->type("Wall");
    driver->press(Qt::Key_F4);
    EXPECT_EQ(takeLog().filter(QRegularExpression("button|column")),
              QStringList({"button 5", "column 5", "button 5"}));
}

TEST_F(GridTest, ARowThatTheDatabaseRefusesStaysPending) {
    start();
    MessageScript messages{Answer::Ok};
    grid->setValue(Lot, 98765);
    driver->press(Qt::Key_Down);
    EXPECT_EQ(messages.shown().size(), 1U);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->currentIndex().row(), 0);
    EXPECT_EQ(grid->value(Lot), Value(98765));
    EXPECT_EQ(raisedNumber([this] { grid->Update(); }), numberOf(Failure::Constraint));
    EXPECT_TRUE(grid->isPending());
    EXPECT_FALSE(rows.isEditing());
    grid->setValue(Lot, lot);
    grid->Update();
    EXPECT_FALSE(grid->isPending());
}

TEST_F(GridTest, AnotherWorkstationsChangeIsReportedAndGivenWayTo) {
    start();
    const auto workstation = database.secondWorkstation();
    workstation->Execute(
        QStringLiteral("UPDATE JobLotTask SET MasterPrice=77 WHERE JobLotTaskKey=%1").arg(keys[0]));
    workstation->Execute(QStringLiteral("DELETE FROM JobLotTask WHERE JobLotTaskKey=%1").arg(keys[2]));
    MessageScript messages{Answer::Ok};
    driver->type("Mine");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(messages.shown().size(), 1U);
    EXPECT_EQ(raisedNumber([this] { grid->Update(); }), numberOf(Failure::RowChanged));
    EXPECT_EQ(shown(1, Name), "Mine");
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(shown(1, Name), "Brick");
    EXPECT_EQ(shown(1, Price), "77.00");
    EXPECT_EQ(grid->RowCount(), 2);

    workstation->Execute(QStringLiteral("DELETE FROM JobLotTask WHERE JobLotTaskKey=%1").arg(keys[1]));
    grid->setRow(2);
    grid->setValue(Price, 5.0);
    EXPECT_EQ(raisedNumber([this] { grid->Update(); }), numberOf(Failure::RowDeleted));
    grid->CancelUpdate();
    EXPECT_EQ(grid->RowCount(), 1);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridTest, APendingRowIsNeverWrittenToAnotherRowOfItsNumber) {
    start();
    grid->setValue(Name, "Wood");
    open("MasterPrice>10"); // without writing first
    EXPECT_EQ(raisedNumber([this] { grid->bind(&rows); }), numberOf(Failure::RowChanged));
    EXPECT_EQ(grid->RowCount(), 2);
    EXPECT_FALSE(grid->isPending());
    EXPECT_EQ(stored("Name", keys[1]), "Frame");
}

TEST_F(GridTest, BeforeUpdateMayKeepTheRowPending) {
    start();
    bool keep = true;
    QObject::connect(grid, &Grid::beforeUpdate, grid, [&](bool& cancel) { cancel = keep; });
    driver->type("Wood");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_TRUE(grid->isPending());
    keep = false;
    driver->press(Qt::Key_Down);
    EXPECT_EQ(stored("Name", keys[0]), "Wood");
}

TEST_F(GridTest, ARowChangeMayCommitAndRebindTheGridItself) {
    start();
    QObject::connect(grid, &Grid::rowColChange, grid, [this](int lastRow, int) {
        grid->Update();
        if (lastRow == 4)
            grid->bind(&rows);
    });
    driver->press(Qt::Key_Insert);
    driver->type("Roof");
    driver->press(Qt::Key_Right); // stays in the text
    driver->press(Qt::Key_Tab);   // another column: the handler writes the row
    EXPECT_EQ(grid->RowCount(), 4);
    EXPECT_EQ(grid->Row(), 1);
    driver->press(Qt::Key_Insert);
    driver->type("Rain");
    clickCell(2, Name);
    EXPECT_EQ(grid->RowCount(), 5);
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(GridTest, DeletingARowStandsOnTheNext) {
    start();
    grid->setRow(2);
    log.clear();
    grid->setValue(Name, "never written");
    grid->Delete();
    EXPECT_EQ(takeLog(), QStringList({"2,5 to 2,5"}));
    EXPECT_EQ(grid->value(Name), Value("Paint"));
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    grid->Delete();
    grid->setRow(1);
    grid->Delete();
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_EQ(grid->Row(), 1); // the new-row line
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM JobLotTask"), Value(0));
    driver->type("First");
    grid->Delete();
    EXPECT_FALSE(grid->isPending());
    grid->setAllowDelete(false);
    grid->setAllowAdd(false);
    EXPECT_EQ(grid->Row(), -1);
    EXPECT_EQ(grid->Col(), 0);
}

} // namespace tarnwell::test
