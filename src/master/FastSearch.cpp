#include "master/FastSearch.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"

#include <algorithm>

namespace tarnwell {

namespace {

constexpr SearchRowPart employeeByLastName[] = {{"LastName", 1, 20}, {"FirstName", 21, 22}, {"SSN", 43, 12}};
constexpr SearchRowPart employeeByFirstName[] = {{"FirstName", 1, 20}, {"LastName", 21, 22}, {"SSN", 43, 12}};
constexpr SearchRowPart employeeBySsn[] = {{"SSN", 1, 12}, {"FirstName", 13, 22}, {"LastName", 35, 22}};
constexpr SearchRowPart builderByName[] = {{"Name", 1, 20}, {"Address 1", 21, 22}};
constexpr SearchRowPart builderByAddress[] = {{"Address 1", 1, 20}, {"Name", 21, 22}};
constexpr SearchRowPart jobByNumber[] = {
    {"JobNumber", 1, 10}, {"Job.Name", 11, 30}, {"Contractor.Name", 41, 20}};
constexpr SearchRowPart jobByBuilder[] = {
    {"Contractor.Name", 1, 20}, {"Job.Name", 21, 30}, {"JobNumber", 51, 10}};

constexpr SearchOption employeeOptions[] = {{"Last Name", "LastName", employeeByLastName},
                                            {"First Name", "FirstName", employeeByFirstName},
                                            {"SSN", "SSN", employeeBySsn}};
constexpr SearchOption builderOptions[] = {{"Name", "Name", builderByName},
                                           {"Address 1", "[Address 1]", builderByAddress}};
constexpr SearchOption jobOptions[] = {{"Job #", "JobNumber", jobByNumber},
                                       {"Builder", "Contractor.Name", jobByBuilder},
                                       {"Job # - Closed", "JobNumber", jobByNumber, false}};

constexpr SearchKind kinds[] = {{SearchType::Employee, "Employee Search", employeeOptions},
                                {SearchType::Builder, "Builder Search", builderOptions},
                                {SearchType::Job, "Job Search", jobOptions}};

constexpr int rowLength = 80;
constexpr int keyStringLength = 21;

QString statement(int searchType, const SearchOption& option, const QString& text) {
    const QString tag = QString::fromLatin1(option.tag);
    const QString comparison = tag + " >= '" + text + "' ORDER BY " + tag;
    switch (searchType) {
    case SearchType::Employee:
        return "SELECT EmployeeKey, SSN, LastName, FirstName FROM Employee WHERE " + comparison;
    case SearchType::Builder:
        return "SELECT ContractorKey, Name, [Address 1] FROM Contractor WHERE " + comparison;
    default:
        return "SELECT JobKey, JobNumber, Contractor.Name, Job.Name FROM Job, Contractor WHERE "
               "ISNULL(CompletedDate)=" +
               Value(option.openJobs).toText() + " AND Job.ContractorKey = Contractor.ContractorKey AND " +
               comparison + ", JobNumber";
    }
}

QString keyString(int searchType, const Value& key) {
    QString text = PadRight(QString(QChar(searchType)), keyStringLength);
    overlay(text, 2, QString::number(key.toLong()), 10);
    return text;
}

/// Where an option's fields stand in the recordset, looked up once for all rows.
std::vector<int> fieldIndexes(const Recordset& rows, const SearchOption& option) {
    std::vector<int> indexes;
    std::ranges::transform(option.row, std::back_inserter(indexes), [&](const SearchRowPart& part) {
        return rows.FieldIndex(QString::fromLatin1(part.field));
    });
    return indexes;
}

QString rowText(const Recordset& rows, const SearchOption& option, const std::vector<int>& indexes) {
    QString text(rowLength, u' ');
    for (std::size_t i = 0; i < option.row.size(); ++i) {
        const SearchRowPart& part = option.row[i];
        const QString field = FieldText(rows.field(indexes[i]));
        overlay(text, part.start, i == 0 ? field : u'|' + field, part.width);
    }
    return text;
}

} // namespace

const SearchKind* searchKind(int searchType) {
    const auto* found = std::ranges::find(kinds, searchType, &SearchKind::searchType);
    return found == std::end(kinds) ? nullptr : found;
}

std::vector<FoundRow> searchRows(Connection& connection, const SearchKind& kind, int option,
                                 const QString& text) {
    const SearchOption& chosen = kind.options[static_cast<std::size_t>(option)];
    Recordset rows;
    rows.setMaxRecords(foundRowLimit);
    rows.Open(statement(kind.searchType, chosen, text), connection);
    const std::vector<int> indexes = fieldIndexes(rows, chosen);
    std::vector<FoundRow> found;
    found.reserve(foundRowLimit);
    for (; !rows.atEnd() && found.size() < foundRowLimit; rows.MoveNext())
        found.push_back(
            {.text = rowText(rows, chosen, indexes), .key = keyString(kind.searchType, rows.field(0))});
    return found;
}

qint64 selectedKeyNumber(const QString& selectedKey) {
    return static_cast<qint64>(Val(selectedKey.mid(1)));
}

} // namespace tarnwell
