#include "GridFixture.h"
#include "controls/grid/GridWidths.h"
#include "look/Theme.h"
#include "runtime/modGeneral.h"
#include "support/RememberedSettings.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QTemporaryFile>
#include <QTest>

namespace tarnwell::test {

TEST_F(GridTest, AReadOnlyGridIsWalkedAndLeftAtOnce) {
    start();
    grid->setAllowAdd(false);
    grid->setAllowEdit(false);
    driver->press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(grid->Row(), 3);
    EXPECT_EQ(grid->Col(), Employee);
    driver->press(Qt::Key_Home);
    driver->press(Qt::Key_Right);
    driver->type("x");
    driver->press(Qt::Key_F2);
    driver->press(Qt::Key_Delete);
    clickCell(3, Exclude);
    EXPECT_FALSE(grid->isPending());
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(driver->focusedName(), "after");
}

TEST_F(GridTest, TheCurrentRowShowsWithoutTheFocusOnLightAndDark) {
    start();
    const std::pair<QColor, int> leastDifference[] = {{Qt::white, 40}, {QColor(0x1b, 0x1e, 0x20), 80}};
    for (const auto& [base, least] : leastDifference) {
        QPalette palette = refinements(QPalette(base, base));
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, isDark(base) ? Qt::white : Qt::black);
        palette.setColor(QPalette::AlternateBase, base);
        palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
        window.setPalette(palette);
        driver->focus("after");
        const QImage image = grid->viewport()->grab().toImage();
        const auto corner = [&](int row) {
            return image.pixelColor(cell(row, Name).topRight() - QPoint(4, -4));
        };
        const QColor current = corner(1);
        const QColor other = corner(2);
        EXPECT_GT(qAbs(current.red() - other.red()) + qAbs(current.green() - other.green()) +
                      qAbs(current.blue() - other.blue()),
                  least)
            << base.name().toStdString();
    }
}

TEST_F(GridTest, RowsOfNothingHaveNoNewRowLineAndSayWhatToDo) {
    grid->setAllowAdd(true);
    grid->setEmptyHint([] { return QStringLiteral("Choose a lot."); });
    grid->setHasOwner(false);
    open("1=0");
    grid->bind(&rows);
    EXPECT_EQ(grid->Row(), -1);
    EXPECT_EQ(grid->model()->rowCount(), 0);
    const QImage image = grid->viewport()->grab().toImage();
    EXPECT_EQ(image.pixelColor(2, 2), grid->palette().color(QPalette::Disabled, QPalette::Base));
    grid->setHasOwner(true);
    open("1=0");
    grid->bind(&rows);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridTest, ALongTextTakesWhatTheSharingColumnsCanSpare) {
    std::vector<GridColumn> columns = grid->columns();
    for (GridColumn& column : columns)
        column.visible = column.key == "Name" || column.key == "CustomTask";
    columns[Name - 1].width = 40;
    columns[Custom - 1].width = 0;
    window.resize(600, 300);
    grid->setColumns(columns);
    open();
    EXPECT_GT(grid->columnWidth(Name - 1), grid->fontMetrics().horizontalAdvance("Brick"));
    grid->setColumnWidth(Name - 1, 30);
    open();
    EXPECT_EQ(grid->columnWidth(Name - 1), 30) << "the user's own width stays";
}

TEST_F(GridTest, RowMarksGrowWithTheFont) {
    const auto width = [this](int points) {
        QFont font = grid->font();
        font.setPointSize(points);
        grid->setFont(font);
        return grid->verticalHeader()->sizeHint().width();
    };
    EXPECT_GT(width(18), width(9) * 3 / 2);
}

TEST_F(GridTest, AScreenMayTakeAKeyOrReplaceIt) {
    start();
    QObject::connect(grid, &Grid::keyDown, grid, [](int& code, int) {
        if (code == KeyCode::Enter)
            code = KeyCode::Right;
        else if (code == 'Q')
            code = 0;
    });
    driver->type("q");
    EXPECT_FALSE(grid->isPending());
    driver->type("Wood");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(grid->Col(), Price);
    driver->press(Qt::Key_Return);
    EXPECT_EQ(grid->Col(), Custom);
    EXPECT_EQ(driver->focusedName(), "jgTasks");
    EXPECT_EQ(shown(1, Name), "Wood");
}

TEST_F(GridTest, BindingAlwaysTellsOnceAndAClosedRecordsetShowsNothing) {
    start();
    open("JobLotKey=0");
    grid->bind(&rows);
    EXPECT_EQ(takeLog(), QStringList({"-1,0 to 1,5"}));
    grid->setAllowAdd(false);
    grid->Rebind();
    EXPECT_EQ(takeLog(), QStringList({"-1,0 to -1,0"}));
    open();
    grid->bind(&rows);
    rows.setFilter("MasterPrice>10");
    grid->Rebind();
    EXPECT_EQ(grid->RowCount(), 2);
    EXPECT_EQ(grid->value("name"), Value("Frame"));
    rows.Close();
    grid->grab();
    EXPECT_EQ(grid->RowCount(), 0);
    EXPECT_EQ(grid->Row(), -1);
    EXPECT_TRUE(grid->value(Name).isEmpty());
    driver->press(Qt::Key_Down);
    driver->type("x");
    log.clear();
    grid->bind(nullptr);
    EXPECT_TRUE(takeLog().isEmpty());
}

