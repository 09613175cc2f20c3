#include "reports/drawing/ReportFilter.h"

#include <gtest/gtest.h>

using namespace tarnwell;

namespace {

ReportParameters everything() {
    return {.employeeKey = 7,
            .startDate = "01/01/02",
            .stopDate = "12/31/29",
            .markedJobs = {3, 5},
            .foreman = "Stone/Sid",
            .category = "Framing"};
}

} // namespace

TEST(ReportFilter, TaskReportsHangTheDatesOnIncomplete) {
    EXPECT_EQ(reportFilter(everything(), taskFilter),
              " Employee.EmployeeKey=7 AND JobLotTask.StartDate>=#01/01/02# AND "
              "JobLotTask.StopDate<=#12/31/29# AND (Job.JobKey=3 OR Job.JobKey=5) AND "
              "Foreman='Stone/Sid' AND Description='Framing'");
    ReportParameters all = everything();
    all.incomplete = false;
    EXPECT_FALSE(reportFilter(all, taskFilter).contains("Date"));
}

TEST(ReportFilter, LotReportsHangTheOpenJobsOnIncomplete) {
    EXPECT_EQ(reportFilter(everything(), lotFilter),
              " Employee.EmployeeKey=7 AND isnull(CompletedDate)=-1 AND (Job.JobKey=3 OR Job.JobKey=5) AND "
              "Foreman='Stone/Sid'");
}

TEST(ReportFilter, WhatComesFirstHasNoJoint) {
    EXPECT_EQ(reportFilter({.incomplete = false, .markedJobs = {3}}, taskFilter), " (Job.JobKey=3)");
    EXPECT_EQ(reportFilter({.incomplete = false, .markedJobs = {3}}, employeeFilter, "WHERE x"),
              "WHERE x AND (Job.JobKey=3)");
}

TEST(ReportFilter, EveryJobMarkedIsNoFilter) {
    const ReportParameters all{.incomplete = false, .markedJobs = {3, 5}, .allJobsMarked = true};
    EXPECT_EQ(whereClause(reportFilter(all, lotFilter)), "");
    EXPECT_EQ(whereClause(" a"), " WHERE  a");
}
