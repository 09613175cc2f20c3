#include "reports/generator/ReportGenerator.h"

#include "reports/drawing/ReportDatabase.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

using Marks = std::vector<bool>;

ReportDefinitionRecord definition(bool multiSelect) {
    ReportDefinitionRecord record{};
    record.multiSelect = multiSelect;
    return record;
}

std::vector<QString> texts(const std::vector<ListItem>& lines) {
    std::vector<QString> all;
    for (const auto& [text, key] : lines)
        all.push_back(text);
    return all;
}

} // namespace

TEST(ReportGenerator, ReportsComeByNameAndNeedAForm) {
    ReportDatabase data;
    data.database().run("DELETE FROM ReportDefinition");
    data.database().run(
        "INSERT INTO ReportDefinition VALUES (9, 'Weekly', 'frmRptCalendar', -1, 2, -1, 0, -1, 0, "
        "-1, 0, -1)");
    data.database().run(
        "INSERT INTO ReportDefinition VALUES (3, 'Another', 'frmElse', 0, 1, 0, -1, 0, -1, 0, -1, 0)");
    const ReportDefinitions read = readReportDefinitions(data.connection());
    EXPECT_EQ(read.names, (std::vector<QString>{"Another", "Weekly"}));
    const ReportDefinitionRecord& weekly = read.definitions.at(1);
    EXPECT_EQ(weekly.reportDefinitionKey, 9);
    EXPECT_EQ(weekly.objectName, "frmRptCalendar");
    EXPECT_EQ(weekly.reportType, 2);
    EXPECT_EQ(calendarModeOf(weekly), 4);
    EXPECT_EQ(calendarModeOf(read.definitions.front()), 0);

    data.database().add("ReportDefinition", {{"Name", "Without a form"}});
    EXPECT_EQ(raisedNumber([&] { static_cast<void>(readReportDefinitions(data.connection())); }),
              numberOf(Failure::InvalidUseOfNull));
}

TEST(ReportGenerator, EmployeesStandInColumns) {
    ReportDatabase data;
    const qint64 dunn = data.add(EmployeeRow{.SSN = "222-22-2222", .lastName = "Dunn", .firstName = "Dee"});
    data.add(EmployeeRow{.SSN = "111-11-1111-9", .lastName = "Wolfeschlegelstein", .firstName = "Hub"});
    data.add(EmployeeRow{.SSN = "333-33-3333", .firstName = "Nameless"});
    const auto lines = readEmployeeLines(data.connection());
    EXPECT_EQ(texts(lines),
              (std::vector<QString>{"111-11-1111|Wolfeschlegelstein", //
                                    "222-22-2222|Dunn, Dee         ", "333-33-3333|                  "}));
    EXPECT_EQ(lines.at(1).key, dunn);
}

TEST(ReportGenerator, AForemanWithANullNamePartHasNoLine) {
    ReportDatabase data;
    data.add(EmployeeRow{.lastName = "Stone", .firstName = "Sid", .type = "Foreman"});
    data.add(EmployeeRow{.lastName = "Adams", .firstName = "Al", .type = "Foreman"});
    data.add(EmployeeRow{.firstName = "Nameless", .type = "Foreman"});
    data.add(EmployeeRow{.lastName = "Moss", .firstName = "Mo", .type = "Helper"});
    EXPECT_EQ(texts(readForemanLines(data.connection())),
              (std::vector<QString>{"", "Adams/Al", "Stone/Sid"}));
}

TEST(ReportGenerator, OnlyCategoriesInUseAreOffered) {
    ReportDatabase data;
    data.addCategory("Roofing");
    const qint64 framing = data.addCategory("Framing");
    const qint64 old = data.addCategory("Antlers");
    data.database().run("UPDATE Code SET Deleted=-1 WHERE CodeKey=" + QString::number(old));
    const auto lines = readCategoryLines(data.connection());
    EXPECT_EQ(texts(lines), (std::vector<QString>{"", "Framing", "Roofing"}));
    EXPECT_EQ(lines.at(1).key, framing);
}

TEST(ReportGenerator, JobsStandInColumnsWithTheirCompletion) {
    ReportDatabase data;
    data.add(JobRow{.number = "20", .name = "Elm", .completed = on("03/05/24")});
    const qint64 longest =
        data.add(JobRow{.number = "12345678901", .name = "A name that is far longer than its column"});
    data.add(JobRow{.number = "30"});
    EXPECT_EQ(texts(readJobLines(data.connection(), false)),
              (std::vector<QString>{"1234567890|A name that is far long           ",
                                    "20        |Elm                    |03/05/24  ",
                                    "30        |                                  "}));
    const auto open = readJobLines(data.connection(), true);
    ASSERT_EQ(open.size(), 2U);
    EXPECT_EQ(open.front().key, longest);
    EXPECT_EQ(open.front().text.size(), 45);
}

TEST(ReportGenerator, TheFirstJobIsNotCountedForAReportOfOneJob) {
    const auto one = definition(false), many = definition(true);
    constexpr auto tooMany = "You cannot select more than one job per report";
    constexpr auto none = "You must select at least one job for the report";
    constexpr auto noReport = "You must select report / file name to print.";
    const struct {
        const ReportDefinitionRecord* chosen;
        Marks marks;
        const char* text;
    } cases[] = {
        {&one, {true, false, false, false, false, true}, ""},
        {&one, {false, false, false, false, true, true}, tooMany},
        {&one, {true, true, true}, tooMany},
        {&one, {true}, ""},
        {&one, {false, true}, ""},
        {&one, {false, false}, none},
        {&many, {true, true, true}, ""},
        {&many, {}, none},
        {nullptr, {false, true, true}, noReport},
    };
    for (const auto& [chosen, marks, text] : cases) {
        const auto objection = objectionTo(chosen, marks);
        EXPECT_EQ(objection.has_value() ? objection->text : QString(), text);
        if (!objection.has_value())
            continue;
        EXPECT_EQ(objection->title, chosen == nullptr ? "Selection Error" : "Report Error");
        EXPECT_EQ(objection->icon, chosen == nullptr ? MessageIcon::Critical : MessageIcon::Exclamation);
        EXPECT_EQ(objection->buttons, MessageButtons::Ok);
    }
}
