#include "controls/Combo.h"

#include "controls/KeyCodes.h"
#include "data/RunTimeError.h"
#include "runtime/EventGuard.h"
#include "support/ScreenDriver.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

struct ComboTest : ::testing::Test {
    QWidget window;
    Combo* combo = new Combo(&window);
    QLineEdit* other = new QLineEdit(&window);
    std::vector<int> chosen;

    ComboTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(combo);
        column->addWidget(other);
        combo->setObjectName("cmbType");
        other->setObjectName("txtOther");
        combo->setItems({{"Electric", 11}, {"Framing", 12}, {"Roof", 13}});
        QObject::connect(combo, &Combo::clicked, &window, [this] { chosen.push_back(combo->ListIndex()); });
    }
    void searchOnKeyUp() {
        QObject::connect(combo, &Combo::keyUp, &window,
                         [this](int keyCode, int shift) { ComboIncrementalSearch(*combo, keyCode, shift); });
    }
};

} // namespace

TEST_F(ComboTest, NothingIsChosenAtFirst) {
    EXPECT_EQ(combo->ListIndex(), -1);
    EXPECT_EQ(combo->Text(), "");
    combo->Clear();
    combo->setText("Smith/John");
    combo->AddItem("Adams/Sam", 5);
    EXPECT_EQ(combo->Text(), "Smith/John");
    EXPECT_EQ(combo->ListIndex(), -1);
}

TEST_F(ComboTest, CodeFiresEveryTimeAndRestoresTheText) {
    combo->setListIndex(1);
    combo->setText("Fra");
    combo->setListIndex(1);
    combo->setListIndex(-1);
    EXPECT_EQ(chosen, std::vector<int>({1, 1, -1}));
    EXPECT_EQ(combo->Text(), "");
    combo->setListIndex(1);
    EXPECT_EQ(combo->Text(), "Framing");
    EXPECT_EQ(combo->ItemData(1), 12);
}

TEST_F(ComboTest, AnIndexOutsideTheListIsAnError) {
    EXPECT_THROW(combo->setListIndex(3), RunTimeError);
    EXPECT_THROW((void)combo->ItemData(3), RunTimeError);
    EXPECT_THROW((void)combo->ItemData(-1), RunTimeError);
    combo->Clear();
    EXPECT_THROW(combo->setListIndex(0), RunTimeError);
    combo->setListIndex(-1);
}

TEST_F(ComboTest, AnErrorOfTheClickRoutineComesBackToTheCode) {
    QObject::connect(combo, &Combo::clicked, &window,
                     guarded([] { raise(Failure::DatabaseLocked, "Tarnwell.mdb"); }));
    EXPECT_THROW(combo->setListIndex(0), RunTimeError);
    EXPECT_EQ(chosen, std::vector<int>({0}));
}

TEST_F(ComboTest, AnItemPutInFrontMovesWhatIsChosen) {
    combo->setListIndex(1);
    combo->AddItem("", 0, 0);
    EXPECT_EQ(combo->ListIndex(), 2);
    EXPECT_EQ(combo->List(2), "Framing");
    EXPECT_EQ(combo->List(0), "");
    EXPECT_EQ(combo->itemData(2, Qt::UserRole).toLongLong(), 12);
    EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(ComboTest, TheListFiresOncePerChoiceAlsoForTheSameEntry) {
    const ScreenDriver driver(window);
    driver.choose("cmbType", "Roof");
    driver.choose("cmbType", "Roof");
    EXPECT_EQ(chosen, std::vector<int>({2, 2}));
}

TEST_F(ComboTest, ArrowsChooseAndStopAtTheEnds) {
    const ScreenDriver driver(window);
    driver.press(Qt::Key_Down, Qt::NoModifier, 4);
    driver.press(Qt::Key_Up);
    EXPECT_EQ(chosen, std::vector<int>({0, 1, 2, 1}));
    driver.press(Qt::Key_PageDown);
    driver.press(Qt::Key_PageUp, Qt::NoModifier, 2);
    EXPECT_EQ(chosen, std::vector<int>({0, 1, 2, 1, 2, 0}));
    EXPECT_EQ(combo->Text(), "Electric");
}

TEST_F(ComboTest, AListOnlyIsChosenFromByLetterAndClick) {
    combo->setListOnly();
    const ScreenDriver driver(window);
    driver.type("rxrE");
    EXPECT_EQ(chosen, std::vector<int>({2, 2, 0}));
    EXPECT_EQ(combo->Text(), "Electric");
    QTest::mouseClick(combo->lineEdit(), Qt::LeftButton);
    EXPECT_TRUE(combo->view()->isVisible());
}

TEST_F(ComboTest, TypingChoosesNothingNorDoesLeaving) {
    const ScreenDriver driver(window);
    combo->setListIndex(0);
    chosen.clear();
    driver.press(Qt::Key_A, Qt::ControlModifier);
    driver.type("Roof");
    EXPECT_EQ(combo->ListIndex(), -1);
    driver.press(Qt::Key_Return);
    driver.press(Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
    EXPECT_TRUE(chosen.empty());
    EXPECT_EQ(combo->Text(), "Roof");
}

TEST_F(ComboTest, OneEntryStaysInForceHoweverTheTextIsTypedOver) {
    combo->setAlwaysChosen();
    EXPECT_EQ(combo->ListIndex(), -1);
    combo->setListIndex(1);
    chosen.clear();
    const ScreenDriver driver(window);
    for (const char* typed : {"", " ", "Roof", "zz"}) {
        driver.retype("cmbType", typed);
        EXPECT_EQ(combo->ListIndex(), 1) << typed;
        driver.retype("cmbType", typed);
        driver.press(Qt::Key_Tab);
        EXPECT_EQ(combo->Text(), "Framing") << typed;
    }
    driver.retype("cmbType", "");
    EXPECT_EQ(combo->ItemData(combo->ListIndex()), 12);
    EXPECT_EQ(combo->Text(), "Framing") << "whoever reads it sees it";
    combo->AddItem("Doors", 10, 0);
    driver.retype("cmbType", "");
    EXPECT_EQ(combo->ListIndex(), 2);
    EXPECT_TRUE(chosen.empty());
    combo->Clear();
    EXPECT_EQ(combo->ListIndex(), -1);
}

TEST_F(ComboTest, TypeAheadKeepsTheCaretBehindWhatWasTyped) {
    searchOnKeyUp();
    const ScreenDriver driver(window);
    driver.type("f");
    EXPECT_EQ(combo->Text(), "Framing");
    EXPECT_EQ(combo->SelStart(), 1);
    driver.type("z");
    EXPECT_EQ(combo->Text(), "Roof");
    EXPECT_EQ(combo->SelStart(), 2);
    chosen.clear();
    driver.press(Qt::Key_Home);
    EXPECT_EQ(combo->SelStart(), 0);
    driver.press(Qt::Key_End);
    EXPECT_EQ(combo->SelStart(), 4);
    driver.press(Qt::Key_Shift);
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ComboTest, TheKeyThatChoosesFromTheListDoesNotSearchAgain) {
    searchOnKeyUp();
    const ScreenDriver driver(window);
    driver.press(Qt::Key_F4);
    ASSERT_TRUE(waitFor([this] { return combo->view()->isVisible(); }));
    QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyPress(combo->view(), Qt::Key_Return);
    QTest::keyRelease(combo, Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 1U);
    driver.type("r");
    EXPECT_EQ(combo->Text(), "Roof");
}

TEST_F(ComboTest, WhatArrowsChooseStandsBesideAnEntryThatLooksLikeIt) {
    searchOnKeyUp();
    combo->setItems({{"--/Zed", 11}, {"--/Adams", 12}, {"--/Adams", 13}});
    const ScreenDriver driver(window);
    driver.press(Qt::Key_Down, Qt::NoModifier, 3);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_End, Qt::Key_Left, Qt::Key_Home})
        driver.press(key);
    EXPECT_EQ(combo->ListIndex(), 2);
    driver.press(Qt::Key_A, Qt::ControlModifier);
    driver.type("--/Z");
    EXPECT_EQ(combo->ListIndex(), 0) << "typing begins a new search";
}

