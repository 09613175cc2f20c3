#include "controls/DateBox.h"
#include "controls/ListBox.h"
#include "controls/NoteBox.h"
#include "support/DrivenScreen.h"
#include "timecard/TimeCardData.h"
#include "timecard/frmEmployee.h"
#include "timecard/frmEmployeeNotes.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

struct EmployeeScreen : DrivenScreen<frmEmployee, TimeCardData> {
    void SetUp() override {
        DrivenScreen::SetUp();
        open();
    }
    [[nodiscard]] QString text(int index) { return field(index).text(); }
    /// Shows Ann or Bob by Find.
    void find(const char* lastName) {
        whenShown([lastName](const ScreenDriver& search) {
            EXPECT_EQ(search.window().windowTitle(), "Employee Search");
            search.type(lastName);
            search.press(Qt::Key_Return);
        });
        driver->clickToolbar("Find");
    }
    [[nodiscard]] Value stored(const char* column, qint64 key) {
        return ask(QString("SELECT %1 FROM Employee WHERE EmployeeKey=%2").arg(column).arg(key));
    }
    [[nodiscard]] qint64 newest() { return ask("SELECT MAX(EmployeeKey) FROM Employee").toLong(); }
};

} // namespace

TEST_F(EmployeeScreen, HoldsTheFocusUntilThereIsARecord) {
    EXPECT_EQ(form().windowTitle(), "Employee");
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    EXPECT_EQ(form().statusText(), "Press Add to enter new record, Find to get record");
    EXPECT_EQ(driver->find<QLabel>("lblEmployee").text(), "No employee is shown");
    for (const Qt::Key passing : {Qt::Key_Tab, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_F5}) {
        driver->press(passing);
        EXPECT_EQ(driver->focusedName(), "MskField(0)");
    }
    driver->press(Qt::Key_G, Qt::AltModifier);
    for (const char* control : {"MskField(3)", "cmbType", "lstErrorLog", "rebHired"}) {
        driver->click(control);
        EXPECT_EQ(driver->focusedName(), "MskField(0)") << control;
    }
    driver->clickToolbar("Exit");
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(data.count("Employee"), 2);
}

TEST_F(EmployeeScreen, AKeyOnTheEmptyScreenIsDroppedOrBecomesAdd) {
    script.expect(Answer::No);
    driver->type("7");
    EXPECT_EQ(text(0), "");
    EXPECT_EQ(data.count("Employee"), 2);
    EXPECT_EQ(script.shown().back().text, "Do you want to add a new employee?");
    EXPECT_EQ(script.shown().back().defaultButton, 2);
    QGuiApplication::clipboard()->setText("5");
    field(0).paste(); // Nothing gets in around the keys.
    EXPECT_EQ(text(0), "");
    script.expect(Answer::Yes);
    driver->type("7");
    EXPECT_EQ(text(0), "");
    EXPECT_EQ(data.count("Employee"), 3);
    EXPECT_EQ(form().statusText(), "Enter Social Security Number");
    driver->clickToolbar("Exit");
    EXPECT_TRUE(readEmployee(data.db.connection(), newest()) == EmployeeRecord());
}

TEST_F(EmployeeScreen, WhatIsEnteredIsWrittenWhenTheRecordIsLeft) {
    driver->clickToolbar("Add");
    const qint64 key = newest();
    driver->retype("MskField(0)", "012345678");
    EXPECT_EQ(text(0), "012-34-5678");
    driver->retype("MskField(1)", "Dunn");
    driver->retype("MskField(2)", "Dee");
    EXPECT_EQ(driver->find<QLabel>("lblEmployee").text(), "Dunn, Dee");
    driver->retype("MskField(8)", "5035550142");
    driver->retype("MskField(9)", "3x");
    EXPECT_EQ(text(8), "(503) 555-0142");
    driver->retype("rebHired", "5/1/24");
    driver->retype("rchField", "exempt");
    driver->retype("cmbMaritalStatus", "ms");
    driver->retype("cmbType", "fore");
    driver->click("chkInActive");
    find("a");
    EXPECT_EQ(text(1), "Archer");
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    const EmployeeRecord expected{
        .inactive = true,
        .type = "Foreman",
        .foreman = "",
        .maritalStatus = "MS",
        .fields = {"012-34-5678", "Dunn", "Dee", "", "", "", "", "", "(503) 555-0142", "3"},
        .information = "exempt",
        .dateOfHire = DateTime{QDate(2024, 5, 1)},
        .dateOfTermination = Value::null()};
    EXPECT_TRUE(readEmployee(data.db.connection(), key) == expected);
    EXPECT_EQ(driver->find<Combo>("cmbForeman").List(0), "Dunn/Dee") << "offered at once";
    find("d");
    EXPECT_TRUE(driver->find<QCheckBox>("chkInActive").isChecked());
    EXPECT_EQ(driver->find<DateBox>("rebHired").text(), "05/01/24");
}

