#include "data/schema/SchemaTables.h"

namespace tarnwell::schema::detail {

namespace {

Column key(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Key, 0, {}, true};
}

/// A number that every row has.
Column needed(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Long, 0, {}, true};
}

/// Refers to the row that owns this one; a row without its owner is refused.
Column owner(const char* name) {
    return needed(name);
}

/// Refers to a row, or to none with 0.
Column link(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Long, 0, Value(0), false};
}

Column small(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Small, 0, Value(0), false};
}

Column number(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Long, 0, {}, false};
}

Column money(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Money, 0, {}, false};
}

Column yesNo(const char* name) {
    return {QString::fromLatin1(name), ColumnType::YesNo, 0, Value(false), true};
}

Column date(const char* name) {
    return {QString::fromLatin1(name), ColumnType::Date, 0, {}, false};
}

Column text(const char* name, int length = 0) {
    return {QString::fromLatin1(name), ColumnType::Text, length, {}, false};
}

Relation refersTo(const char* parent, const char* column, OnDelete onDelete) {
    return {QString::fromLatin1(column), QString::fromLatin1(parent), onDelete};
}

Index index(std::initializer_list<const char*> columns) {
    Index result;
    for (const char* column : columns)
        result.columns.push_back(QString::fromLatin1(column));
    return result;
}

Table table(const char* name, std::vector<Column> columns, std::vector<Relation> relations,
            std::vector<Index> indexes) {
    QString keyColumn = columns.front().name;
    return {QString::fromLatin1(name), std::move(keyColumn), std::move(columns), std::move(relations),
            std::move(indexes)};
}

// The columns of an index follow the statements that use it: first what is compared to one value, then the
// range or the sort, so that lists come out sorted and a typed lookup reads only the rows that it shows.

std::vector<Table> catalogueTables() {
    return {
        // All small lists. `Code1` is 1 for employee types, 2 categories, 4 option names, 5 option groups.
        table("Code",
              {key("CodeKey"), small("Code1"), link("Code2"), text("Description", 50), yesNo("Deleted")}, {},
              {index({"Code1", "Deleted", "Description"}), index({"Code1", "Code2", "Description"}),
               index({"Deleted", "Description"})}),
        // The catalogue that plans and lots copy their tasks from.
        table("MasterTask",
              {key("MasterTaskKey"), link("CodeKey"), text("Name", 50), money("MasterPrice"),
               text("CustomTask", 1), yesNo("ExcludeDependency"), yesNo("Deleted")},
              {}, {index({"Deleted", "Name"}), index({"CodeKey", "Deleted", "Name"})}),
        // The category `DependentKey` is to be paid before `CategoryKey`.
        table("CategoryDependency", {key("CategoryDependencyKey"), link("CategoryKey"), link("DependentKey")},
              {}, {index({"CategoryKey", "DependentKey"})}),
    };
}

std::vector<Table> builderTables() {
    return {
        table("Contractor",
              {key("ContractorKey"), text("Name", 50), text("Address 1", 50), text("Address 2", 50),
               text("City", 50), text("State", 10), text("Zipcode", 10), text("License", 20)},
              {}, {index({"Name"}), index({"Address 1"})}),
        // A builder's house plan and, below, its priced tasks and their options.
        table("ContractorPlan", {key("ContractorPlanKey"), owner("ContractorKey"), text("PlanName")},
              {refersTo("Contractor", "ContractorKey", OnDelete::Cascade)},
              {index({"ContractorKey", "PlanName"})}),
        table("ContractorPlanTask",
              {key("ContractorPlanTaskKey"), owner("ContractorPlanKey"), link("MasterTaskKey"),
               link("CodeKey"), text("Name", 50), money("MasterPrice"), text("CustomTask", 1),
               yesNo("ExcludeDependency")},
              {refersTo("ContractorPlan", "ContractorPlanKey", OnDelete::Cascade)},
              {index({"ContractorPlanKey", "CodeKey", "Name"}), index({"ContractorPlanKey", "MasterTaskKey"}),
               index({"MasterTaskKey"})}),
        table("ContractorTaskOption",
              {key("ContractorTaskOptionKey"), owner("ContractorPlanTaskKey"), text("Name"),
               money("MasterPrice")},
              {refersTo("ContractorPlanTask", "ContractorPlanTaskKey", OnDelete::Cascade)},
              {index({"ContractorPlanTaskKey", "Name"})}),
        // One task in one group of one builder; here `CodeKey` names the group, not a category.
        table("ContractorOptionGroup",
              {key("OptionGroupKey"), owner("ContractorKey"), link("CodeKey"), link("MasterTaskKey"),
               money("MasterPrice"), yesNo("ExcludeDependency")},
              {refersTo("Contractor", "ContractorKey", OnDelete::Cascade)},
              {index({"ContractorKey", "CodeKey", "MasterTaskKey"}), index({"CodeKey"}),
               index({"MasterTaskKey"})}),
    };
}