TEST_F(ComboTest, ItsOwnMnemonicLeavesTheTextToBeTypedOver) {
    searchOnKeyUp();
    combo->setListIndex(2);
    auto* caption = new QLabel("&Category:", &window);
    caption->setBuddy(combo);
    window.layout()->addWidget(caption);
    const ScreenDriver driver(window);
    combo->lineEdit()->selectAll();
    chosen.clear();
    QTest::keyPress(&window, Qt::Key_Alt, Qt::AltModifier);
    driver.press(Qt::Key_C, Qt::AltModifier);
    QTest::keyRelease(&window, Qt::Key_Alt);
    EXPECT_TRUE(chosen.empty());
    EXPECT_EQ(combo->lineEdit()->selectedText(), "Roof");
    driver.type("fr");
    EXPECT_EQ(combo->Text(), "Framing");
}

TEST_F(ComboTest, ALongTextShowsItsBeginningUnlessItIsWorkedOn) {
    const ScreenDriver driver(window);
    driver.focus("txtOther");
    combo->setListIndex(1);
    EXPECT_EQ(combo->SelStart(), 0);
    driver.focus("cmbType");
    driver.press(Qt::Key_End);
    EXPECT_EQ(combo->lineEdit()->cursorPosition(), 7);
    driver.press(Qt::Key_Tab);
    EXPECT_EQ(combo->lineEdit()->cursorPosition(), 0);
}

TEST_F(ComboTest, ASwallowedKeyDoesNothing) {
    QObject::connect(combo, &Combo::keyDown, &window, [](int& keyCode, int) {
        if (keyCode == KeyCode::Down || keyCode == 'X')
            keyCode = 0;
    });
    const ScreenDriver driver(window);
    driver.press(Qt::Key_Down);
    driver.type("xy");
    EXPECT_EQ(combo->Text(), "y");
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ComboTest, TheWheelTurnsOnlyTheComboThatHasTheFocus) {
    const ScreenDriver driver(window);
    combo->setListIndex(0);
    other->setFocus();
    const auto wheel = [this] {
        const QPointF at = combo->rect().center();
        QWheelEvent turn(at, combo->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(combo, &turn);
    };
    wheel();
    EXPECT_EQ(combo->ListIndex(), 0);
    combo->setFocus();
    wheel();
    EXPECT_EQ(combo->ListIndex(), 1);
    driver.retype("cmbType", "");
    wheel();
    EXPECT_EQ(combo->ListIndex(), 0) << "an emptied combo begins at its first entry";
}

TEST_F(ComboTest, ALongListIsShownWithoutMeasuringItsEntries) {
    std::vector<ListItem> people;
    for (int i = 0; i < 20'000; ++i)
        people.emplace_back(QStringLiteral("%1/Miller,Ann").arg(i, 5, 10, QChar('0')), i + 1);
    const QSize before = combo->sizeHint();
    combo->setItems(std::move(people));
    EXPECT_EQ(combo->sizeHint(), before);
    const ScreenDriver driver(window);
    driver.choose("cmbType", "19999/Miller,Ann");
    EXPECT_EQ(combo->ItemData(combo->ListIndex()), 20'000);
}

} // namespace tarnwell::test
