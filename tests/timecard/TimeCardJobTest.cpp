#include "timecard/TimeCardJob.h"

#include "master/Categories.h"
#include "timecard/TimeCardData.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

TEST(TimeCardJob, TheHeaderNamesJobAndBuilder) {
    TimeCardData data;
    const auto header = readJobHeader(data.db.connection(), data.job);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->jobNumber, "1001");
    EXPECT_EQ(header->name, "Elm Court");
    EXPECT_EQ(header->builder, "Abel Homes");
    EXPECT_FALSE(readJobHeader(data.db.connection(), data.job + 1));
}

TEST(TimeCardJob, DeletedCategoriesAreNotListed) {
    TimeCardData data;
    data.db.run("UPDATE Code SET Deleted=-1 WHERE CodeKey=" + QString::number(data.framing));
    EXPECT_EQ(readTaskCategories(data.db.connection()), (std::vector<ListItem>{{"Footings", data.footings}}));
}

TEST(TimeCardJob, TasksComeByFamilyForOneLotAndCategory) {
    TimeCardData data;
    data.addTask("Walls", 1.0, data.footings);
    data.addTask("Beams", 1.0, data.framing);
    Recordset tasks;
    tasks.Open(tasksOfLot(data.lot, data.framing), data.db.connection());
    EXPECT_EQ(tasks.RecordCount(), 2);
    EXPECT_EQ(tasks["Name"], Value("Beams"));
    tasks.Close();
    tasks.Open(tasksOfNoLot, data.db.connection());
    EXPECT_EQ(tasks.RecordCount(), 0);
}
