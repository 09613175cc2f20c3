#include "controls/grid/GridCell.h"

#include "controls/grid/GridLayout.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace tarnwell;

namespace {

const std::vector<ListEntry> people{{.value = 7, .text = "Smith\\Ann"}, {.value = 9, .text = "Stone\\Bo"}};
const std::vector<ListEntry> yesNo{{.value = "N", .text = "N"}, {.value = "Y", .text = "Y"}};

GridColumn columnOf(ColumnFormat format, ColumnEdit edit = ColumnEdit::Text,
                    std::vector<ListEntry> list = {}) {
    return {.key = "K", .caption = "C", .format = format, .edit = edit, .valueList = std::move(list)};
}

DateTime moment(int year, int hour = 0, int minute = 0, int second = 0) {
    return {QDate(year, 3, 4), QTime(hour, minute, second)};
}

struct Shown {
    GridColumn column;
    Value value;
    QString text;
    QString edited;
};

TEST(GridCell, ShowsAndOffersForEditing) {
    const GridColumn price = columnOf(ColumnFormat::Fixed);
    const GridColumn date = columnOf(ColumnFormat::GeneralDate);
    const GridColumn person = columnOf(ColumnFormat::General, ColumnEdit::ValueList, people);
    const GridColumn custom = columnOf(ColumnFormat::General, ColumnEdit::ValueList, yesNo);
    const GridColumn box = columnOf(ColumnFormat::YesNo, ColumnEdit::CheckBox);
    const Shown cases[] = {
        {price, 12.5, "12.50", "12.50"},
        {price, 0.125, "0.13", "0.125"}, // what is not shown must not be lost by opening the editor
        {price, Value::null(), "", ""},
        {date, moment(2024, 14, 5), "03/04/24 14:05", "03/04/24 14:05"},
        {date, moment(1899), "03/04/99 00:00", "03/04/1899"},
        {person, 9, "Stone\\Bo", "Stone\\Bo"},
        {person, 8, "", ""}, // no longer in the list
        {person, 0, "", ""},
        {custom, "y", "Y", "Y"},
        {box, true, "", ""},
        {columnOf(ColumnFormat::General), "a", "a", "a"},
    };
    for (const Shown& each : cases) {
        const ValueListIndex list(each.column.valueList);
        EXPECT_EQ(cellText(each.column, list, each.value), each.text);
        EXPECT_EQ(editText(each.column, list, each.value), each.edited);
    }
}

struct Typed {
    GridColumn column;
    QString text;
    Value value;
    bool taken = true;
};

TEST(GridCell, TakesOnlyWhatConverts) {
    const GridColumn price = columnOf(ColumnFormat::Fixed);
    const GridColumn date = columnOf(ColumnFormat::GeneralDate);
    const GridColumn person = columnOf(ColumnFormat::General, ColumnEdit::ValueList, people);
    const GridColumn custom = columnOf(ColumnFormat::General, ColumnEdit::ValueList, yesNo);
    const Typed cases[] = {
        {price, " 12.5 ", 12.5},
        {price, "1e308", 1e308},
        {price, "1e309", {}, false},
        {price, "12,x", {}, false},
        {price, "12,50", {}, false},
        {price, "$1,234.50", 1234.5},
        {price, "", Value::null()},
        {date, "3/4/24 14:05", moment(2024, 14, 5)},
        {date, "02/29/23", {}, false},
        {date, "13/45/02", {}, false},
        {date, "  ", Value::null()},
        {person, "stone\\bo", 9},
        {person, "Stone", {}, false},
        {person, "", Value::null()},
        {custom, "y", "Y"},
        {custom, "x", {}, false},
        {custom, "", ""},
        {columnOf(ColumnFormat::General), " it's ", " it's "},
        {columnOf(ColumnFormat::General), "", ""},
    };
    for (const Typed& each : cases) {
        const ValueListIndex list(each.column.valueList);
        const ParsedCell parsed = parseCell(each.column, list, each.text);
        EXPECT_EQ(parsed.refusal.isEmpty(), each.taken) << each.text.toStdString();
        EXPECT_EQ(parsed.value, each.value) << each.text.toStdString();
    }
}

TEST(GridLayout, PassesOverWhatItDoesNotUnderstand) {
    const auto layout = parseLayout("# column Note width 5\n\ncolumn Name width rest\r\n"
                                    "column Price width 90\ncolumn Price width 10\n"
                                    "column Bad width -4\ncolumn Wide width 9999\ncolumn width 5\nrow A\n"
                                    "  COLUMN  Last  WIDTH  7");
    ASSERT_EQ(layout.size(), 3U);
    EXPECT_EQ(layout[0].key, "Name");
    EXPECT_EQ(layout[0].width, 0);
    EXPECT_EQ(layout[1].width, 90);
    EXPECT_EQ(layout[2].key, "Last");
}

TEST(GridLayout, EveryFileThatIsShippedCanBeRead) {
    const QDir folder(QStringLiteral(TARNWELL_LAYOUTS));
    const QStringList files = folder.entryList({QStringLiteral("*.lyt")});
    EXPECT_EQ(files.size(), 10);
    for (const QString& file : files) {
        const auto layout = readLayout(folder.filePath(file));
        ASSERT_TRUE(layout.has_value());
        EXPECT_FALSE(layout->empty()) << file.toStdString();
    }
    EXPECT_FALSE(readLayout(folder.filePath(QStringLiteral("Missing.lyt"))).has_value());
}

} // namespace
