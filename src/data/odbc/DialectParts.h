#pragma once

#include "data/sql/SqlTokens.h"
#include "data/sql/StatementTables.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>
#include <utility>

namespace tarnwell::data {

// What the dialects of servers have in common.

/// A function that typed text may call, and what it is called on the server.
struct ServerFunction {
    const char* name;
    const char* serverName;
    const char* within = ""; ///< Put in front of its closing parenthesis.
    const char* behind = ""; ///< Put behind it.
};

/// Leaves the token out and writes the text in its place.
void writeInstead(Token& token, const QByteArray& text);

/// Writes names as the catalogue has them, in quotes, for a server that minds their case or has words of its
/// own among them, and the functions as the server calls them. Raises SyntaxError for a function that is not
/// listed: servers have some that read files, wait, or change settings.
void writeServerNames(SqlTokens& tokens, std::span<const ServerFunction> functions);

/// The type of the column whose name, with or without its table's, ends or begins at that place; nothing
/// where none of the catalogue's does.
[[nodiscard]] std::optional<schema::ColumnType> typeEndingAt(const SqlTokens& tokens,
                                                             const StatementTables& tables, int end);
[[nodiscard]] std::optional<schema::ColumnType> typeBeginningAt(const SqlTokens& tokens,
                                                                const StatementTables& tables, int begin);

/// Whether the literal at `at` is taken for text: it is a pattern, or compared with a column of texts.
[[nodiscard]] bool isTakenForText(const SqlTokens& tokens, const StatementTables& tables, int at);

/// A host, and its port where one stands behind a colon.
[[nodiscard]] std::pair<QString, QString> hostAndPort(const QString& address);

/// "key=value;" of a driver's connection string, or nothing without a value. Values hold no semicolon: ours
/// are divided by it as well.
[[nodiscard]] QString driverEntry(const char* key, const QString& value);
/// The same for a password, in the brackets that drivers take for one.
[[nodiscard]] QString driverPassword(const QString& password);

} // namespace tarnwell::data
