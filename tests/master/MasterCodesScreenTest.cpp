#include "MasterScreenFixture.h"
#include "master/frmMasterCodes.h"

namespace tarnwell::test {

namespace {

struct MasterCodesTest : MasterScreenTest<frmMasterCodes> {
    Grid& codes() { return grid("jgCodes"); }
    /// Types a name on the new-row line.
    void typeNew(const char* name) {
        driver->focus("jgCodes");
        driver->press(Qt::Key_Insert);
        driver->type(name);
    }
    qint64 listOf(const char* name) {
        const Value list = ask(QStringLiteral("SELECT Code1 FROM Code WHERE Description='%1'").arg(name));
        return list.isEmpty() ? -1 : list.toLong();
    }
};

TEST_F(MasterCodesTest, ShowsTheListThatIsTyped) {
    open();
    EXPECT_EQ(form().statusText(), "Select Category / Enter Master Codes");
    EXPECT_EQ(category().Text(), "Employee Type");
    EXPECT_EQ(driver->enabledButtons(), "Exit Del");
    typeCategory("m");
    EXPECT_EQ(category().Text(), "Master Task Category");
    EXPECT_EQ(codes().RowCount(), 2);
    EXPECT_EQ(codes().value("Description"), Value("Framing"));
}

TEST_F(MasterCodesTest, ANewRowJoinsTheListOnScreenHoweverItIsLeft) {
    open();
    typeNew("Drywall Hanger");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(listOf("Drywall Hanger"), 1);
    typeNew("Stucco");
    driver->click("cmbType");
    EXPECT_EQ(listOf("Stucco"), 1);
    typeNew("Ghost");
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    typeCategory("m");
    EXPECT_EQ(listOf("Ghost"), -1);
    typeNew("Roofing");
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(listOf("Roofing"), 2);
    typeNew("Siding");
    form().close();
    EXPECT_EQ(listOf("Siding"), 2);
    EXPECT_EQ(ask("SELECT Deleted FROM Code WHERE Description='Siding'"), Value(false));
}

TEST_F(MasterCodesTest, DelMarksTheRowAndOnlyFromTheGrid) {
    open();
    typeCategory("m");
    driver->clickToolbar("Del");
    driver->focus("jgCodes");
    driver->press(Qt::Key_Insert);
    driver->clickToolbar("Del"); // nothing stands there yet
    driver->type("Half");
    driver->clickToolbar("Del");
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    EXPECT_TRUE(script.shown().empty());
    codes().setRow(1);
    driver->press(Qt::Key_Delete);
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(codes().RowCount(), 2);
    script.expect(Answer::Yes, Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_EQ(codes().RowCount(), 1);
    EXPECT_EQ(ask("SELECT Description FROM Code WHERE Deleted=-1"), Value("Framing"));
    EXPECT_EQ(ask("SELECT Count(*) FROM MasterTask WHERE CodeKey=" + QString::number(data.framing)),
              Value(1));
}

TEST_F(MasterCodesTest, DelStaysWhereTheRowStood) {
    open();
    driver->focus("jgCodes");
    codes().setRow(codes().RowCount() - 1);
    script.expect(Answer::Yes, Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_EQ(codes().value("Description"), Value("Plumber"));
    driver->clickToolbar("Del");
    EXPECT_EQ(codes().Row(), codes().RowCount());
}

TEST_F(MasterCodesTest, AnEditOutlastsADelThatIsNotConfirmed) {
    open();
    typeCategory("m");
    driver->focus("jgCodes");
    driver->type("Framing 2");
    script.expect(Answer::No);
    driver->clickToolbar("Del");
    EXPECT_EQ(listOf("Framing 2"), -1);
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    EXPECT_EQ(codes().value("Description"), Value("Framing"));
    driver->type("Frames");
    script.expect(Answer::Yes, Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_EQ(ask("SELECT Description FROM Code WHERE Deleted=-1"), Value("Frames"));
    EXPECT_EQ(codes().RowCount(), 1);
}

TEST_F(MasterCodesTest, ARowThatAnotherWorkstationDeletedKeepsItsListUntilItIsGivenUp) {
    open();
    typeCategory("m");
    driver->focus("jgCodes");
    driver->type("Framing 2");
    data.db.secondWorkstation()->Execute("DELETE FROM Code WHERE Description='Framing'");
    script.expect(Answer::Ok);
    driver->click("cmbType");
    script.expect(Answer::Ok);
    driver->choose("cmbType", "Employee Type");
    EXPECT_EQ(category().Text(), "Master Task Category");
    EXPECT_EQ(driver->focusedName(), "jgCodes");
    script.expect(Answer::Ok);
    form().close();
    EXPECT_TRUE(form().isVisible());
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(codes().RowCount(), 1);
    driver->clickToolbar("Exit");
    EXPECT_EQ(script.shown().size(), 3U);
    EXPECT_EQ(loadedForms().size(), 0U);
}

} // namespace

} // namespace tarnwell::test
