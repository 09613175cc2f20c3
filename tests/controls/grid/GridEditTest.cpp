#include "GridFixture.h"
#include "support/RaisedNumber.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>

namespace tarnwell::test {

namespace {

/// A text is longer than the column takes when it came by copying, and holds breaks when it was imported.
const QString oddName = QStringLiteral("Brick\nwall,\tfront and back");

} // namespace

class GridEditTest : public GridTest {
protected:
    void storeOddName() {
        for (const qint64 key : keys) {
            Recordset row;
            row.Open("SELECT Name FROM JobLotTask WHERE JobLotTaskKey=" + QString::number(key),
                     database.connection(), CursorType::Static, LockType::Optimistic);
            row.set(0, oddName);
            row.Update();
        }
    }
    /// Another window takes the focus away, as a message does, and gives it back behind the routine.
    void behindAMessage(const std::function<void()>& routine) {
        QWidget message;
        message.show();
        message.activateWindow();
        EXPECT_TRUE(waitFor([&] { return message.isActiveWindow(); }));
        routine();
        message.close();
        window.activateWindow();
        EXPECT_TRUE(waitFor([&] { return window.isActiveWindow(); }));
    }
    void expectTicked(qint64 key, bool ticked) {
        grid->Update();
        EXPECT_EQ(stored("ExcludeDependency", key), ticked ? "True" : "False");
    }
};

TEST_F(GridEditTest, AnEditorThatClosesBehindAMessageLeavesTheFocusInTheGrid) {
    for (const int column : {Price, Employee}) {
        start();
        grid->setCol(column);
        driver->type(column == Price ? "9" : "s");
        behindAMessage([this] { grid->Delete(); });
        EXPECT_EQ(driver->focusedName(), "jgTasks") << column;
    }
}

TEST_F(GridEditTest, ARefusedDeleteKeepsWhatWasTypedInTheRow) {
    const qint64 ann = database.add("Employee", {{"LastName", "Smith"}});
    database.add("JobTaskEmployee", {{"JobLotTaskKey", keys[0]}, {"EmployeeKey", ann}, {"Price", 1.0}});
    start();
    grid->setCol(Price);
    driver->type("9");
    EXPECT_EQ(raisedNumber([this] { grid->Delete(); }), numberOf(Failure::Constraint));
    EXPECT_TRUE(grid->isPending());
    driver->press(Qt::Key_Down);
    EXPECT_EQ(stored("MasterPrice", keys[0]), "9");

    database.secondWorkstation()->Execute(
        QStringLiteral("DELETE FROM JobLotTask WHERE JobLotTaskKey=%1").arg(keys[1]));
    driver->type("8");
    EXPECT_EQ(raisedNumber([this] { grid->Delete(); }), numberOf(Failure::RowDeleted));
    EXPECT_FALSE(grid->isPending()) << "there is no row left to take it";
}

TEST_F(GridEditTest, ATextThatDoesNotFitItsColumnIsShownWholeAndChangedOnlyByTheUser) {
    storeOddName();
    start();
    driver->press(Qt::Key_F2);
    EXPECT_EQ(editor()->text(), oddName);
    driver->press(Qt::Key_Enter);
    EXPECT_FALSE(grid->isPending());

    MessageScript messages{Answer::Ok};
    grid->setCol(Name);
    driver->press(Qt::Key_F2);
    driver->press(Qt::Key_End);
    driver->press(Qt::Key_Backspace);
    driver->press(Qt::Key_Enter);
    EXPECT_TRUE(messages.shown()[0].text.endsWith("is longer than 12 characters."));
    driver->press(Qt::Key_End);
    driver->press(Qt::Key_Backspace, Qt::NoModifier, 13);
    driver->press(Qt::Key_Down);
    EXPECT_EQ(stored("Name", keys[0]), "Brick\nwall,\t") << "the break was not the user's to change";

    QApplication::clipboard()->setText("Roof\ntop\n");
    driver->press(Qt::Key_F2);
    driver->press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(editor()->text(), "Roof top");
}

TEST_F(GridEditTest, AValueListStoresTheEntryThatWasChosenAmongEqualTexts) {
    start();
    grid->setValueList(Employee, {{.value = 4, .text = "Smith\\Ann"},
                                  {.value = 5, .text = "Smith\\Ann"},
                                  {.value = 6, .text = "Stone\\Bo"}});
    const auto walkDown = [this](int steps) {
        grid->setRow(1);
        grid->setCol(Employee);
        driver->press(Qt::Key_F2);
        driver->press(Qt::Key_Down, Qt::NoModifier, steps);
        driver->press(Qt::Key_Tab);
        grid->setFocus();
        grid->Update();
        return stored("EmployeeKey", keys[0]);
    };
    EXPECT_EQ(walkDown(1), "4");
    EXPECT_EQ(walkDown(1), "5");
    log.clear();
    EXPECT_EQ(walkDown(0), "5");
    EXPECT_TRUE(log.filter("before").isEmpty()) << "only opened";
    EXPECT_EQ(walkDown(1), "6");
}

TEST_F(GridEditTest, OnATickLettersBeginTheRowsFirstText) {
    start();
    grid->setCol(Exclude);
    driver->press(Qt::Key_Space);
    expectTicked(keys[0], true);
    driver->press(Qt::Key_Enter);
    expectTicked(keys[0], false);
    driver->type("No 1");
    EXPECT_EQ(grid->Col(), Name);
    expectTicked(keys[0], false);
    EXPECT_EQ(stored("Name", keys[0]), "No 1");
    grid->setCol(Button);
    driver->type("2");
    grid->Update();
    EXPECT_EQ(stored("Name", keys[0]), "2");
}

TEST_F(GridEditTest, AnotherListBeginsInItsFirstTextAndTheSameOneWhereTheUserWas) {
    const auto show = [this](const QString& list) {
        auto shown = std::make_shared<Recordset>();
        shown->Open("SELECT * FROM JobLotTask", database.connection(), CursorType::Static,
                    LockType::Optimistic);
        grid->bind(shown, list);
        return shown;
    };
    start();
    for (const int column : {Exclude, Price, Button}) {
        (void)show("one");
        grid->setCol(column);
        (void)show("one");
        EXPECT_EQ(grid->Col(), column);
        const auto shown = show("other");
        EXPECT_EQ(grid->Col(), Name);
        grid->setCol(column);
        shown->setFilter("MasterPrice>10");
        grid->Rebind();
        EXPECT_EQ(grid->Col(), Name) << "another filter";
    }
}

} // namespace tarnwell::test
