#include "controls/grid/DetailRows.h"

#include "GridFixture.h"
#include "controls/Combo.h"
#include "controls/grid/GridBinding.h"

namespace tarnwell::test {

namespace {

/// The grid of tasks beside a choice of category: the three tasks are in 3, and 4 is empty.
struct DetailRowsTest : GridTest {
    DetailRowsTest() {
        QObject::connect(grid, &Grid::beforeUpdate, grid,
                         [this](bool&) { grid->setValue(Category, details.keys().category); });
        start();
        EXPECT_TRUE(choose(3));
    }
    ~DetailRowsTest() override {
        grid->CancelUpdate();
        grid->bind(nullptr);
    }
    void show(qint64 category) {
        showRows(database.connection(), *grid, shownRows,
                 "SELECT * FROM JobLotTask WHERE CodeKey=" + QString::number(category) + " ORDER BY Name",
                 {});
    }
    bool choose(qint64 category) {
        chosen = category;
        return details.follow();
    }

    MessageScript script;
    std::shared_ptr<Recordset> shownRows;
    qint64 chosen = 0;
    DetailRows details{*grid,
                       {.chosen = [this] { return DetailKeys{.category = chosen}; },
                        .show = [this](const DetailKeys& wanted) { show(wanted.category); }}};
};

} // namespace

TEST_F(DetailRowsTest, ATypedRowBelongsToWhatWasOnShowNotToWhatIsChosenNext) {
    EXPECT_EQ(grid->RowCount(), 3);
    driver->press(Qt::Key_Insert);
    driver->type("Roof");
    EXPECT_TRUE(choose(4));
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_EQ(database.ask("SELECT CodeKey FROM JobLotTask WHERE Name='Roof'"), Value(3));
    EXPECT_TRUE(choose(3));
    EXPECT_EQ(grid->RowCount(), 4);
    EXPECT_TRUE(details.follow(2));
    EXPECT_EQ(grid->Row(), 2);
}

TEST_F(DetailRowsTest, ARefusedRowStaysWithItsKeysUntilItIsGivenUp) {
    clickCell(1, Price);
    driver->type("12x");
    script.expect(Answer::Ok);
    EXPECT_FALSE(choose(4));
    details.catchUp(); // without another message
    EXPECT_EQ(details.keys().category, 3);
    EXPECT_EQ(grid->RowCount(), 3);
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(details.keys().category, 4);
    EXPECT_EQ(grid->RowCount(), 0);
}

TEST(Choice, RestoredByItsKeyFiresNoEvent) {
    Combo combo;
    combo.setItems({{"Framing", 3}, {"Drywall", 4}});
    EXPECT_EQ(chosenKey(combo), 0);
    combo.setListIndex(1);
    EXPECT_EQ(chosenKey(combo), 4);
    int clicks = 0;
    QObject::connect(&combo, &Combo::clicked, &combo, [&clicks] { ++clicks; });
    restoreChoice(combo, 3);
    EXPECT_EQ(combo.Text(), "Framing");
    restoreChoice(combo, 77);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(clicks, 0);
}

} // namespace tarnwell::test
