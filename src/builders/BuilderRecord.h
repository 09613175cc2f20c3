#pragma once

#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"

#include <QString>

#include <array>
#include <vector>

namespace tarnwell {

/// A field of a builder's record, in the order in which the screen shows them.
struct BuilderField {
    const char* column;
    const char* label;
    int length; ///< Characters.
    const char* toolTip;
};

inline constexpr std::array builderFields{
    BuilderField{"Name", "Name:", 50, "Enter the Builder Name"},
    BuilderField{"Address 1", "Address 1:", 50, "Enter Address 1"},
    BuilderField{"Address 2", "Address 2:", 50, "Enter Address 2"},
    BuilderField{"City", "City:", 50, "Enter City"},
    BuilderField{"State", "State:", 10, "Enter State"},
    BuilderField{"Zipcode", "Zip Code:", 10, "Enter Zip Code"},
    BuilderField{"License", "License:", 20, "Enter builder License"},
};

/// The texts of `builderFields`.
using BuilderTexts = std::array<QString, builderFields.size()>;

/// All builders by name: name and key, as a combo takes them.
[[nodiscard]] std::vector<ListItem> readBuilders(Connection& connection);
/// Adds a builder with an empty name and returns its key.
[[nodiscard]] qint64 addBuilder(Connection& connection);
/// Null reads as the empty text. All texts are empty for 0 and for a builder that no longer exists.
[[nodiscard]] BuilderTexts readBuilder(Connection& connection, qint64 builderKey);
/// Writes every text, changed or not. Nothing for 0. Raises NoCurrentRecord when the builder no longer
/// exists.
void saveBuilder(Connection& connection, qint64 builderKey, const BuilderTexts& texts);
/// Deletes the builder with its plans, their tasks and its option groups' tasks; does nothing if it no longer
/// exists. Raises Constraint when it has a job; nothing is deleted then.
void deleteBuilder(Connection& connection, qint64 builderKey);

/// The plans of a builder by name; none for 0.
[[nodiscard]] QString plansOfBuilder(qint64 builderKey);
/// The tasks of a plan in a category by name; none for a plan of 0.
[[nodiscard]] QString tasksOfPlan(qint64 planKey, qint64 codeKey);

} // namespace tarnwell
