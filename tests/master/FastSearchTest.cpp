#include "master/FastSearch.h"

#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class FastSearch : public ::testing::Test {
protected:
    std::vector<FoundRow> search(int type, int option, const QString& text) {
        return searchRows(db.connection(), *searchKind(type), option, text);
    }
    QString firstText(int type, int option, const QString& text) {
        const auto rows = search(type, option, text);
        return rows.empty() ? QString() : rows.front().text.trimmed();
    }
    void addJob(const char* number, const char* name, const Value& completed = Value::null()) {
        db.add("Job", {{"JobNumber", number},
                       {"Name", name},
                       {"ContractorKey", builder},
                       {"CompletedDate", completed}});
    }

    TemporaryDatabase db;
    qint64 builder = db.add(
        "Contractor", {{"Name", "Brookside Residential Homes"}, {"Address 1", "12 Mill Lane, Old Quarter"}});
    qint64 employee =
        db.add("Employee", {{"SSN", "123-45-6789"}, {"LastName", "Smith"}, {"FirstName", "Ann"}});
};

} // namespace

TEST_F(FastSearch, EachOptionLaysItsRowOutInFixedColumns) {
    addJob("J-77", "Elm Court");
    addJob("J-99", "Done", DateTime{QDate(2024, 1, 1)});
    struct Case {
        int type;
        int option;
        const char* row;
    };
    const Case cases[] = {
        {1, 0, "Smith               |Ann                  |123-45-6789"},
        {1, 1, "Ann                 |Smith                |123-45-6789"},
        {1, 2, "123-45-6789 |Ann                  |Smith"},
        {2, 0, "Brookside Residentia|12 Mill Lane, Old Qua"},
        {2, 1, "12 Mill Lane, Old Qu|Brookside Residential"},
        {3, 0, "J-77      |Elm Court                    |Brookside Residenti"},
        {3, 1, "Brookside Residentia|Elm Court                    |J-77"},
        {3, 2, "J-99      |Done                         |Brookside Residenti"},
    };
    for (const Case& c : cases) {
        const auto rows = search(c.type, c.option, "");
        ASSERT_EQ(rows.size(), 1u) << c.row;
        EXPECT_EQ(rows[0].text.size(), 80);
        EXPECT_EQ(rows[0].text.trimmed(), c.row);
    }
}

TEST_F(FastSearch, TheKeyStringHoldsTheTypesCharacterAndTheKey) {
    const QString key = search(SearchType::Employee, 0, "").at(0).key;
    EXPECT_EQ(key, (QChar(1) + QString::number(employee)).leftJustified(21));
    EXPECT_EQ(selectedKeyNumber(key), employee);
    EXPECT_EQ(selectedKeyNumber(""), 0);
}

TEST_F(FastSearch, FindsWhatStandsAtOrAfterTheTextInAnyCase) {
    for (const char* name : {"Adams", "SMITH", "Young"})
        db.add("Employee", {{"SSN", "1"}, {"LastName", name}, {"FirstName", "Zoe"}});
    EXPECT_EQ(search(1, 0, "smi").size(), 3u);
    EXPECT_TRUE(firstText(1, 0, "t").startsWith("Young"));
    EXPECT_TRUE(search(1, 0, "zz").empty());
}

TEST_F(FastSearch, ListsNoMoreThanTheCap) {
    for (int i = 0; i < 310; ++i)
        addJob("10", "Many");
    EXPECT_EQ(search(3, 0, "").size(), 300u);
}

TEST_F(FastSearch, AnUnknownTypeHasNoKind) {
    EXPECT_EQ(searchKind(4), nullptr);
}
