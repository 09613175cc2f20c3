#pragma once

#include <QString>

#include <exception>
#include <optional>

namespace tarnwell {

/// What can go wrong, by name; number, source and text stand in one table in RunTimeError.cpp. The numbers
/// are those of ADO (ADODB ErrorValueEnum and the OLE DB HRESULTs) and of the Visual Basic run time.
enum class Failure {
    // run time
    InvalidProcedureCall, // 5
    Overflow,             // 6
    SubscriptOutOfRange,  // 9
    TypeMismatch,         // 13
    FileNotFound,         // 53
    DiskFull,             // 61
    FileAccess,           // 75: path/file access error
    PathNotFound,         // 76
    InvalidUseOfNull,     // 94
    InvalidProperty,      // 380: invalid property value
    InvalidPropertyIndex, // 381: invalid property array index
    NoSuchMember,         // 438
    PrinterError,         // 482
    // recordset and connection
    NoCurrentRecord,  // 3021
    WrongArguments,   // 3001
    NotAllowed,       // 3219: operation is not allowed in this context
    NotUpdatable,     // 3251
    ItemNotFound,     // 3265
    WrongType,        // 3421
    ObjectClosed,     // 3704
    ObjectOpen,       // 3705
    ProviderNotFound, // 3706
    Cancelled,        // 3712
    // provider
    SyntaxError,      // -2147217900
    NoSuchTable,      // -2147217865
    NoSuchColumn,     // -2147217904
    Constraint,       // -2147217873
    RowChanged,       // -2147217864
    RowDeleted,       // -2147217885
    PermissionDenied, // -2147217911: read-only file, forbidden statement
    DataOverflow,     // -2147217833
    DatabaseLocked,   // -2147467259
    DatabaseNotFound, // -2147467259
    DatabaseForeign,  // -2147467259: not a database, or not one of ours
    DatabaseFailure,  // -2147467259: anything else that the engine reports
};

/// The one exception type. It becomes text at the edge: in `ErrorHandler` or in the program's outer handler.
class RunTimeError : public std::exception {
public:
    /// `failure`: none for what only the run time itself raises.
    RunTimeError(int number, QString source, QString description, std::optional<Failure> failure = {});

    /// What handlers test and users quote: negative for the database, else the run time's or the recordset's.
    [[nodiscard]] int number() const { return m_number; }
    /// Who raised it: "Tarnwell", "ADODB.Recordset", "ADODB.Connection", "the database", or a server by its
    /// name.
    [[nodiscard]] const QString& source() const { return m_source; }
    [[nodiscard]] const QString& description() const { return m_description; }
    /// Tells failures apart that share a number.
    [[nodiscard]] bool is(Failure failure) const { return m_failure == failure; }
    [[nodiscard]] std::optional<Failure> failure() const { return m_failure; }
    /// The description in UTF-8.
    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_source;
    QString m_description;
    std::optional<Failure> m_failure;
    QByteArray m_what;
};

/// `detail` completes the table's text: a name, a path or the engine's own words.
[[nodiscard]] RunTimeError makeError(Failure failure, const QString& detail = {});
[[noreturn]] void raise(Failure failure, const QString& detail = {});

} // namespace tarnwell
