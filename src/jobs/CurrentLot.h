#pragma once

#include "data/Value.h"

#include <QtGlobal>

namespace tarnwell {

/// The job on the screen and the current row of its lots, as a dialog that fills the lot sees them.
struct CurrentLot {
    qint64 jobKey = 0;        ///< 0: no job is loaded.
    qint64 contractorKey = 0; ///< The job's builder.
    Value jobLotKey;          ///< Null or Empty for a row that was not written yet.
    Value contractorPlanKey;  ///< 0 or Null: no plan was taken yet.
};

/// What the dialogs that fill a lot read of the screen that opened them, each time that they need it.
class CurrentLotCaller {
public:
    virtual ~CurrentLotCaller() = default;
    [[nodiscard]] virtual CurrentLot currentLot() const = 0;
};

} // namespace tarnwell
