#include "data/RunTimeError.h"

#include <array>

namespace tarnwell {

namespace {

constexpr auto RunTimeSource = "Tarnwell";
constexpr auto RecordsetSource = "ADODB.Recordset";
constexpr auto ConnectionSource = "ADODB.Connection";
constexpr auto ProviderSource = "the database"; // as the embedded engine is called; a server has a name

struct FailureEntry {
    Failure failure;
    int number;
    const char* source;
    const char* text;
};

constexpr std::array failures{
    FailureEntry{Failure::InvalidProcedureCall, 5, RunTimeSource, "Invalid procedure call or argument"},
    FailureEntry{Failure::Overflow, 6, RunTimeSource, "Overflow"},
    FailureEntry{Failure::SubscriptOutOfRange, 9, RunTimeSource, "Subscript out of range"},
    FailureEntry{Failure::TypeMismatch, 13, RunTimeSource, "Type mismatch"},
    FailureEntry{Failure::FileNotFound, 53, RunTimeSource, "File not found"},
    FailureEntry{Failure::DiskFull, 61, RunTimeSource, "Disk full"},
    FailureEntry{Failure::FileAccess, 75, RunTimeSource, "Path/File access error"},
    FailureEntry{Failure::PathNotFound, 76, RunTimeSource, "Path not found"},
    FailureEntry{Failure::InvalidUseOfNull, 94, RunTimeSource, "Invalid use of Null"},
    FailureEntry{Failure::InvalidProperty, 380, RunTimeSource, "Invalid property value"},
    FailureEntry{Failure::InvalidPropertyIndex, 381, RunTimeSource, "Invalid property array index"},
    FailureEntry{Failure::NoSuchMember, 438, RunTimeSource, "Object doesn't support this property or method"},
    FailureEntry{Failure::PrinterError, 482, RunTimeSource, "Printer error"},

    FailureEntry{Failure::NoCurrentRecord, 3021, RecordsetSource,
                 "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
                 "requires a current record."},
    FailureEntry{Failure::WrongArguments, 3001, RecordsetSource,
                 "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one "
                 "another."},
    FailureEntry{Failure::NotAllowed, 3219, RecordsetSource, "Operation is not allowed in this context."},
    FailureEntry{
        Failure::NotUpdatable, 3251, RecordsetSource,
        "Current Recordset does not support updating. This may be a limitation of the provider, or of "
        "the selected locktype."},
    FailureEntry{Failure::ItemNotFound, 3265, RecordsetSource,
                 "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    FailureEntry{Failure::WrongType, 3421, RecordsetSource,
                 "Application uses a value of the wrong type for the current operation."},
    FailureEntry{Failure::ObjectClosed, 3704, RecordsetSource,
                 "Operation is not allowed when the object is closed."},
    FailureEntry{Failure::ObjectOpen, 3705, RecordsetSource,
                 "Operation is not allowed when the object is open."},
    FailureEntry{Failure::ProviderNotFound, 3706, ConnectionSource,
                 "Provider cannot be found. It may not be properly installed."},
    FailureEntry{Failure::Cancelled, 3712, ConnectionSource, "Operation has been cancelled by the user."},

    FailureEntry{Failure::SyntaxError, -2147217900, ProviderSource, "Syntax error in the statement."},
    FailureEntry{Failure::NoSuchTable, -2147217865, ProviderSource, "The table does not exist."},
    FailureEntry{Failure::NoSuchColumn, -2147217904, ProviderSource,
                 "No value given for one or more required parameters: the column does not exist."},
    FailureEntry{
        Failure::Constraint, -2147217873, ProviderSource,
        "The change was refused by a rule of the database: the record is used by other records, or one "
        "of its values is not allowed."},
    FailureEntry{
        Failure::RowChanged, -2147217864, ProviderSource,
        "Row cannot be located for updating. Some values may have been changed since it was last read."},
    FailureEntry{Failure::RowDeleted, -2147217885, ProviderSource,
                 "Row handle referred to a deleted row or a row marked for deletion."},
    FailureEntry{Failure::PermissionDenied, -2147217911, ProviderSource,
                 "Permission denied: the database or the statement does not allow the operation."},
    FailureEntry{Failure::DataOverflow, -2147217833, ProviderSource,
                 "The value is too large for the column."},
    FailureEntry{Failure::DatabaseLocked, -2147467259, ProviderSource,
                 "The database is locked by another user. Try again in a moment."},
    FailureEntry{Failure::DatabaseNotFound, -2147467259, ProviderSource, "Could not find the database file."},
    FailureEntry{Failure::DatabaseForeign, -2147467259, ProviderSource,
                 "The file is damaged or is not a Tarnwell database."},
    FailureEntry{Failure::DatabaseFailure, -2147467259, ProviderSource,
                 "The database could not carry out the operation."},
};

/// An enumerator without its line would read another failure's text.
constexpr bool tableFollowsTheEnumeration() {
    for (std::size_t i = 0; i < failures.size(); ++i)
        if (failures[i].failure != static_cast<Failure>(i))
            return false;
    return failures.back().failure == Failure::DatabaseFailure;
}
static_assert(tableFollowsTheEnumeration());

QString completed(const char* text, const QString& detail) {
    const QString whole = QString::fromLatin1(text);
    return detail.isEmpty() ? whole : whole + QStringLiteral(" (%1)").arg(detail);
}

} // namespace

RunTimeError::RunTimeError(int number, QString source, QString description, std::optional<Failure> failure)
    : m_number(number), m_source(std::move(source)), m_description(std::move(description)),
      m_failure(failure), m_what(m_description.toUtf8()) {}

RunTimeError makeError(Failure failure, const QString& detail) {
    const FailureEntry& entry = failures.at(static_cast<std::size_t>(failure));
    return {entry.number, QString::fromLatin1(entry.source), completed(entry.text, detail), failure};
}

void raise(Failure failure, const QString& detail) {
    throw makeError(failure, detail);
}

} // namespace tarnwell
