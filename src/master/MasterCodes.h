#pragma once

#include "data/Value.h"
#include "runtime/MsgBox.h"

#include <QString>

#include <array>

namespace tarnwell {

/// One of the lists of the lookup table, and the value of `Code1` that its rows carry.
struct CodeList {
    const char* name;
    qint64 code1;
};

/// The lists that the user keeps, in the order of the screen.
inline constexpr std::array codeLists{CodeList{"Employee Type", 1}, CodeList{"Master Task Category", 2}};

/// The statement for all rows of all lists; the screen filters them by list.
inline constexpr auto allCodes = "SELECT * FROM Code WHERE Deleted=0 ORDER BY Description";
/// The filter of one list.
[[nodiscard]] QString rowsOfList(qint64 code1);

/// Asks whether a code may be deleted: once, and a second time in a list whose rows tasks refer to. The
/// foreman type can't be deleted; a message says so instead. `code1` and `description` are the row's, `list`
/// is the one on screen.
[[nodiscard]] bool confirmCodeDeletion(const Ask& ask, const Value& code1, const Value& description,
                                       qint64 list);

} // namespace tarnwell