TEST_F(EmployeeScreen, ALookAtARecordLeavesItsTextsAsTheyAre) {
    data.db.run(
        "UPDATE Employee SET Telephone='5035550142', DateofHire=#05/01/1925# WHERE LastName='Archer'");
    find("a");
    EXPECT_EQ(text(8), "(503) 555-0142");
    driver->clickToolbar("Exit");
    EXPECT_EQ(stored("Telephone", data.ann), Value("5035550142"));
    EXPECT_EQ(stored("DateofHire", data.ann), Value(DateTime{QDate(1925, 5, 1)}));
}

TEST_F(EmployeeScreen, ANumberIsCheckedWhenItsFieldIsLeft) {
    const struct {
        const char* typed;
        const char* shown;
        const char* message; // Empty for none.
    } cases[] = {
        {"123456789", "123-45-6789", ""},
        {"1234567", "123-45-4567", "You did not enter 9 digits."},
        {"222222222", "222-22-2222", "Employee SSN entered exists!"},
    };
    find("a");
    for (const auto& [typed, shown, message] : cases) {
        driver->retype("MskField(0)", typed);
        if (*message != 0)
            script.expect(Answer::Ok);
        driver->press(Qt::Key_Tab);
        EXPECT_EQ(script.shown().empty() ? QString() : script.shown().back().text, message);
        EXPECT_EQ(text(0), shown);
        EXPECT_EQ(driver->focusedName(), "MskField(1)") << "only reported";
    }
}

TEST_F(EmployeeScreen, PastedNumbersEndInOneForm) {
    find("a");
    for (const char* pasted : {"012345678", "012-34-5678", " 012 34 5678 "}) {
        QGuiApplication::clipboard()->setText(pasted);
        driver->focus("MskField(0)");
        driver->press(Qt::Key_A, Qt::ControlModifier);
        driver->press(Qt::Key_V, Qt::ControlModifier);
        driver->press(Qt::Key_Tab);
        EXPECT_EQ(text(0), "012-34-5678");
    }
    driver->focus("MskField(0)");
    driver->press(Qt::Key_Home);
    driver->press(Qt::Key_Delete);
    driver->type("9");
    EXPECT_EQ(text(0), "912-34-5678");
    EXPECT_EQ(field(0).cursorPosition(), 1) << "the caret stays with what was typed";
}

TEST_F(EmployeeScreen, AddFindAndExitDoNotCheck) {
    find("a");
    driver->retype("MskField(0)", "12");
    find("b");
    EXPECT_EQ(stored("SSN", data.ann), Value("12"));
    driver->retype("MskField(0)", "34");
    driver->clickToolbar("Add");
    EXPECT_EQ(stored("SSN", data.bob), Value("34"));
    driver->retype("MskField(0)", "56");
    driver->clickToolbar("Exit");
    EXPECT_EQ(stored("SSN", newest()), Value("56"));
    EXPECT_TRUE(script.shown().empty());
}

TEST_F(EmployeeScreen, ATextThatIsNoDateKeepsTheRecordOnTheScreen) {
    find("a");
    driver->retype("rebHired", "13/45/02");
    for (const char* button : {"Add", "Exit"}) {
        script.expect(Answer::Ok);
        driver->clickToolbar(button);
        EXPECT_TRUE(form().isVisible());
        EXPECT_EQ(text(1), "Archer");
    }
    EXPECT_EQ(data.count("Employee"), 2);
    // The checks are on again after the failure.
    driver->retype("MskField(0)", "12");
    script.expect(Answer::Ok);
    driver->press(Qt::Key_Tab);
    driver->retype("rebHired", " ");
}

