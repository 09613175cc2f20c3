#include "data/schema/SchemaTables.h"

#include <array>

namespace tarnwell::schema::detail {

namespace {

constexpr int EmployeeTypeList = 1;
constexpr int OptionNameList = 4;

constexpr std::array employeeTypes{"Foreman", "Carpenter", "Drywall Hanger", "Electrician", "Finisher",
                                   "Framer",  "Helper",    "Laborer",        "Painter",     "Plumber"};

constexpr std::array optionNames{"Bay Window",      "Ceiling Fan",      "Covered Patio",
                                 "Extra Coat",      "Fireplace",        "Laundry Sink",
                                 "Rounded Corners", "Three Car Garage", "Vaulted Ceiling"};

struct Report {
    int key;
    const char* name;
    const char* objectName;
    int reportType; ///< 1: by job, 2: by employee.
    bool multiSelect, entryDate, foreman, ssn, detailLevel, summaryOnly, groupBy, category;
};

// The calendar takes its mode from its key less 5: 5 lists by day, 6 by week. A parameter is open only where
// the report's statement can carry it: the reports by job read no employees, so an SSN would break them; the
// reports by employee read no foreman of their own to filter by. A chart is drawn of one job at a time.
constexpr bool yes = true;
constexpr bool no = false;
constexpr std::array reports{
    // key, name, form, type, multi-select, dates, foreman, SSN, detail, summary, group by, category
    Report{1, "Gantt Chart", "frmRptGantt", 1, no, yes, yes, no, no, no, no, yes},
    Report{2, "Lot Budget", "frmRptLotBudget", 1, yes, no, yes, no, yes, yes, no, no},
    Report{3, "Lot Options", "frmRptLotOptions", 1, yes, no, yes, no, yes, yes, no, no},
    Report{4, "Employee Paid-out", "frmRptEmployeePaidout", 2, yes, yes, no, yes, no, yes, no, no},
    Report{5, "Calendar by Day", "frmRptCalendar", 1, yes, yes, yes, no, no, no, yes, yes},
    Report{6, "Calendar by Week", "frmRptCalendar", 1, yes, yes, yes, no, no, no, yes, yes},
    Report{7, "Employee Corrections", "frmRptEmployeeCorrections", 2, yes, yes, no, yes, no, no, no, no},
};

InitialRow codeRow(int list, const char* description) {
    return {QStringLiteral("Code"),
            {{QStringLiteral("Code1"), list}, {QStringLiteral("Description"), description}}};
}

InitialRow reportRow(const Report& report) {
    return {QStringLiteral("ReportDefinition"),
            {{QStringLiteral("reportDefinitionKey"), report.key},
             {QStringLiteral("Name"), report.name},
             {QStringLiteral("objectName"), report.objectName},
             {QStringLiteral("multiSelect"), report.multiSelect},
             {QStringLiteral("reportType"), report.reportType},
             {QStringLiteral("pEntryDate"), report.entryDate},
             {QStringLiteral("pForeman"), report.foreman},
             {QStringLiteral("pSSN"), report.ssn},
             {QStringLiteral("pDetailLevel"), report.detailLevel},
             {QStringLiteral("summaryOnly"), report.summaryOnly},
             {QStringLiteral("groupBy"), report.groupBy},
             {QStringLiteral("category"), report.category}}};
}

} // namespace

std::vector<InitialRow> makeInitialRows() {
    std::vector<InitialRow> rows;
    rows.reserve(employeeTypes.size() + optionNames.size() + reports.size());
    for (const char* type : employeeTypes)
        rows.push_back(codeRow(EmployeeTypeList, type));
    for (const char* name : optionNames)
        rows.push_back(codeRow(OptionNameList, name));
    for (const Report& report : reports)
        rows.push_back(reportRow(report));
    return rows;
}

} // namespace tarnwell::schema::detail