std::vector<Table> jobTables() {
    return {
        // Open while `CompletedDate` is Null; no other column decides it.
        table("Job",
              {key("JobKey"), text("JobNumber", 30), text("Name", 30), text("Foreman"),
               owner("ContractorKey"), date("CompletedDate")},
              {refersTo("Contractor", "ContractorKey", OnDelete::Refuse)},
              {index({"CompletedDate", "JobNumber"}), index({"JobNumber"}),
               index({"ContractorKey", "CompletedDate", "JobNumber"}), index({"Foreman", "JobNumber"})}),
        table("JobLot",
              {key("JobLotKey"), owner("JobKey"), text("LotBlock", 10), text("PlanName", 20),
               text("Address", 50), link("ContractorPlanKey"), yesNo("ExcludeDependencyCheck")},
              {refersTo("Job", "JobKey", OnDelete::Cascade)}, {index({"JobKey", "LotBlock"})}),
        // A tree of two levels: `ParentKey` is 0 on a plain row, else the parent's key, also on the parent.
        table("JobLotTask",
              {key("JobLotTaskKey"), owner("JobLotKey"), link("MasterTaskKey"), link("CodeKey"),
               link("ContractorPlanTaskKey"), link("ContractorTaskOptionKey"), text("Name", 50),
               money("MasterPrice"), text("CustomTask", 1), yesNo("ExcludeDependency"), link("ParentKey"),
               small("Child"), date("StartDate"), date("StopDate"), link("EmployeeKey")},
              {refersTo("JobLot", "JobLotKey", OnDelete::Cascade)},
              {index({"JobLotKey", "CodeKey", "Name", "ParentKey", "Child"}),
               index({"MasterTaskKey", "JobLotKey"}), index({"ContractorPlanTaskKey", "JobLotKey"}),
               index({"ParentKey", "Child", "Name"}), index({"StartDate"})}),
    };
}

std::vector<Table> employeeTables() {
    return {
        table("Employee",
              {key("EmployeeKey"), text("SSN"), text("LastName"), text("FirstName"), text("Type"),
               text("Foreman"), text("MaritalStatus"), text("Address1"), text("Address2"), text("City"),
               text("State"), text("Zipcode"), text("Telephone"), number("Dependants"), text("Information"),
               date("DateofHire"), date("DateofTermination"), yesNo("Inactive")},
              {},
              {index({"SSN"}), index({"LastName"}), index({"FirstName"}), index({"Type", "LastName"}),
               index({"Inactive", "SSN"}), index({"Inactive", "LastName"})}),
        // A payment. Whether a task is paid is always the sum of these rows.
        table("JobTaskEmployee",
              {key("JobTaskEmployee"), owner("JobLotTaskKey"), owner("EmployeeKey"), money("Price"),
               date("Completed"), text("Note")},
              {refersTo("JobLotTask", "JobLotTaskKey", OnDelete::Refuse),
               refersTo("Employee", "EmployeeKey", OnDelete::Refuse)},
              {index({"JobLotTaskKey", "EmployeeKey"}), index({"EmployeeKey"}), index({"Completed"})}),
        // A log row outlives the task that it is about, so its task is not a relation.
        table("EmployeeLog",
              {key("LogKey"), owner("EmployeeKey"), link("JobLotTaskKey"), date("Occured"), text("Problem")},
              {refersTo("Employee", "EmployeeKey", OnDelete::Refuse)},
              {index({"EmployeeKey", "Occured"}), index({"JobLotTaskKey"}), index({"Occured"})}),
        table("ReportDefinition",
              {key("reportDefinitionKey"), text("Name"), text("objectName"), yesNo("multiSelect"),
               small("reportType"), yesNo("pEntryDate"), yesNo("pForeman"), yesNo("pSSN"),
               yesNo("pDetailLevel"), yesNo("summaryOnly"), yesNo("groupBy"), yesNo("category")},
              {}, {index({"Name"})}),
    };
}

} // namespace

std::vector<Table> makeTables() {
    std::vector<Table> all;
    for (auto&& group : {catalogueTables(), builderTables(), jobTables(), employeeTables()})
        all.insert(all.end(), group.begin(), group.end());
    return all;
}

Table makeVersionTable() {
    return table("SchemaVersion", {key("SchemaVersionKey"), needed("Version"), text("Program")}, {}, {});
}

} // namespace tarnwell::schema::detail
