#include "runtime/RunTime.h"

#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

namespace tarnwell {

namespace {

TEST(Val, TakesTheNumericPrefix) {
    const struct {
        const char* text;
        double number;
    } cases[] = {
        {"", 0},        {"abc", 0},    {"12abc", 12}, {"  12", 12},      {"1 2\t3", 123}, {"-5.5", -5.5},
        {"+7", 7},      {"- 7", -7},   {".5", 0.5},   {"-.5x", -0.5},    {"5.", 5},       {".", 0},
        {"1.2.3", 1.2}, {"1e3", 1000}, {"1D3", 1000}, {"2e-2", 0.02},    {"12 each", 12}, {"3e", 3},
        {"3e+", 3},     {"$12", 0},    {"12,50", 12}, {"1e308", 1e308},  {"1e-999", 0},   {"0e999", 0},
        {"-e5", 0},     {"1/2", 1},    {"\n42", 42},  {"0012.50", 12.5},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Val(each.text), each.number) << each.text;
}

TEST(Val, RaisesOverflowBeyondADouble) {
    for (const char* text : {"1e309", "-1e309", "1e99999999999999999999"})
        EXPECT_EQ(test::raisedNumber([text] { static_cast<void>(Val(text)); }), 6) << text;
    EXPECT_THROW(static_cast<void>(Val(QString(400, u'9'))), RunTimeError);
}

TEST(Str, KeepsABlankInThePlaceOfASign) {
    EXPECT_EQ(Str(12), " 12");
    EXPECT_EQ(Str(-2147217864), "-2147217864");
    EXPECT_EQ(Str(0), " 0");
    EXPECT_EQ(Str(0.5), " .5");
    EXPECT_EQ(Str(-0.5), "-.5");
}

TEST(Format, ShowsNumbers) {
    const struct {
        double number;
        const char* format;
        const char* text;
    } cases[] = {
        {0, "#.#0", ".00"},
        {-5, "#.#0", "-5.00"},
        {1234567.5, "#####.#0", "1234567.50"},
        {0, "###0.00", "0.00"},
        {2.345, "0.00", "2.35"},
        {-2.345, "0.00", "-2.35"},
        {1.005, "#0.00", "1.01"},
        {0.125, "#0.00", "0.13"},
        {0.3 - 0.1 - 0.2, "#.#0", ".00"},
        {-0.004, "#0.00", "0.00"},
        {99.9999, "Fixed", "100.00"},
        {2.5, "#0", "3"},
        {12, "#.#", "12."},
        {7, "000", "007"},
        {1e15, "#0.00", "1000000000000000.00"},
        {5, "$#0.00 each", "$5.00 each"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Format(each.number, each.format), each.text) << each.number << " as " << each.format;
}

TEST(Format, ShowsTheLargestPriceWhole) {
    EXPECT_EQ(Format(1e308, "###0.00"), u'1' + QString(308, u'0') + ".00");
    EXPECT_EQ(Format(5e-324, "###0.00"), "0.00");
}

TEST(Format, ShowsDates) {
    const Value moment = DateTime{QDate(2002, 1, 5), QTime(14, 7, 9)};
    const struct {
        const char* format;
        const char* text;
    } cases[] = {
        {"mm/dd/yy", "01/05/02"},
        {"mm/dd/yy | ", "01/05/02 | "},
        {"mm/dd/yy hh:mm", "01/05/02 14:07"},
        {"mm/dd", "01/05"},
        {"mm/dd/yyyy", "01/05/2002"},
        {"hh:mm", "14:07"},
        {"hh:mm:ss mm", "14:07:09 01"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Format(moment, each.format), each.text) << each.format;
}

TEST(Format, TakesTextAsWhatItIs) {
    EXPECT_EQ(Format(Value("12.5"), "#0.00"), "12.50");
    EXPECT_EQ(Format(Value("$1,200"), "#0.00"), "1200.00");
    EXPECT_EQ(Format(Value("12abc"), "#0.00"), "12abc");
    EXPECT_EQ(Format(Value("nan"), "#0.00"), "nan");
    EXPECT_EQ(Format(Value("1/5/2002"), "mm/dd/yy"), "01/05/02");
    EXPECT_EQ(Format(Value("02/29/23"), "mm/dd/yy"), "02/29/23");
    EXPECT_EQ(Format(Value::null(), "mm/dd/yy"), QString());
    EXPECT_EQ(Format(Value(), "#0"), QString());
}

TEST(Round, SendsHalvesToTheEvenDigit) {
    EXPECT_EQ(Round(0.5, 0), 0);
    EXPECT_EQ(Round(1.5, 0), 2);
    EXPECT_EQ(Round(-2.5, 0), -2);
    EXPECT_EQ(Round(0.125, 2), 0.12);
    EXPECT_EQ(Round(2.675, 2), 2.68);
    EXPECT_EQ(Round(2.6750001, 2), 2.68);
    EXPECT_EQ(Round(99.996, 2), 100);
    EXPECT_EQ(Round(1.7976931348623157e308, 2), 1.7976931348623157e308);
}

TEST(Dates, KnowWhatIsOne) {
    for (const char* text : {"01/15/02", "1/15/2002", "02/29/24"})
        EXPECT_TRUE(IsDate(Value(text))) << text;
    for (const char* text : {"", "02/29/23", "13/45/02", "__/__/__", "abc"})
        EXPECT_FALSE(IsDate(Value(text))) << text;
    EXPECT_FALSE(IsDate(Value::null()));
    EXPECT_EQ(CDate(Value("01/15/29")), (DateTime{QDate(2029, 1, 15), QTime(0, 0)}));
    EXPECT_EQ(CDate(Value("01/15/30")), (DateTime{QDate(1930, 1, 15), QTime(0, 0)}));
    EXPECT_EQ(test::raisedNumber([] { static_cast<void>(CDate(Value("13/45/02"))); }), 13);
}

TEST(Dates, TodayIsTheClocksDayWithoutItsTime) {
    const Clock before = setClock([] { return DateTime{QDate(2024, 2, 29), QTime(23, 59, 59)}; });
    EXPECT_EQ(Today(), (DateTime{QDate(2024, 2, 29), QTime(0, 0)}));
    EXPECT_EQ(Now().time, QTime(23, 59, 59));
    setClock(before);
}

} // namespace

} // namespace tarnwell