TEST_F(EmployeeScreen, TabReadsTheFormDownTheColumns) {
    find("a");
    QStringList way;
    for (int i = 0; i < 17; ++i) {
        driver->press(Qt::Key_Tab);
        way.append(driver->focusedName());
    }
    EXPECT_EQ(way, (QStringList{"MskField(1)", "MskField(2)", "MskField(3)", "MskField(4)", "MskField(5)",
                                "MskField(6)", "MskField(7)", "cmbType", "cmbForeman", "rebHired",
                                "rebTerminated", "MskField(8)", "MskField(9)", "cmbMaritalStatus",
                                "chkInActive", "rchField", "lstErrorLog"}));
}

TEST_F(EmployeeScreen, TheLogIsReadWholeChangedAndCutInTheList) {
    const QString longText(60, u'x');
    for (const auto& [day, problem] : {std::pair(1, Value("older")), std::pair(2, Value(longText))})
        data.addLog(DateTime{QDate(2024, 1, day)}, problem);
    find("a");
    auto& log = driver->find<ListBox>("lstErrorLog");
    ASSERT_EQ(log.ListCount(), 2);
    EXPECT_EQ(log.ListIndex(), 0);
    EXPECT_EQ(log.item(0)->text(), "01/02/24 | " + longText.left(39));

    whenShown([&](const ScreenDriver& note) {
        EXPECT_EQ(note.window().windowTitle(), "Employee Note");
        EXPECT_EQ(note.find<MaskedBox>("mskfield(0)").text(), "01/02/24");
        EXPECT_EQ(note.find<NoteBox>("txtField(0)").text(), longText);
        note.type("02/03/24");
        note.press(Qt::Key_Tab);
        note.press(Qt::Key_A, Qt::ControlModifier);
        note.type("settled");
        note.press(Qt::Key_A, Qt::AltModifier);
    });
    driver->focus("lstErrorLog");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(log.item(0)->text(), QString("02/03/24 | settled").leftJustified(50));

    whenShown([](const ScreenDriver& note) {
        note.type("1");
        note.window().close();
    });
    driver->clickLine("lstErrorLog", 1);
    driver->doubleClick("lstErrorLog", log.visualItemRect(log.item(1)).center());
    EXPECT_EQ(ask("SELECT Occured FROM EmployeeLog WHERE Problem='older'"),
              Value(DateTime{QDate(2024, 1, 1)}));
    EXPECT_EQ(log.ListIndex(), 0);
}

TEST_F(EmployeeScreen, ARecordThatCanNotBeReadIsNotWrittenOver) {
    find("a");
    whenShown([this](const ScreenDriver& search) {
        search.type("b");
        data.db.run("DELETE FROM Employee WHERE LastName='Baker'");
        search.press(Qt::Key_Return);
    });
    script.expect(Answer::Ok);
    driver->clickToolbar("Find");
    EXPECT_EQ(driver->find<QLabel>("lblEmployee").text(), "No employee is shown");
    EXPECT_EQ(text(1), "");
    driver->clickToolbar("Exit");
    EXPECT_EQ(stored("LastName", data.ann), Value("Archer"));
}

using EmployeeScreenDeathTest = EmployeeScreen;

TEST_F(EmployeeScreenDeathTest, FailuresOutsideTheToolbarStopTheProgram) {
    const auto stop = [this](const char* field, const char* typed, const std::function<void()>& leave) {
        setMessagePresenter({}); // the message goes to standard error
        find("a");
        driver->retype(field, typed);
        leave();
    };
    EXPECT_EXIT(stop("rebHired", "soon", [] { form().close(); }), ::testing::ExitedWithCode(1), "'3421'");
    EXPECT_EXIT(stop("MskField(0)", "12345678'", [this] { driver->press(Qt::Key_Tab); }),
                ::testing::ExitedWithCode(1), "'-2147217900'");
}
