#include "timecard/EmployeeRecord.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"

#include <algorithm>

namespace tarnwell {

namespace {

/// In the order of the screen's fields, which is the order of writing.
constexpr std::array<const char*, EmployeeField::Count> fieldColumns{
    "SSN",  "LastName", "FirstName", "Address1",  "Address2",
    "City", "State",    "Zipcode",   "Telephone", "Dependants"};

QString employeeStatement(qint64 employeeKey) {
    return "SELECT * FROM Employee WHERE EmployeeKey=" + QString::number(employeeKey);
}

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// The text without blanks and the given signs.
QString without(const QString& text, QStringView signs) {
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [signs](QChar character) { return !character.isSpace() && !signs.contains(character); });
    return kept;
}

bool isDigits(const QString& text, int count) {
    return text.size() == count && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace

qint64 addEmployee(Connection& connection) {
    Recordset employees;
    employees.Open("Employee", connection, CursorType::Dynamic, LockType::Optimistic);
    employees.AddNew();
    employees.set("Inactive", 0);
    employees.Update();
    return employees["EmployeeKey"].toLong();
}

EmployeeRecord readEmployee(Connection& connection, qint64 employeeKey) {
    Recordset employee;
    employee.Open(employeeStatement(employeeKey), connection);
    EmployeeRecord record{.inactive = employee["Inactive"].toLong() * -1 == 1,
                          .type = FieldText(employee["Type"]),
                          .foreman = FieldText(employee["Foreman"]),
                          .maritalStatus = FieldText(employee["MaritalStatus"]),
                          .fields = {},
                          .information = FieldText(employee["Information"]),
                          .dateOfHire = employee["DateofHire"],
                          .dateOfTermination = employee["DateofTermination"]};
    for (std::size_t i = 0; i < EmployeeField::Count; ++i)
        record.fields.at(i) = FieldText(employee[fieldColumns.at(i)]);
    record.fields[EmployeeField::Dependants] = Format(employee["Dependants"], "#0");
    return record;
}

void saveEmployee(Connection& connection, qint64 employeeKey, const EmployeeRecord& record) {
    Recordset employee;
    employee.Open(employeeStatement(employeeKey), connection, CursorType::Static, LockType::Optimistic);
    employee.set("Inactive", (record.inactive ? 1 : 0) * -1);
    employee.set("Type", record.type);
    employee.set("Foreman", record.foreman);
    employee.set("MaritalStatus", record.maritalStatus);
    for (std::size_t i = 0; i < EmployeeField::Count; ++i) {
        const QString& text = record.fields.at(i);
        const bool noNumber = i == EmployeeField::Dependants && text.trimmed().isEmpty();
        employee.set(fieldColumns.at(i), noNumber ? Value::null() : Value(text));
    }
    employee.set("Information", record.information);
    employee.set("DateofHire", record.dateOfHire);
    employee.set("DateofTermination", record.dateOfTermination);
    employee.Update();
}

bool isForeman(const QString& type) {
    return type.compare(u"Foreman", Qt::CaseInsensitive) == 0;
}

std::vector<QString> readEmployeeTypes(Connection& connection) {
    Recordset rows;
    rows.Open("SELECT Description FROM Code WHERE Deleted=0 AND Code1=1", connection);
    std::vector<QString> types;
    for (; !rows.atEnd(); rows.MoveNext())
        types.push_back(FieldText(rows.field(0)));
    return types;
}

QString ssnText(const QString& digits) {
    return digits.left(3) + u'-' + digits.mid(3, 2) + u'-' + digits.right(4);
}

QString ssnAsTyped(const QString& text) {
    const QString digits = without(text, u"-");
    return isDigits(digits, ssnDigits) ? ssnText(digits) : without(text, {});
}

bool isSsnTaken(Connection& connection, qint64 employeeKey, const QString& ssn) {
    return firstValue(connection, "SELECT EmployeeKey FROM Employee WHERE EmployeeKey<>" +
                                      QString::number(employeeKey) + " AND SSN='" + ssn + "'")
        .has_value();
}

QString telephoneText(const QString& stored) {
    constexpr int telephoneDigits = 10;
    const QString digits = without(stored, u"()-.");
    if (!isDigits(digits, telephoneDigits))
        return stored;
    return u'(' + digits.left(3) + QStringLiteral(") ") + digits.mid(3, 3) + u'-' + digits.right(4);
}

} // namespace tarnwell
