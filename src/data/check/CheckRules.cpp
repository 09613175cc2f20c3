#include "data/check/CheckRules.h"

#include "data/schema/Schema.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

struct RangeRule {
    ColumnType type;
    const char* fault;
    const char* condition; ///< %1 is the column.
};

constexpr auto ranges = std::to_array<RangeRule>({
    {ColumnType::Date, "lies outside 1900 to 2099", "t.%1<#01/01/1900# OR t.%1>=#01/01/2100#"},
    {ColumnType::Money, "is not a finite number", "abs(t.%1)>1.7976931348623157e308"},
});

/// A column that leads to a row of another table, whether or not the catalogue has a relation for it.
struct Link {
    const char* table;
    const char* column;
    const char* parent;
    bool mayBeNone; ///< 0 and Null mean none.
};

// A lot's links to its plan, plan tasks and options may lead nowhere, since plans are deleted; so may a log
// entry's link to its task.
constexpr auto links = std::to_array<Link>({
    {"MasterTask", "CodeKey", "Code", false},
    {"CategoryDependency", "CategoryKey", "Code", false},
    {"CategoryDependency", "DependentKey", "Code", false},
    {"ContractorPlan", "ContractorKey", "Contractor", false},
    {"ContractorPlanTask", "ContractorPlanKey", "ContractorPlan", false},
    {"ContractorPlanTask", "MasterTaskKey", "MasterTask", true},
    {"ContractorPlanTask", "CodeKey", "Code", false},
    {"ContractorTaskOption", "ContractorPlanTaskKey", "ContractorPlanTask", false},
    {"ContractorOptionGroup", "ContractorKey", "Contractor", false},
    {"ContractorOptionGroup", "CodeKey", "Code", false},
    {"ContractorOptionGroup", "MasterTaskKey", "MasterTask", false},
    {"Job", "ContractorKey", "Contractor", false},
    {"JobLot", "JobKey", "Job", false},
    {"JobLotTask", "JobLotKey", "JobLot", false},
    {"JobLotTask", "MasterTaskKey", "MasterTask", true},
    {"JobLotTask", "CodeKey", "Code", false},
    {"JobLotTask", "EmployeeKey", "Employee", true},
    {"JobTaskEmployee", "JobLotTaskKey", "JobLotTask", false},
    {"JobTaskEmployee", "EmployeeKey", "Employee", false},
    {"EmployeeLog", "EmployeeKey", "Employee", false},
});

struct FixedRule {
    const char* table;
    const char* column;
    const char* fault;
    const char* condition;
};

constexpr auto valueRules = std::to_array<FixedRule>({
    {"MasterTask", "CustomTask", "is neither Y nor N", "t.CustomTask NOT IN ('','Y','N')"},
    {"ContractorPlanTask", "CustomTask", "is neither Y nor N", "t.CustomTask NOT IN ('','Y','N')"},
    {"JobLotTask", "CustomTask", "is neither Y nor N", "t.CustomTask NOT IN ('','Y','N')"},
    {"Code", "Deleted", "is set on the foreman type",
     "t.Code1=1 AND t.Description='Foreman' AND t.Deleted<>0"},
    {"CategoryDependency", "DependentKey", "names its own category", "t.DependentKey=t.CategoryKey"},
    {"JobTaskEmployee", "Price", "is missing", "t.Price IS NULL"},
    {"JobTaskEmployee", "Completed", "is missing", "t.Completed IS NULL"},
    {"JobTaskEmployee", "Note", "is missing", "t.Note IS NULL"},
    {"EmployeeLog", "Occured", "is missing", "t.Occured IS NULL"},
    {"MasterTask", "CodeKey", "names no category",
     "EXISTS(SELECT c.CodeKey FROM Code AS c WHERE c.CodeKey=t.CodeKey AND coalesce(c.Code1,0)<>2)"},
    {"ContractorPlanTask", "CodeKey", "names no category",
     "EXISTS(SELECT c.CodeKey FROM Code AS c WHERE c.CodeKey=t.CodeKey AND coalesce(c.Code1,0)<>2)"},
    // A base task made for an option without a master task has a fixed category.
    {"JobLotTask", "CodeKey", "names no category",
     "coalesce(t.Name,'')<>'NO MASTER TASK FOUND' AND "
     "EXISTS(SELECT c.CodeKey FROM Code AS c WHERE c.CodeKey=t.CodeKey AND coalesce(c.Code1,0)<>2)"},
    {"ContractorOptionGroup", "CodeKey", "names no option group of its builder",
     "EXISTS(SELECT c.CodeKey FROM Code AS c WHERE c.CodeKey=t.CodeKey AND "
     "(coalesce(c.Code1,0)<>5 OR coalesce(c.Code2,0)<>t.ContractorKey))"},
});

