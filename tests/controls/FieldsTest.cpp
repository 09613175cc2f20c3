#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/DayArrows.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "data/RunTimeError.h"
#include "frame/AltLetterFilter.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

DateTime day(int year, int month, int dayOfMonth) {
    return {QDate(year, month, dayOfMonth), QTime(0, 0)};
}

} // namespace

TEST(KeyCodes, AreThoseThatTheRoutinesKnow) {
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        int code;
        int shift;
    } cases[] = {{Qt::Key_End, Qt::NoModifier, 35, 0},
                 {Qt::Key_Home, Qt::KeypadModifier, 36, 0},
                 {Qt::Key_Backtab, Qt::ShiftModifier, 9, 1},
                 {Qt::Key_Enter, Qt::ControlModifier, 13, 2},
                 {Qt::Key_A, Qt::AltModifier | Qt::ShiftModifier, 'A', 5},
                 {Qt::Key_5, Qt::NoModifier, '5', 0},
                 {Qt::Key_Percent, Qt::ShiftModifier, '5', 1},
                 {Qt::Key_Period, Qt::NoModifier, 190, 0},
                 {Qt::Key_F4, Qt::NoModifier, 115, 0},
                 {Qt::Key_Dead_Acute, Qt::NoModifier, 255, 0}};
    for (const auto& [key, held, code, shift] : cases) {
        const QKeyEvent event(QEvent::KeyPress, key, held);
        EXPECT_EQ(keyCodeOf(event), code);
        EXPECT_EQ(shiftStateOf(event), shift) << code;
    }
}

TEST(MaskedBox, TakesUpToItsLimitAndTellsEachKey) {
    MaskedBox box(3);
    QList<int> released;
    QObject::connect(&box, &MaskedBox::keyUp, &box, [&](int keyCode, int) { released << keyCode; });
    QObject::connect(&box, &MaskedBox::keyDown, &box, [](int& keyCode, int) {
        if (keyCode == 'X')
            keyCode = 0;
    });
    const ScreenDriver driver(box);
    driver.type("xab-d");
    EXPECT_EQ(box.text(), "ab-");
    EXPECT_EQ(box.SelStart(), 3);
    EXPECT_EQ(released, QList<int>({'X', 'A', 'B', 189, 'D'}));
    box.setSelStart(1);
    driver.press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(box.SelStart(), 1);

    released.clear(); // A key that is held down repeats its press, and is released once.
    QKeyEvent repeat(QEvent::KeyRelease, Qt::Key_Left, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&box, &repeat);
    EXPECT_TRUE(released.empty());
}

TEST(MaskedBox, KeepsTheCaretBehindWhatIsTypedWhileItsWindowWaitsForTheKeyboard) {
    QWidget window;
    MaskedBox box(0, &window);
    box.setFocus();
    box.insert("A"); // the key that brought up a message is typed when that is answered
    EXPECT_EQ(box.SelStart(), 1);
}

TEST(AltLetterFilter, AltWithALetterThatNothingAnswersToTypesNothing) {
    MaskedBox box;
    const ScreenDriver driver(box);
    const AltLetterFilter keys;
    driver.press(Qt::Key_A, Qt::AltModifier);
    driver.type("b");
    EXPECT_EQ(box.text(), "b");
}

TEST(MaskedBox, KeepsTheTextReadableUnderItsMask) {
    const struct {
        const char* mask;
        const char* typed;
        const char* text;
        const char* shown;
    } cases[] = {{"##/##/##", "01x1502", "01/15/02", "01/15/02"},
                 {"##/##/##", "", "//", "__/__/__"},
                 {"##/##/##", "1", "1//", "1_/__/__"},
                 {"(000) 000-0000", "5551234567", "(555) 123-4567", "(555) 123-4567"},
                 {"", "a#0", "a#0", "a#0"}};
    for (const auto& [mask, typed, text, shown] : cases) {
        MaskedBox box;
        box.setMask(mask);
        const ScreenDriver driver(box);
        box.setCursorPosition(0);
        driver.type(typed);
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(box.displayText(), shown);
    }
}

TEST(MaskedBox, KeepsWhatIsPastedOnOneLine) {
    MaskedBox box;
    const ScreenDriver driver(box);
    box.setText("Wall");
    box.setCursorPosition(2);
    box.insert("\tx\r\n");
    EXPECT_EQ(box.text(), "Wa x ll");
    EXPECT_EQ(box.cursorPosition(), 5);
    box.setCursorPosition(7);
    box.insert("\r\n");
    EXPECT_EQ(box.text(), "Wa x ll");
}

TEST(PressedKeys, AreForgottenWhenTheFocusLeaves) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* combo = new Combo;
    auto* list = new ListBox;
    auto* box = new MaskedBox;
    auto* other = new QLineEdit;
    int releases = 0;
    const auto count = [&releases] { ++releases; };
    QObject::connect(combo, &Combo::keyUp, &window, count);
    QObject::connect(list, &ListBox::keyUp, &window, count);
    QObject::connect(box, &MaskedBox::ownKeyUp, &window, count);
    for (QWidget* control : std::initializer_list<QWidget*>{combo, list, box, other})
        column->addWidget(control);
    const ScreenDriver driver(window);
    for (QWidget* control : std::initializer_list<QWidget*>{combo, list, box}) {
        control->setFocus();
        QTest::keyPress(control, Qt::Key_R);
        other->setFocus();
        control->setFocus();
        QTest::keyRelease(control, Qt::Key_R);
    }
    EXPECT_EQ(releases, 0);
}

