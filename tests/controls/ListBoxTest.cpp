#include "controls/ListBox.h"

#include "data/RunTimeError.h"
#include "support/ScreenDriver.h"

#include <QFontMetrics>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

struct ListBoxTest : ::testing::Test {
    QWidget window;
    ListBox& list = *new ListBox(ListBox::Pitch::Fixed, &window);
    std::vector<int> chosen;
    int opened = 0;

    ListBoxTest() {
        list.setObjectName("lstItems");
        list.resize(300, 200);
        window.resize(list.size());
        list.setItems({{"heading", 0}, {"one", 11}, {"two", 12}});
        QObject::connect(&list, &ListBox::clicked, &list, [this] { chosen.push_back(list.ListIndex()); });
        QObject::connect(&list, &ListBox::doubleClick, &list, [this] { ++opened; });
    }
};

} // namespace

TEST_F(ListBoxTest, NothingIsChosenBeforeTheUserOrCodeDoes) {
    EXPECT_EQ(list.ListIndex(), -1);
    const ScreenDriver driver(window);
    EXPECT_EQ(list.ListIndex(), -1);
    driver.press(Qt::Key_Return);
    EXPECT_EQ(opened, 0);
    EXPECT_TRUE(chosen.empty());
    driver.press(Qt::Key_Down);
    EXPECT_EQ(chosen, std::vector<int>({0}));
}

TEST_F(ListBoxTest, EveryChoiceFiresOnce) {
    const ScreenDriver driver(window);
    driver.clickLine("lstItems", 1);
    driver.clickLine("lstItems", 1);
    driver.press(Qt::Key_Down, Qt::NoModifier, 2);
    driver.press(Qt::Key_Home);
    list.setListIndex(0);
    list.setListIndex(-1);
    EXPECT_EQ(chosen, std::vector<int>({1, 1, 2, 0, 0, -1}));
}

TEST_F(ListBoxTest, DoubleClickAndEnterOpenTheLine) {
    const ScreenDriver driver(window);
    driver.doubleClick("lstItems", list.visualItemRect(list.item(2)).center());
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(list.ItemData(list.ListIndex()), 12);
    driver.press(Qt::Key_Return);
    EXPECT_EQ(opened, 2);
}

TEST_F(ListBoxTest, FillingAgainForgetsTheChoice) {
    list.setListIndex(2);
    list.setItems({{"new", 21}});
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.ListCount(), 1);
    EXPECT_EQ(list.item(0)->data(Qt::UserRole).toLongLong(), 21);
    list.AddItem("last", 22);
    EXPECT_EQ(list.ItemData(1), 22);
    EXPECT_THROW((void)list.ItemData(2), RunTimeError);
    EXPECT_THROW(list.setListIndex(2), RunTimeError);
    list.Clear();
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ListBoxTest, FixedPitchLinesUp) {
    const QFontMetrics metrics(list.font());
    EXPECT_EQ(metrics.horizontalAdvance("iiii|"), metrics.horizontalAdvance("WWWW|"));
}

} // namespace tarnwell::test
