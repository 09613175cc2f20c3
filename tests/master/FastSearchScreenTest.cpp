#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "master/FastSearch.h"
#include "master/frmFastSearch.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <QRadioButton>

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class FastSearchScreen : public ScreenTest {
protected:
    void SetUp() override {
        caller.show();
        workOn(db);
        for (const char* name : {"Adams", "Baker", "Young"})
            keys.push_back(db.add("Employee", {{"SSN", "1"}, {"LastName", name}, {"FirstName", "Zoe"}}));
    }

    /// Shows the dialog, lets `use` handle it, and returns the key that it reports.
    qint64 show(int type, std::function<void(const ScreenDriver&)> use) {
        auto& form = theForm<frmFastSearch>();
        form.searchType = type;
        whenShown(std::move(use));
        form.Show(Screen::Modality::Modal, &caller);
        EXPECT_FALSE(form.isVisible());
        return selectedKeyNumber(form.selectedKey());
    }

    QWidget caller;
    TemporaryDatabase db;
    std::vector<qint64> keys;
};

} // namespace

TEST_F(FastSearchScreen, TheWaysToChooseARowAndToLeaveWithoutOne) {
    const qint64 baker = keys[1];
    const std::pair<qint64, std::function<void(const ScreenDriver&)>> ways[] = {
        {baker, [](const ScreenDriver& search) { search.press(Qt::Key_Return); }},
        {baker,
         [](const ScreenDriver& search) {
             search.press(Qt::Key_Down);
             EXPECT_EQ(search.focusedName(), "lstItems");
             search.press(Qt::Key_Return);
         }},
        {baker,
         [](const ScreenDriver& search) {
             search.clickLine("lstItems", 0);
             search.click("cmdSelect");
         }},
        {baker,
         [](const ScreenDriver& search) {
             search.doubleClick("lstItems", {20, 8});
         }},
        {0, [](const ScreenDriver& search) { search.press(Qt::Key_Escape); }},
        {0, [](const ScreenDriver& search) { search.click("cmdCancel"); }},
        {0, [](const ScreenDriver& search) { search.click("cmdSelect"); }},
        {0, [](const ScreenDriver& search) { search.window().close(); }}};
    for (const auto& [found, way] : ways)
        EXPECT_EQ(show(SearchType::Employee,
                       [&](const ScreenDriver& search) {
                           search.type("b");
                           way(search);
                       }),
                  found);
}

TEST_F(FastSearchScreen, EachShowingStartsCleanWithTheKindsOptions) {
    show(SearchType::Employee, [](const ScreenDriver& search) {
        search.click("optSearch(1)", {8, 8});
        search.focus("MskField(0)");
        search.type("z");
        EXPECT_EQ(search.find<ListBox>("lstItems").ListCount(), 3);
        search.press(Qt::Key_Return);
    });
    const qint64 none = show(SearchType::Builder, [](const ScreenDriver& search) {
        EXPECT_EQ(search.window().windowTitle(), "Builder Search");
        EXPECT_EQ(search.focusedName(), "MskField(0)");
        EXPECT_EQ(search.find<MaskedBox>("MskField(0)").text(), "");
        EXPECT_EQ(search.find<ListBox>("lstItems").ListCount(), 0);
        EXPECT_TRUE(search.find<QRadioButton>("optSearch(0)").isChecked());
        EXPECT_EQ(search.find<QRadioButton>("optSearch(1)").text(), "Address 1");
        EXPECT_TRUE(search.find<QRadioButton>("optSearch(2)").isHidden());
        search.press(Qt::Key_Escape);
    });
    EXPECT_EQ(none, 0);
}

TEST_F(FastSearchScreen, AnotherOptionSearchesAtTheNextKey) {
    show(SearchType::Employee, [](const ScreenDriver& search) {
        auto& list = search.find<ListBox>("lstItems");
        search.type("y");
        EXPECT_EQ(list.ListCount(), 1);
        search.click("optSearch(1)", {8, 8});
        EXPECT_EQ(list.ListCount(), 1);
        search.focus("MskField(0)");
        search.press(Qt::Key_Left);
        EXPECT_EQ(list.ListCount(), 3);
        search.press(Qt::Key_Escape);
    });
}

TEST_F(FastSearchScreen, AQuoteStopsTheProgram) {
    EXPECT_EXIT(
        {
            setMessagePresenter({}); // the message goes to standard error
            show(SearchType::Employee, [](const ScreenDriver& search) { search.type("'"); });
        },
        ::testing::ExitedWithCode(1), "2147217900");
}
