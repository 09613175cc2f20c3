#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <QString>

#include <array>
#include <vector>

namespace tarnwell {

/// The text fields of the employee screen, by their index.
namespace EmployeeField {
inline constexpr std::size_t Ssn = 0, LastName = 1, FirstName = 2, Telephone = 8, Dependants = 9, Count = 10;
}

/// An employee as the screen holds one: texts, a tick and two dates.
struct EmployeeRecord {
    bool inactive = false;
    QString type;
    QString foreman; ///< "Last/First"; no key.
    QString maritalStatus;
    std::array<QString, EmployeeField::Count> fields;
    QString information;
    Value dateOfHire = Value::null(); ///< A date, or Null for none.
    Value dateOfTermination = Value::null();

    friend bool operator==(const EmployeeRecord&, const EmployeeRecord&) = default;
};

/// Adds an active employee with nothing else filled in; returns the key.
[[nodiscard]] qint64 addEmployee(Connection& connection);
/// Raises NoCurrentRecord for a key that does not exist.
[[nodiscard]] EmployeeRecord readEmployee(Connection& connection, qint64 employeeKey);
/// Writes every column, changed or not: the workstation that leaves a record last wins. Dependants without a
/// text are stored as Null. Raises WrongType for a text that is not a date and for dependants that are not a
/// number.
void saveEmployee(Connection& connection, qint64 employeeKey, const EmployeeRecord& record);

/// In any case of letters.
[[nodiscard]] bool isForeman(const QString& type);
/// The names of the employee types, in the order of the table.
[[nodiscard]] std::vector<QString> readEmployeeTypes(Connection& connection);

/// The digits of a social security number with its dashes by position, as texts, so that leading zeros stay:
/// 012-34-5678. The pieces of a short one overlap.
[[nodiscard]] QString ssnText(const QString& digits);
/// What the user has typed or pasted so far: blanks go, and dashes come as soon as there are nine digits.
[[nodiscard]] QString ssnAsTyped(const QString& text);
inline constexpr int ssnDigits = 9;
/// Another employee has the same number. A quote in it breaks the statement: raises what the connection
/// raises.
[[nodiscard]] bool isSsnTaken(Connection& connection, qint64 employeeKey, const QString& ssn);

/// Ten digits as "(000) 000-0000"; any other text as it is.
[[nodiscard]] QString telephoneText(const QString& stored);

} // namespace tarnwell
