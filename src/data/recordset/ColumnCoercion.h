#pragma once

#include "data/Value.h"
#include "data/schema/Schema.h"

namespace tarnwell::data {

/// A value in the type of the column it is set to. Null stays Null. Raises WrongType for what the type
/// refuses (text that is not a number or date, also the empty text), DataOverflow for a number outside it.
[[nodiscard]] Value coerced(const Value& value, const schema::Column& column);

} // namespace tarnwell::data
