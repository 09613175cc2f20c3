#include "timecard/EmployeeLog.h"

#include "support/RaisedNumber.h"
#include "timecard/TimeCardData.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Value march5 = DateTime{QDate(2024, 3, 5)};

class EmployeeLogRows : public ::testing::Test {
protected:
    [[nodiscard]] Value stored(const char* column) {
        return data.db.ask(QString("SELECT %1 FROM EmployeeLog WHERE LogKey=%2").arg(column).arg(row));
    }
    [[nodiscard]] ShownLogRow read() { return readLogRow(data.db.connection(), row); }
    void accept(const ShownLogRow& shown, const char* date, const char* problem) {
        acceptLogRow(data.db.connection(), row, shown, date, problem);
    }

    TimeCardData data;
    qint64 row = data.addLog(DateTime{QDate(1925, 3, 5), QTime(14, 30)}, "Paid twice");
};

} // namespace

TEST(EmployeeLogLine, HoldsWhatFitsIntoFiftyCharacters) {
    const QString longText(60, u'x');
    const std::pair<Value, QString> cases[] = {
        {"Paid twice", "03/05/24 | Paid twice"},
        {longText, "03/05/24 | " + longText.left(39)},
        {"two\nlines", "03/05/24 | two lines"},
        {Value::null(), "03/05/24 | "},
    };
    for (const auto& [problem, line] : cases)
        EXPECT_EQ(logLine(march5, problem), line.leftJustified(50));
    EXPECT_EQ(wholeLogLine(march5, longText + "\r\nand\nmore"), "03/05/24 | " + longText + " and more");
    EXPECT_EQ(logLine(Value::null(), "no date"), QString("         | no date").leftJustified(50));
}

TEST_F(EmployeeLogRows, TheDateIsThatOfTheTextAlsoWhenItIsUnchanged) {
    const ShownLogRow shown = read();
    EXPECT_EQ(shown.dateText, "03/05/25");
    accept(shown, "03/05/25", "Settled");
    EXPECT_EQ(stored("Occured"), Value(DateTime{QDate(2025, 3, 5)}));
    EXPECT_EQ(stored("Problem"), Value("Settled"));
    EXPECT_EQ(stored("EmployeeKey"), Value(data.ann));
    EXPECT_EQ(stored("JobLotTaskKey"), Value(data.task));
    accept(read(), "3/6/24", "Settled");
    EXPECT_EQ(stored("Occured"), Value(DateTime{QDate(2024, 3, 6)}));
    data.db.run("UPDATE EmployeeLog SET Occured=NULL");
    accept(read(), "", "Settled");
    EXPECT_EQ(stored("Occured"), Value::null());
}

TEST_F(EmployeeLogRows, ALogIsListedNewestFirst) {
    data.addLog(march5, Value::null());
    data.addLog(DateTime{QDate(2026, 1, 1)}, "newer");
    QStringList lines;
    const auto read = [&](qint64 employee) {
        lines.clear();
        readEmployeeLog(data.db.connection(), employee, wholeLogLine,
                        [&](const QString& text, qint64) { lines.append(text); });
    };
    read(data.ann);
    EXPECT_EQ(lines, (QStringList{"01/01/26 | newer", "03/05/24 | ", "03/05/25 | Paid twice"}));
    read(0);
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(EmployeeLogRows, WhatIsNoDateOrNoLongerAsShownIsNotWritten) {
    const ShownLogRow shown = read();
    for (const char* text : {"", "02/29/23", "soon"})
        EXPECT_EQ(raisedNumber([&] { accept(shown, text, "x"); }), numberOf(Failure::WrongType)) << text;
    EXPECT_EQ(raisedNumber([&] { accept({}, "03/05/24", "x"); }), numberOf(Failure::NoCurrentRecord));
    data.db.secondWorkstation()->Execute("UPDATE EmployeeLog SET Problem='theirs'");
    EXPECT_EQ(raisedNumber([&] { accept(shown, "03/05/25", "ours"); }), numberOf(Failure::RowChanged));
    EXPECT_EQ(stored("Problem"), Value("theirs"));
}