TEST(DateBox, ATextIsADateWhenItReadsAsOne) {
    const std::pair<const char*, Value> cases[] = {
        {"", Value::null()},         {"  ", Value::null()},    {"01/15/02", day(2002, 1, 15)},
        {"1/5/30", day(1930, 1, 5)}, {"02/29/23", "02/29/23"}, {"soon", "soon"}};
    for (const auto& [typed, value] : cases) {
        DateBox box(DateBox::Arrows::None);
        const ScreenDriver driver(box);
        driver.type(typed);
        EXPECT_EQ(box.value(), value);
        EXPECT_EQ(box.text(), typed);
    }
}

TEST(DateBox, TurnsOverTheYear) {
    DateBox box(DateBox::Arrows::None);
    int changes = 0;
    QObject::connect(&box, &DateBox::changed, &box, [&] { ++changes; });
    box.setValue(day(2002, 12, 31));
    box.addDays(1);
    EXPECT_EQ(box.text(), "01/01/03");
    box.addDays(-1);
    EXPECT_EQ(box.value(), Value(day(2002, 12, 31)));
    EXPECT_EQ(changes, 3);
}

TEST(DateBox, StopsAtTheEndsOfTheCalendar) {
    DateBox box(DateBox::Arrows::None);
    for (const auto& [date, by] : {std::pair(day(9999, 12, 31), 1), std::pair(day(1, 1, 1), -1)}) {
        box.setValue(date);
        box.addDays(by);
        EXPECT_EQ(box.value(), Value(date));
    }
}

TEST(DateBox, KeepsTheCenturyAndTheTimeOfWhatWasSet) {
    DateBox box(DateBox::Arrows::None);
    const DateTime stored{QDate(2031, 3, 1), QTime(8, 30)};
    box.setValue(stored);
    EXPECT_EQ(box.text(), "03/01/31");
    EXPECT_EQ(box.value(), Value(stored));
    box.setText("03/01/31");
    EXPECT_EQ(box.value(), Value(day(1931, 3, 1)));
}

TEST(DateBox, ATextThatIsNoDateFailsOnlyForCode) {
    DateBox box(DateBox::Arrows::Beside);
    const ScreenDriver driver(box);
    box.addDays(1);
    EXPECT_EQ(box.text(), "");
    driver.press(Qt::Key_Up);
    driver.type("soon");
    driver.press(Qt::Key_Up);
    EXPECT_EQ(box.text(), "soon");
    EXPECT_THROW(box.addDays(1), RunTimeError);
}

TEST(DateBox, KeysAndArrowsGoADayOnAndBack) {
    DateBox box(DateBox::Arrows::Beside);
    auto* arrows = box.findChild<DayArrows*>();
    arrows->setObjectName("arrows");
    const ScreenDriver driver(box);
    box.setValue(day(2002, 1, 31));
    driver.press(Qt::Key_Up);
    EXPECT_EQ(box.text(), "02/01/02");
    driver.press(Qt::Key_Down, Qt::NoModifier, 2);
    EXPECT_EQ(box.text(), "01/30/02");
    driver.click("arrows", QPoint(4, 4));
    EXPECT_EQ(box.text(), "01/31/02");
    driver.click("arrows", QPoint(4, arrows->height() - 4));
    driver.click("arrows", QPoint(4, arrows->height() - 4));
    EXPECT_EQ(box.text(), "01/29/02");
    EXPECT_TRUE(box.edit()->hasFocus());
}

TEST(DayArrows, HalvesAnyHeightBetweenItsArrows) {
    QWidget window;
    window.resize(100, 140);
    auto* arrows = new DayArrows(&window);
    arrows->setObjectName("vscrCompleted");
    QList<int> values;
    QObject::connect(arrows, &DayArrows::valueChanged, arrows, [&](int value) {
        values << value;
        arrows->setValue(1);
    });
    EXPECT_GE(arrows->sizeHint().height(), 24);
    arrows->resize(16, 120);
    const ScreenDriver driver(window);
    driver.click("vscrCompleted", QPoint(8, 50));
    driver.click("vscrCompleted", QPoint(8, 70));
    EXPECT_EQ(values, QList<int>({0, 1, 2, 1}));
    driver.press(Qt::Key_Up);
    driver.press(Qt::Key_Down);
    EXPECT_EQ(values, QList<int>({0, 1, 2, 1, 0, 1, 2, 1}));
}

TEST(NoteBox, TabLeavesIt) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* note = new NoteBox;
    auto* next = new MaskedBox;
    column->addWidget(note);
    column->addWidget(next);
    const ScreenDriver driver(window);
    driver.type("a");
    driver.press(Qt::Key_Return);
    driver.type("b");
    driver.press(Qt::Key_Tab);
    EXPECT_EQ(note->text(), "a\nb");
    EXPECT_TRUE(next->hasFocus());
}

TEST(NoteBox, TakesNothingFromAnEmptyClipboard) {
    NoteBox note;
    const ScreenDriver driver(note);
    driver.type("a");
    QGuiApplication::clipboard()->setMimeData(new QMimeData);
    driver.press(Qt::Key_V, Qt::ControlModifier);
    driver.type("b");
    EXPECT_EQ(note.text(), "ab");
}

TEST(Label, NamesTheControlAndMovesTheFocusToIt) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* box = new MaskedBox;
    auto* date = new DateBox(DateBox::Arrows::None);
    column->addWidget(box);
    column->addWidget(label("Completed && &Paid:", "lblFieldLabel(1)", date));
    column->addWidget(date);
    EXPECT_EQ(date->accessibleName(), "Completed & Paid");
    EXPECT_EQ(date->edit()->accessibleName(), "Completed & Paid");
    const ScreenDriver driver(window);
    driver.press(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(date->edit()->hasFocus());
}

} // namespace tarnwell::test
