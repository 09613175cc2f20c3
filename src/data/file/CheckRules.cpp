#include "data/file/CheckRules.h"

#include "data/schema/Schema.h"

#include <array>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

struct TypeRule {
    ColumnType type;
    const char* fault;
    const char* condition; ///< %1 is the column.
};

// Adding no days makes the engine compute the date: merely read, February 30 would pass.
constexpr auto typeRules = std::to_array<TypeRule>({
    {ColumnType::Date, "is not a date",
     "t.%1 IS NOT NULL AND (typeof(t.%1)<>'text' OR datetime(t.%1,'+0 days') IS NOT t.%1)"},
    {ColumnType::Date, "lies outside 1900 to 2099",
     "datetime(t.%1,'+0 days') IS t.%1 AND (t.%1<'1900-01-01' OR t.%1>='2100-01-01')"},
    {ColumnType::YesNo, "is neither 0 nor -1", "typeof(t.%1)<>'integer' OR t.%1 NOT IN (0,-1)"},
    {ColumnType::Money, "is not a finite number",
     "t.%1 IS NOT NULL AND (typeof(t.%1) NOT IN ('integer','real') OR abs(t.%1)>1.7976931348623157e308)"},
    {ColumnType::Long, "is not a whole number", "typeof(t.%1) NOT IN ('integer','null')"},
    {ColumnType::Small, "is not a whole number", "typeof(t.%1) NOT IN ('integer','null')"},
    {ColumnType::Text, "is not text", "typeof(t.%1) NOT IN ('text','null')"},
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
    {"MasterTask", "CustomTask", "is neither Y nor N", "t.CustomTask COLLATE BINARY NOT IN ('','Y','N')"},
    {"ContractorPlanTask", "CustomTask", "is neither Y nor N",
     "t.CustomTask COLLATE BINARY NOT IN ('','Y','N')"},
    {"JobLotTask", "CustomTask", "is neither Y nor N", "t.CustomTask COLLATE BINARY NOT IN ('','Y','N')"},
    {"Code", "Deleted", "is set on the foreman type",
     "t.Code1=1 AND t.Description='Foreman' AND t.Deleted<>0"},
    {"CategoryDependency", "DependentKey", "names its own category", "t.DependentKey=t.CategoryKey"},
    {"JobTaskEmployee", "Price", "is missing", "t.Price IS NULL"},
    {"JobTaskEmployee", "Completed", "is missing", "t.Completed IS NULL"},
    {"JobTaskEmployee", "Note", "is missing", "t.Note IS NULL"},
    {"EmployeeLog", "Occured", "is missing", "t.Occured IS NULL"},
    {"MasterTask", "CodeKey", "names no category",
     "EXISTS(SELECT 1 FROM Code c WHERE c.CodeKey=t.CodeKey AND c.Code1 IS NOT 2)"},
    {"ContractorPlanTask", "CodeKey", "names no category",
     "EXISTS(SELECT 1 FROM Code c WHERE c.CodeKey=t.CodeKey AND c.Code1 IS NOT 2)"},
    // A base task made for an option without a master task has a fixed category.
    {"JobLotTask", "CodeKey", "names no category",
     "t.Name IS NOT 'NO MASTER TASK FOUND' AND "
     "EXISTS(SELECT 1 FROM Code c WHERE c.CodeKey=t.CodeKey AND c.Code1 IS NOT 2)"},
    {"ContractorOptionGroup", "CodeKey", "names no option group of its builder",
     "EXISTS(SELECT 1 FROM Code c WHERE c.CodeKey=t.CodeKey AND "
     "(c.Code1 IS NOT 5 OR c.Code2 IS NOT t.ContractorKey))"},
});

