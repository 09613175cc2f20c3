#pragma once

#include "data/sql/SqlTokens.h"
#include "data/sql/StatementTables.h"

namespace tarnwell::data {

/// A name of a statement for an engine that minds its case, in quotes: as the catalogue spells it where a
/// table or column is so called, else in small letters.
[[nodiscard]] QByteArray engineName(QStringView name);

/// How one engine has the system's statements written, beyond what all engines share.
class SqlWriter {
public:
    SqlWriter() = default;
    virtual ~SqlWriter() = default;
    SqlWriter(const SqlWriter&) = delete;
    SqlWriter& operator=(const SqlWriter&) = delete;

    /// Called last, when joins of texts, words for yes and no, and lists of keys are rewritten. Raises
    /// SyntaxError and NoSuchTable for what the engine would take for more than a statement of our rows.
    virtual void write(SqlTokens& tokens, const StatementTables& tables) const = 0;
};

} // namespace tarnwell::data
