#pragma once

#include "frame/modFormRoutines.h"

#include <QString>

#include <span>
#include <vector>

namespace tarnwell {

/// What of the chain from job to task can be missing when a control gains the focus.
enum class PayrollLack { Job, Lots, JobOrLots, JobOrTasks, OpenTasksOrJob, Tasks, Task };

/// Sends the focus on when something is missing.
struct PayrollRefusal {
    PayrollLack lack;
    const char* sendTo;
    bool thenGoOn = false; ///< The next refusal is tried as well.
};

/// What happens when a control gains the focus: the first refusal that applies, else the toolbar's mask (0
/// leaves it as it is) and the tool tip in the status bar.
struct PayrollFocusRule {
    const char* control;
    std::vector<PayrollRefusal> refusals;
    ButtonMask mask;
};

/// One rule for each control; lives as long as the program.
[[nodiscard]] std::span<const PayrollFocusRule> payrollFocusRules();

/// The screen's state, as the rules ask for it.
class PayrollState {
public:
    virtual ~PayrollState() = default;
    [[nodiscard]] virtual bool isJobEmpty() const = 0;
    /// True also while there is no lot recordset.
    [[nodiscard]] virtual bool areLotsEmpty() const = 0;
    [[nodiscard]] virtual bool areTasksOpen() const = 0;
    /// Raises ObjectClosed while the task recordset is closed.
    [[nodiscard]] virtual bool areTasksEmpty() const = 0;
    [[nodiscard]] virtual bool hasTask() const = 0;
};

/// Raises what the state raises.
[[nodiscard]] bool isLacking(const PayrollState& state, PayrollLack lack);

} // namespace tarnwell
