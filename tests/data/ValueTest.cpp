#include "data/Value.h"

#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

DateTime at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {QDate(year, month, day), QTime(hour, minute, second)};
}

TEST(NumberTextTest, PrintsFifteenDigitsAndNoMore) {
    const std::pair<double, const char*> cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {12.0, "12"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {-2.5, "-2.5"},
        {100.0, "100"},
        {1234567.891, "1234567.891"},
        {1.0 / 3.0, "0.333333333333333"},
        {0.01 / 3.0, "3.33333333333333E-03"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1E+15"},
        {1e20, "1E+20"},
        {1.5e308, "1.5E+308"},
        {0.00001, "0.00001"},
    };
    for (const auto& [number, text] : cases)
        EXPECT_EQ(numberText(number).toStdString(), text);
}

TEST(DateFromTextTest, TakesTheFormsThatAreWritten) {
    const std::pair<const char*, DateTime> cases[] = {
        {"01/15/02", at(2002, 1, 15)},
        {" 1/5/2002 ", at(2002, 1, 5)},
        {"1-15-02", at(2002, 1, 15)},
        {"12/31/29", at(2029, 12, 31)},
        {"01/01/30", at(1930, 1, 1)},
        {"02/29/24", at(2024, 2, 29)},
        {"01/15/02 14:30", at(2002, 1, 15, 14, 30)},
        {"01/15/02 2:30 pm", at(2002, 1, 15, 14, 30)},
        {"01/15/02 12:00AM", at(2002, 1, 15)},
        {"2002-01-15 14:30:05", at(2002, 1, 15, 14, 30, 5)},
        {"2002-01-15", at(2002, 1, 15)},
    };
    for (const auto& [text, moment] : cases)
        EXPECT_EQ(dateFromText(text), moment) << text;
}

TEST(DateFromTextTest, RefusesWhatIsNoDate) {
    for (const char* text : {"", "  /  /  ", "02/29/23", "13/45/02", "13/05/02", "0/1/02", "01/15",
                             "01/15-02", "1/15/123", "01/15/02x", "01/15/02 25:00", "01/15/02 13:00 PM",
                             "01/15/02 14", "14:30", "abc", "2002/1/155", "1/15/20022"})
        EXPECT_FALSE(dateFromText(text).isValid()) << text;
}

TEST(ValueTest, EmptyNullEmptyTextAndZeroStayApart) {
    const Value values[] = {Value(), Value::null(), Value(""), Value(0), Value(false), Value(0.0)};
    for (const Value& a : values)
        for (const Value& b : values)
            EXPECT_EQ(a == b, &a == &b);
    EXPECT_TRUE(Value().isNoKey() && Value::null().isNoKey() && Value(0).isNoKey());
    EXPECT_FALSE(Value("").isNoKey() || Value(7).isNoKey());
}

TEST(ValueTest, ConvertsAsTheRunTimeDoes) {
    EXPECT_EQ(Value(2.5).toLong(), 2);
    EXPECT_EQ(Value(3.5).toLong(), 4);
    EXPECT_EQ(Value(" -1,234.5 ").toDouble(), -1234.5);
    EXPECT_EQ(Value("$12").toDouble(), 12.0);
    EXPECT_EQ(Value("+1E2").toDouble(), 100.0);
    EXPECT_EQ(Value(true).toLong(), -1);
    EXPECT_TRUE(Value("true").toBool() && Value(-1).toBool() && !Value("0").toBool());
    EXPECT_EQ(Value(at(2002, 1, 15, 12)).toDouble(), 37271.5);
    EXPECT_EQ(Value(37271.5).toDate(), at(2002, 1, 15, 12));
    EXPECT_EQ(Value("01/15/02").toDate(), at(2002, 1, 15));
    EXPECT_EQ(Value(at(2002, 1, 5)).toText(), "01/05/2002");
    EXPECT_EQ(Value(at(2002, 1, 5, 7, 8, 9)).toText(), "01/05/2002 07:08:09");
    const auto stored = storedDate(at(2002, 1, 5, 7, 8, 9));
    EXPECT_EQ(std::string(stored.begin(), stored.end()), "2002-01-05 07:08:09");
    EXPECT_EQ(Value(true).toText(), "True");
    EXPECT_EQ(Value().toText(), QString());
    EXPECT_EQ(Value().toLong(), 0);
}

TEST(ValueTest, RaisesTheRunTimesNumbers) {
    EXPECT_EQ(test::raisedNumber([] { (void)Value::null().toText(); }), 94);
    EXPECT_EQ(test::raisedNumber([] { (void)Value::null().toDate(); }), 94);
    for (const char* text : {"", "abc", "12x", "1e", "inf", "nan", "-", "1.2.3", "01/15/02"})
        EXPECT_EQ(test::raisedNumber([&] { (void)Value(text).toDouble(); }), 13) << text;
    EXPECT_EQ(test::raisedNumber([] { (void)Value("13/45/02").toDate(); }), 13);
    EXPECT_EQ(test::raisedNumber([] { (void)Value("1e400").toDouble(); }), 6);
    EXPECT_EQ(test::raisedNumber([] { (void)Value(1e308).toLong(); }), 6);
    EXPECT_EQ(test::raisedNumber([] { (void)Value("3000000000").toLong(); }), 6);
    EXPECT_EQ(Value("1e-400").toDouble(), 0.0);
}

TEST(CompareValuesTest, OrdersAsAnAscendingSort) {
    const Value ascending[] = {Value::null(),
                               Value(true),
                               Value(0),
                               Value(0.5),
                               Value(qint64{1} << 60),
                               Value(at(2001, 1, 1)),
                               Value(at(2001, 1, 1, 8)),
                               Value("Adams"),
                               Value("baker")};
    for (std::size_t i = 0; i < std::size(ascending); ++i)
        for (std::size_t j = 0; j < std::size(ascending); ++j)
            EXPECT_EQ(compareValues(ascending[i], ascending[j]), i < j ? -1 : (i > j ? 1 : 0))
                << i << ' ' << j;
    EXPECT_EQ(compareValues(Value("SMITH"), Value("smith")), 0);
    EXPECT_EQ(compareValues(Value(), Value::null()), 0);
    EXPECT_EQ(compareValues(Value(2), Value(2.0)), 0);
}

} // namespace
} // namespace tarnwell
