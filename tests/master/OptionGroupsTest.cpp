#include "master/OptionGroups.h"

#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

struct OptionGroupRules : ::testing::Test {
    qint64 addGroup(const char* name, qint64 builder) {
        addOptionGroup(db.connection(), builder, name);
        return db.ask("SELECT MAX(CodeKey) FROM Code").toLong();
    }
    qint64 addTask(qint64 group, qint64 builder) {
        return db.add("ContractorOptionGroup",
                      {{"ContractorKey", builder}, {"CodeKey", group}, {"MasterTaskKey", 1}});
    }

    TemporaryDatabase db;
    qint64 abel = db.add("Contractor", {{"Name", "Abel"}});
    qint64 baker = db.add("Contractor", {{"Name", "Baker"}});
};

} // namespace

TEST_F(OptionGroupRules, EachBuilderSeesItsOwnGroupsByName) {
    const qint64 patio = addGroup("Patio", abel), deck = addGroup("Deck", abel),
                 same = addGroup("Deck", baker);
    using Groups = std::vector<ListItem>;
    EXPECT_EQ(readOptionGroups(db.connection(), abel), (Groups{{"Deck", deck}, {"Patio", patio}}));
    EXPECT_EQ(readOptionGroups(db.connection(), baker), (Groups{{"Deck", same}}));
    EXPECT_TRUE(readOptionGroups(db.connection(), 0).empty());
    renameOptionGroup(db.connection(), deck, "Zen's");
    EXPECT_EQ(readOptionGroups(db.connection(), abel), (Groups{{"Patio", patio}, {"Zen's", deck}}));
}

TEST_F(OptionGroupRules, AGroupGoesWithItsTasksAlone) {
    const qint64 deck = addGroup("Deck", abel), patio = addGroup("Patio", abel);
    const qint64 task = addTask(deck, abel);
    addTask(deck, abel);
    addTask(patio, abel);
    deleteOptionGroupTask(db.connection(), task);
    EXPECT_EQ(db.ask("SELECT COUNT(*) FROM ContractorOptionGroup"), Value(2));
    deleteOptionGroup(db.connection(), deck);
    EXPECT_EQ(db.ask("SELECT COUNT(*) FROM ContractorOptionGroup"), Value(1));
    EXPECT_EQ(readOptionGroups(db.connection(), abel).size(), 1U);
    EXPECT_EQ(raisedNumber([&] { renameOptionGroup(db.connection(), deck, "Gone"); }),
              numberOf(Failure::NoCurrentRecord));
}
