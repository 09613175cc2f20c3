#include "sample/SampleTables.h"

#include "data/schema/Schema.h"

namespace tarnwell::sample {

namespace {

/// Few commits, since each writes most pages of the scattered indexes again; not one, since the log of a
/// transaction grows until its end.
constexpr qint64 rowsPerTransaction = 100'000;

} // namespace

TableWriter::TableWriter(Connection& connection, QString table, std::vector<QString> columns)
    : m_connection(connection), m_table(std::move(table)), m_columns(std::move(columns)) {}

void TableWriter::open() {
    m_recordset.Open(m_table, m_connection, CursorType::Dynamic, LockType::Optimistic);
    m_indexes.clear();
    for (const QString& column : m_columns)
        m_indexes.push_back(m_recordset.FieldIndex(column));
    m_keyIndex = m_recordset.FieldIndex(schema::findTable(m_table)->keyColumn);
}

qint64 TableWriter::add(std::initializer_list<Value> values) {
    if (m_recordset.State() == ObjectState::Closed)
        open();
    m_recordset.AddNew();
    auto index = m_indexes.begin();
    for (const Value& value : values) {
        if (!value.isEmpty())
            m_recordset.set(*index, value);
        ++index;
    }
    m_recordset.Update();
    ++m_rows;
    return m_recordset.field(m_keyIndex).toLong();
}

void TableWriter::change(int column, const Value& value) {
    m_recordset.set(m_indexes[static_cast<std::size_t>(column)], value);
    m_recordset.Update();
}

void TableWriter::close() {
    if (m_recordset.State() == ObjectState::Open)
        m_recordset.Close();
}

SampleTables::SampleTables(Connection& connection)
    : code(connection, "Code", {"Code1", "Code2", "Description", "Deleted"}),
      masterTask(connection, "MasterTask",
                 {"CodeKey", "Name", "MasterPrice", "CustomTask", "ExcludeDependency", "Deleted"}),
      dependency(connection, "CategoryDependency", {"CategoryKey", "DependentKey"}),
      builder(connection, "Contractor",
              {"Name", "Address 1", "Address 2", "City", "State", "Zipcode", "License"}),
      plan(connection, "ContractorPlan", {"ContractorKey", "PlanName"}),
      planTask(connection, "ContractorPlanTask",
               {"ContractorPlanKey", "MasterTaskKey", "CodeKey", "Name", "MasterPrice", "CustomTask",
                "ExcludeDependency"}),
      taskOption(connection, "ContractorTaskOption", {"ContractorPlanTaskKey", "Name", "MasterPrice"}),
      optionGroup(connection, "ContractorOptionGroup",
                  {"ContractorKey", "CodeKey", "MasterTaskKey", "MasterPrice", "ExcludeDependency"}),
      employee(connection, "Employee",
               {"SSN", "LastName", "FirstName", "Type", "Foreman", "MaritalStatus", "Address1", "Address2",
                "City", "State", "Zipcode", "Telephone", "Dependants", "Information", "DateofHire",
                "DateofTermination", "Inactive"}),
      job(connection, "Job", {"JobNumber", "Name", "Foreman", "ContractorKey", "CompletedDate"}),
      lot(connection, "JobLot",
          {"JobKey", "LotBlock", "PlanName", "Address", "ContractorPlanKey", "ExcludeDependencyCheck"}),
      lotTask(connection, "JobLotTask",
              {"ParentKey", "Child", "JobLotKey", "MasterTaskKey", "CodeKey", "ContractorPlanTaskKey", "Name",
               "MasterPrice", "CustomTask", "ExcludeDependency", "StartDate", "StopDate", "EmployeeKey"}),
      payment(connection, "JobTaskEmployee", {"JobLotTaskKey", "EmployeeKey", "Price", "Completed", "Note"}),
      log(connection, "EmployeeLog", {"JobLotTaskKey", "EmployeeKey", "Occured", "Problem"}),
      m_connection(connection), m_transaction(std::make_unique<Transaction>(connection)) {}

void SampleTables::breathe() {
    if (rows() - m_committedRows < rowsPerTransaction)
        return;
    finish();
    m_transaction = std::make_unique<Transaction>(m_connection);
}

void SampleTables::finish() {
    for (TableWriter* table : all())
        table->close();
    m_transaction->commit();
    m_committedRows = rows();
}

std::array<TableWriter*, 14> SampleTables::all() {
    return {&code,        &masterTask, &dependency, &builder, &plan,    &planTask, &taskOption,
            &optionGroup, &employee,   &job,        &lot,     &lotTask, &payment,  &log};
}

qint64 SampleTables::rows() {
    qint64 sum = 0;
    for (const TableWriter* table : all())
        sum += table->rows();
    return sum;
}

} // namespace tarnwell::sample
