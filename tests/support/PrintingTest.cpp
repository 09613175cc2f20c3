#include "data/Value.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace tarnwell;

// A failure that shows bytes says nothing.
TEST(Printing, AFailureShowsTextsAndValuesAsTheyRead) {
    using ::testing::PrintToString;
    EXPECT_EQ(PrintToString(QString("Häuser")), "\"Häuser\"");
    EXPECT_EQ(PrintToString(QStringList{"a", "b"}), "{ \"a\", \"b\" }");
    EXPECT_EQ(PrintToString(Value()), "Empty");
    EXPECT_EQ(PrintToString(Value::null()), "Null");
    EXPECT_EQ(PrintToString(Value(12)), "Long 12");
    EXPECT_EQ(PrintToString(Value("12")), "Text \"12\"");
    EXPECT_EQ(PrintToString(Value(true)), "YesNo True");
    EXPECT_EQ(PrintToString(DateTime{QDate(2024, 3, 5), QTime(8, 15)}), "Date 03/05/2024 08:15:00");
    EXPECT_EQ(PrintToString(DateTime()), "no date");
}