TEST_F(GridTest, AnOpenedListStaysOpenAndGivesItsEntry) {
    start();
    clickCell(1, Custom);
    driver->press(Qt::Key_F4);
    auto* list = grid->findChild<QComboBox*>();
    ASSERT_NE(list, nullptr);
    ASSERT_TRUE(waitFor([list] { return list->view()->isVisible(); }));
    list->view()->setFocus(Qt::OtherFocusReason); // as desktops give it to the list
    ASSERT_EQ(grid->findChild<QComboBox*>(), list) << "the focus is still the editor's own";
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    driver->press(Qt::Key_Return);
    EXPECT_EQ(shown(1, Custom), "Y");
}

TEST_F(GridTest, ATreeSetsItsRowsOffAndKeepsTheirOrderAndTexts) {
    start();
    const QImage plain = grid->grab().toImage();
    grid->setTree(Name, [](const CellReader& cell) {
        return cell(Price) == Value(10.0) ? TreeLevel::Parent
               : cell(Price).isNoKey()    ? TreeLevel::Plain
                                          : TreeLevel::Child;
    });
    const auto isSetOff = [&](int row, int column) {
        const QRect place(cell(row, column).topLeft() + grid->viewport()->pos(), cell(row, column).size());
        return grid->grab().toImage().copy(place) != plain.copy(place);
    };
    for (int row = 1; row <= 4; ++row) {
        EXPECT_EQ(isSetOff(row, Name), row < 4) << row;
        EXPECT_FALSE(isSetOff(row, Price)) << row;
    }
    const auto described = [this](int row) {
        return grid->model()->index(row - 1, Name - 1).data(Qt::AccessibleDescriptionRole).toString();
    };
    EXPECT_EQ(described(1), "Has rows below it");
    EXPECT_EQ(described(2), "Belongs to a row above");
    EXPECT_EQ(shown(2, Name), "Frame");
    clickCell(2, Name);
    driver->press(Qt::Key_F2);
    EXPECT_EQ(editor()->text(), "Frame");
    EXPECT_GT(editor()->x(), cell(2, Name).x() + 10) << "typed where it is shown";
}

TEST_F(GridTest, ALayoutOrdersAndSizesTheColumnsUntilTheUserDoes) {
    start();
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("column Name width 150\ncolumn addonbutton width 30\ncolumn Employeekey width rest\n");
    file.close();
    grid->LoadLayout(file.fileName());
    const QHeaderView& header = *grid->horizontalHeader();
    EXPECT_EQ(header.visualIndex(Name - 1), 0);
    EXPECT_EQ(header.visualIndex(Button - 1), 1);
    EXPECT_EQ(grid->columnWidth(Name - 1), scaledToText(150, *grid));
    EXPECT_EQ(header.length(), grid->viewport()->width());
    driver->press(Qt::Key_Home);
    EXPECT_EQ(grid->Col(), Name);
    grid->setColumnWidth(Name - 1, 90);
    grid->LoadLayout(file.fileName());
    grid->bind(&rows);
    EXPECT_EQ(grid->columnWidth(Name - 1), 90);
    EXPECT_EQ(header.length(), grid->viewport()->width());
    grid->LoadLayout("missing.lyt");
    EXPECT_EQ(header.visualIndex(Name - 1), 0);
}

TEST_F(GridTest, DraggedWidthsComeBackOverTheLayoutUntilTheStandardIsChosen) {
    const RememberedSettings settings;
    start();
    QTemporaryFile layout;
    ASSERT_TRUE(layout.open());
    layout.write("column Name width 150\ncolumn MasterPrice width 80\n");
    layout.close();
    grid->findChild<GridWidths*>()->rememberAs("frmTest.grid");
    grid->LoadLayout(layout.fileName());
    QHeaderView& header = *grid->horizontalHeader();
    auto* standard = header.findChild<QAction*>("mnuStandardWidths");
    EXPECT_FALSE(standard->isEnabled());
    const QPoint edge(header.sectionViewportPosition(Name - 1) + 150 - 1, header.height() / 2);
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(header.viewport(), edge + QPoint(40, 0));
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, edge + QPoint(40, 0));
    const int dragged = grid->columnWidth(Name - 1);
    ASSERT_GT(dragged, scaledToText(150, *grid));
    RememberedSettings::endProgram();

    const auto again = [&] {
        auto* made = new Grid(&window);
        made->setColumns(grid->columns());
        made->LoadLayout(layout.fileName());
        made->findChild<GridWidths*>()->rememberAs("frmTest.grid");
        return made;
    };
    EXPECT_EQ(again()->columnWidth(Name - 1), dragged);
    EXPECT_EQ(again()->columnWidth(Price - 1), scaledToText(80, *grid)) << "as the layout has it";
    EXPECT_EQ(header.actions(), QList<QAction*>{standard});
    standard->trigger();
    EXPECT_EQ(grid->columnWidth(Name - 1), scaledToText(150, *grid));
    EXPECT_FALSE(standard->isEnabled());
    RememberedSettings::endProgram();
    EXPECT_EQ(again()->columnWidth(Name - 1), scaledToText(150, *grid));
    for (const char* damaged : {"Name=;Name", "Name=99999;=;MasterPrice", "Name=-5", ";;=120"}) {
        remember("Columns frmTest.grid", damaged);
        EXPECT_EQ(again()->columnWidth(Name - 1), scaledToText(150, *grid)) << damaged;
    }
}

} // namespace tarnwell::test