// The tree of a lot's tasks has two levels, held by ParentKey and Child alone.
constexpr auto treeRules = std::to_array<FixedRule>({
    {"JobLotTask", "ParentKey", "of a parent does not point at itself",
     "t.Child=0 AND t.ParentKey<>0 AND t.ParentKey<>t.JobLotTaskKey"},
    {"JobLotTask", "ParentKey", "of an option names no base task of its lot",
     "t.Child<>0 AND t.ParentKey IS NOT NULL AND NOT EXISTS(SELECT p.JobLotTaskKey FROM JobLotTask AS p "
     "WHERE "
     "p.JobLotTaskKey=t.ParentKey AND p.JobLotKey=t.JobLotKey AND p.Child=0)"},
    {"JobLotTask", "ParentKey", "of an option names a task that is not marked as its parent",
     "t.Child<>0 AND EXISTS(SELECT p.JobLotTaskKey FROM JobLotTask AS p WHERE p.JobLotTaskKey=t.ParentKey "
     "AND "
     "p.JobLotKey=t.JobLotKey AND p.Child=0 AND p.ParentKey=0)"},
    {"JobLotTask", "CodeKey", "of an option is not its parent's",
     "t.Child<>0 AND EXISTS(SELECT p.JobLotTaskKey FROM JobLotTask AS p WHERE p.JobLotTaskKey=t.ParentKey "
     "AND p.Child=0 AND "
     "coalesce(p.CodeKey,0)<>coalesce(t.CodeKey,0))"},
    // A dialog cuts the whole name at 50 characters, so a long parent's name may fill it.
    {"JobLotTask", "Name", "of an option does not begin with its parent's",
     "t.Child<>0 AND EXISTS(SELECT p.JobLotTaskKey FROM JobLotTask AS p WHERE p.JobLotTaskKey=t.ParentKey "
     "AND p.Child=0 AND "
     "lower(substr(coalesce(t.Name,''),1,length(p.Name)+1))<>lower(p.Name + ' ') AND NOT "
     "(length(p.Name)>=50 AND lower(t.Name)=lower(substr(p.Name,1,50))))"},
    {"JobLotTask", "ParentKey", "marks a parent without options",
     "t.Child=0 AND t.ParentKey=t.JobLotTaskKey AND NOT EXISTS(SELECT c.JobLotTaskKey FROM JobLotTask AS c "
     "WHERE "
     "c.ParentKey=t.JobLotTaskKey AND c.Child<>0)"},
    {"JobLotTask", "ParentKey", "is missing", "t.ParentKey IS NULL"},
    {"JobLotTask", "Child", "is missing", "t.Child IS NULL"},
    {"JobLotTask", "Child", "is neither 0 nor 1", "t.Child NOT IN (0,1)"},
});

QString bracketed(const QString& name) {
    return u'[' + name + u']';
}

QString latin(const char* text) {
    return QString::fromLatin1(text);
}

CheckRule linkRule(const Link& link) {
    const QString parent = latin(link.parent);
    const QString key = bracketed(schema::findTable(parent)->keyColumn);
    const QString column = QStringLiteral("t.") + bracketed(latin(link.column));
    QString condition = QStringLiteral("NOT EXISTS(SELECT p.%1 FROM %2 AS p WHERE p.%1=%3)")
                            .arg(key, bracketed(parent), column);
    if (link.mayBeNone)
        condition.prepend(QStringLiteral("coalesce(%1,0)<>0 AND ").arg(column));
    return {latin(link.table), latin(link.column), QStringLiteral("leads to no row of %1").arg(parent),
            condition};
}

template <class Rules>
void addFixedRules(std::vector<CheckRule>& rules, const Rules& fixed) {
    for (const FixedRule& rule : fixed)
        rules.push_back({latin(rule.table), latin(rule.column), latin(rule.fault), latin(rule.condition)});
}

} // namespace

QString CheckRule::statement() const {
    const QString key = bracketed(schema::findTable(table)->keyColumn);
    return QStringLiteral("SELECT t.%1, t.%2 FROM %3 AS t WHERE %4 ORDER BY t.%1")
        .arg(key, bracketed(column), bracketed(table), condition);
}

std::vector<CheckRule> rangeRules() {
    std::vector<CheckRule> rules;
    for (const schema::Table& table : schema::tables())
        for (const schema::Column& column : table.columns)
            for (const RangeRule& rule : ranges)
                if (rule.type == column.type)
                    rules.push_back({table.name, column.name, latin(rule.fault),
                                     latin(rule.condition).arg(bracketed(column.name))});
    return rules;
}

std::vector<CheckRule> rowRules() {
    std::vector<CheckRule> rules;
    std::ranges::transform(links, std::back_inserter(rules), linkRule);
    addFixedRules(rules, valueRules);
    addFixedRules(rules, treeRules);
    return rules;
}

} // namespace tarnwell::data
