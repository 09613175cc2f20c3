#pragma once

#include <sql.h>

namespace tarnwell::data {

/// A number where the library takes an attribute's value as a pointer.
[[nodiscard]] inline SQLPOINTER asPointer(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(number); // NOLINT(performance-no-int-to-ptr): the library's own way
}

} // namespace tarnwell::data
