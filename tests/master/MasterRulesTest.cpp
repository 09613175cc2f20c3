#include "CatalogueData.h"
#include "master/Categories.h"
#include "master/CategoryDependencies.h"
#include "master/MasterCodes.h"
#include "master/MasterTasks.h"
#include "support/MessageScript.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

TEST(CodeDeletion, AsksAsOftenAsTheListNeeds) {
    constexpr auto once = "Delete current item?";
    constexpr auto twice = "If you DELETE this item the tasks associated to it will NOT be available.\n"
                           "Do you want to delete the current item?";
    const struct {
        Value code1;
        const char* description;
        qint64 list;
        std::vector<Answer> answers;
        bool deleted;
        const char* lastText;
    } cases[] = {{1, "foreMAN", 1, {Answer::Ok}, false, "You cannot delete the foreman type!"},
                 {2, "Foreman", 2, {Answer::Yes, Answer::Yes}, true, twice},
                 {1, "Foreman 2", 1, {Answer::Yes}, true, once},
                 {1, "Painter", 1, {Answer::No}, false, once},
                 {2, "Roofing", 2, {Answer::Yes, Answer::No}, false, twice},
                 {4, "Deck", 4, {Answer::Yes, Answer::Yes}, true, twice}};
    for (const auto& [code1, description, list, answers, deleted, lastText] : cases) {
        MessageScript script;
        for (const Answer answer : answers)
            script.expect(answer);
        EXPECT_EQ(confirmCodeDeletion(script.ask(), code1, description, list), deleted) << description;
        ASSERT_EQ(script.shown().size(), answers.size()) << description;
        const MessageRequest& last = script.shown().back();
        EXPECT_EQ(last.text, lastText);
        EXPECT_EQ(last.icon, MessageIcon::Critical);
        if (last.buttons == MessageButtons::YesNo) {
            EXPECT_EQ(last.title, "Deletion Verification");
            EXPECT_EQ(defaultAnswer(last), Answer::No);
        }
    }
}

TEST(TaskDeletion, NamesTheTaskAndTakesEnterForYes) {
    MessageScript script({Answer::No, Answer::Yes});
    EXPECT_FALSE(confirmTaskDeletion(script.ask(), "Walls"));
    EXPECT_TRUE(confirmTaskDeletion(script.ask(), Value::null()));
    const MessageRequest& first = script.shown().front();
    EXPECT_EQ(first.text, "Delete the Walls task?");
    EXPECT_EQ(first.icon, MessageIcon::None);
    EXPECT_EQ(defaultAnswer(first), Answer::Yes);
}

struct DependenciesTest : ::testing::Test {
    QStringList shown(qint64 category) {
        Recordset rows;
        rows.Open(dependenciesOf(category), data.db.connection());
        QStringList names;
        for (; !rows.atEnd(); rows.MoveNext())
            names << rows["Description"].toText();
        return names;
    }
    void add(qint64 category, qint64 dependent) { addDependency(data.db.connection(), category, dependent); }

    CatalogueData data;
};

TEST_F(DependenciesTest, ShowWhatACategoryDependsOnAndNotTheOpposite) {
    add(data.framing, data.plumbing);
    EXPECT_EQ(shown(data.framing), QStringList("Plumbing"));
    EXPECT_EQ(shown(data.plumbing), QStringList());
    data.db.run("UPDATE Code SET Deleted=-1 WHERE Description='Plumbing'");
    EXPECT_EQ(shown(data.framing), QStringList());
    EXPECT_EQ(data.db.ask("SELECT Count(*) FROM CategoryDependency"), Value(1));
}

TEST_F(DependenciesTest, OfTwoEqualPairsOneIsRemoved) {
    add(data.framing, data.plumbing);
    add(data.framing, data.plumbing);
    removeDependency(data.db.connection(),
                     data.db.ask("SELECT CategoryDependencyKey FROM CategoryDependency"));
    EXPECT_EQ(shown(data.framing), QStringList("Plumbing"));
}

TEST_F(DependenciesTest, TheChoiceLeavesOutTheCategoryItselfAndDeletedOnes) {
    data.addCategory("Roofing");
    data.db.run("UPDATE Code SET Deleted=-1 WHERE Description='Plumbing'");
    std::vector<ListItem> others = readTaskCategories(data.db.connection(), data.framing);
    ASSERT_EQ(others.size(), 1U);
    EXPECT_EQ(others.front().text, "Roofing");
    EXPECT_EQ(readTaskCategories(data.db.connection()).size(), 2U);
}

} // namespace

} // namespace tarnwell::test