// The tree of a lot's tasks has two levels, held by ParentKey and Child alone.
constexpr auto treeRules = std::to_array<FixedRule>({
    {"JobLotTask", "ParentKey", "of a parent does not point at itself",
     "t.Child=0 AND t.ParentKey<>0 AND t.ParentKey<>t.JobLotTaskKey"},
    {"JobLotTask", "ParentKey", "of an option names no base task of its lot",
     "t.Child<>0 AND t.ParentKey IS NOT NULL AND NOT EXISTS(SELECT 1 FROM JobLotTask p WHERE "
     "p.JobLotTaskKey=t.ParentKey AND p.JobLotKey=t.JobLotKey AND p.Child=0)"},
    {"JobLotTask", "ParentKey", "of an option names a task that is not marked as its parent",
     "t.Child<>0 AND EXISTS(SELECT 1 FROM JobLotTask p WHERE p.JobLotTaskKey=t.ParentKey AND "
     "p.JobLotKey=t.JobLotKey AND p.Child=0 AND p.ParentKey=0)"},
    {"JobLotTask", "CodeKey", "of an option is not its parent's",
     "t.Child<>0 AND EXISTS(SELECT 1 FROM JobLotTask p WHERE p.JobLotTaskKey=t.ParentKey AND p.Child=0 AND "
     "p.CodeKey IS NOT t.CodeKey)"},
    // A dialog cuts the whole name at 50 characters, so a long parent's name may fill it.
    {"JobLotTask", "Name", "of an option does not begin with its parent's",
     "t.Child<>0 AND EXISTS(SELECT 1 FROM JobLotTask p WHERE p.JobLotTaskKey=t.ParentKey AND p.Child=0 AND "
     "substr(coalesce(t.Name,''),1,length(p.Name)+1) COLLATE NOCASE<>p.Name||' ' AND NOT "
     "(length(p.Name)>=50 AND t.Name=substr(p.Name,1,50)))"},
    {"JobLotTask", "ParentKey", "marks a parent without options",
     "t.Child=0 AND t.ParentKey=t.JobLotTaskKey AND NOT EXISTS(SELECT 1 FROM JobLotTask c WHERE "
     "c.ParentKey=t.JobLotTaskKey AND c.Child<>0)"},
    {"JobLotTask", "ParentKey", "is missing", "t.ParentKey IS NULL"},
    {"JobLotTask", "Child", "is missing", "t.Child IS NULL"},
    {"JobLotTask", "Child", "is neither 0 nor 1", "t.Child NOT IN (0,1)"},
});

QByteArray bracketed(const QString& name) {
    return '[' + name.toUtf8() + ']';
}

void addTypeRules(std::vector<CheckRule>& rules) {
    for (const schema::Table& table : schema::tables())
        for (const schema::Column& column : table.columns)
            for (const TypeRule& rule : typeRules)
                if (rule.type == column.type)
                    rules.push_back({table.name, column.name, QString::fromLatin1(rule.fault),
                                     QByteArray(rule.condition).replace("%1", bracketed(column.name))});
}

void addLinkRules(std::vector<CheckRule>& rules) {
    for (const Link& link : links) {
        const QString parent = QString::fromLatin1(link.parent);
        const QByteArray column = "t." + bracketed(QString::fromLatin1(link.column));
        QByteArray condition = "NOT EXISTS(SELECT 1 FROM " + bracketed(parent) + " p WHERE p." +
                               bracketed(schema::findTable(parent)->keyColumn) + "=" + column + ")";
        if (link.mayBeNone)
            condition.prepend("coalesce(" + column + ",0)<>0 AND ");
        rules.push_back({QString::fromLatin1(link.table), QString::fromLatin1(link.column),
                         QStringLiteral("leads to no row of %1").arg(parent), condition});
    }
}

template <class Rules>
void addFixedRules(std::vector<CheckRule>& rules, const Rules& fixed) {
    for (const FixedRule& rule : fixed)
        rules.push_back({QString::fromLatin1(rule.table), QString::fromLatin1(rule.column),
                         QString::fromLatin1(rule.fault), rule.condition});
}

} // namespace

std::vector<CheckRule> checkRules() {
    std::vector<CheckRule> rules;
    addTypeRules(rules);
    addLinkRules(rules);
    addFixedRules(rules, valueRules);
    addFixedRules(rules, treeRules);
    return rules;
}

} // namespace tarnwell::data
