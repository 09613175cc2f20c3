#include "frame/main/Modifications.h"

#include <array>

namespace tarnwell {

namespace {

/// As its authors kept it: the order, the spelling and the brackets are theirs.
constexpr std::array entries{
    "03/25/03: {Modify} Time Card Entry, added ability to remove a paid task from an employee",
    "03/25/03: {Fix}    Time Card Entry, display correct tasks when job is displayed the first time",
    "01/14/03: {Fix}    Job Entry, add task to existing lot using lot pulldown, added new lot record",
    "12/23/02: {Modify} Check for Job # change, verify change to user",
    "12/22/02: {Modify} Changed Job and Time Card to use grid recordsets, speed loading time",
    "12/17/02: {Fix}    Allow zero based SSN",
    "12/07/02: {Modify} Update Job / Builder area with MousePointer attribute",
    "12/07/02: {Fix}    Check for exclude flag when looking for dependent tasks",
    "11/10/02: {Add}    Added cascade update for changes to Master Task",
    "10/12/02: {Modify} Dependency flags / linkage to program",
    "10/12/02: {Modify} Switchboard Icon bar",
    "10/12/02: {Modify} Cleaned up recordset usage in modules",
    "02/23/02: {Modify} Job Search screen to filter completed jobs",
    "02/23/02: {Modify} Builder screen to filter completed jobs",
    "02/01/02: {Modify} Removed ending SSN parameter from employee reports",
    "02/01/02: {Modify} Reformatted Foreman Job report to add more information on each page",
    "02/01/02: {Modify} Employee Paidout includes notes",
    "01/23/02: {Add}    Get login from user work machine",
    "01/22/02: {Add}    Add up/down arrows to completed date",
    "01/22/02: {Fix}    Lookup of job number by typeing in field in Timecard Entry",
    "01/22/02: {Modify} Increase Address in Job Entry",
    "01/22/02: {Add}    Notify user if SSN is < 9 digits in Employee Entry",
    "01/22/02: {Fix}    Make sure program closes when X pressed",
    "08/15/01: {Modify} Sort Plans in Builder Form alphabetically",
    "08/15/01: {Fix)    Filter option group tasks by option group selected",
    "08/15/01: {Fix)    Error 6 when searching for employee",
    "08/15/01: {Fix)    Null error received when adding jobs",
    "07/17/01: {Add)    Allow adding of Option Group to Builder and Job",
    "07/01/01: {Fix}    Check for error 6 when entering employee in Timecard Entry",
    "04/17/01: {Modify} Do not check if task paid in full if price is altered through job",
    "04/10/01: {Modify} Assign options to task instead of plan",
    "04/07/01: {Modify} Foreman by Job includes all tasks",
    "04/02/01: {Modify} Add parameters to Foreman by Job, Piecework",
    "03/11/01: {Fix}    Error 13 on invalid dates in Timecard Entry",
    "02/08/01: {Add}    Placed Job name to find window",
    "02/03/01: {Add}    Options to be assigned to plan",
    "02/03/01: {Add}    Update costs for jobs selected when changed through contractor plan",
    "01/03/01: {Add}    Employee by Formen, Trade, Alpha reports",
    "01/03/01: {Modify} Payroll to Timcard, Contractor to Builder",
    "12/28/00: {Modify} No Option report with total budget, and left over for each lot",
    "02/03/01: {Modify} report program method, new list box",
    "08/07/00: {Fix}    Path not found error when displaying modifications / errors",
    "07/26/00: {Fix}    Error 9 when adding Job",
    "07/14/00: {Fix}    Error -2147217842 when entering Employee or Job"};

} // namespace

std::span<const char* const> modifications() {
    return entries;
}

} // namespace tarnwell
