#include "data/engine/ConstraintText.h"

namespace tarnwell::data {

QString constraintText(BrokenRule rule, const QString& column) {
    switch (rule) {
    case BrokenRule::NoSuchParent:
        return QStringLiteral(
            "The record cannot be added because a record that it refers to does not exist.");
    case BrokenRule::IsReferredTo:
        return QStringLiteral("The record cannot be deleted or changed because other records refer to it.");
    case BrokenRule::NoValue:
        return QStringLiteral("The column %1 must have a value.").arg(column);
    case BrokenRule::ExistsAlready:
        return QStringLiteral("The value of %1 exists already.").arg(column);
    }
    return {};
}

} // namespace tarnwell::data
