#include "timecard/PayrollFocus.h"

#include "frame/ToolbarButtons.h"

namespace tarnwell {

namespace {

// Exit is always there; Find only where something can be found. `edit` names buttons that this screen's
// toolbar does not have.
constexpr ButtonMask exitOnly = Button::Exit | Button::Help;
constexpr ButtonMask exitAndFind = Button::Exit | Button::Find | Button::Help;
constexpr ButtonMask edit = Button::Exit | Button::Add | Button::Remove | Button::Save | Button::Help;
constexpr ButtonMask asItIs = 0;

} // namespace

std::span<const PayrollFocusRule> payrollFocusRules() {
    static const std::vector<PayrollFocusRule> rules = {
        {"cmbEmployees", {}, exitAndFind},
        {"chkUseTaskEmployee", {}, asItIs},
        {"MskField(2)", {}, exitAndFind},
        {"MskField(1)", {}, exitOnly},
        {"MskField(4)", {}, exitOnly},
        {"jgJobLots", {{PayrollLack::Job, "MskField(2)"}}, exitOnly},
        {"cmbType", {{PayrollLack::JobOrLots, "jgJobLots"}}, edit},
        {"jgTasks", {{PayrollLack::JobOrLots, "jgJobLots"}}, edit},
        {"txtField(0)", {{PayrollLack::Job, "jgJobLots"}, {PayrollLack::Lots, "MskField(2)"}}, exitOnly},
        {"rchNote", {{PayrollLack::JobOrTasks, "MskField(2)"}}, exitOnly},
        {"cmdApplyTask",
         {{PayrollLack::OpenTasksOrJob, "MskField(2)"},
          {PayrollLack::Tasks, "jgJobLots", true},
          {PayrollLack::Task, "jgTasks"}},
         asItIs},
    };
    return rules;
}

bool isLacking(const PayrollState& state, PayrollLack lack) {
    switch (lack) {
    case PayrollLack::Job:
        return state.isJobEmpty();
    case PayrollLack::Lots:
        return state.areLotsEmpty();
    case PayrollLack::JobOrLots:
        return state.isJobEmpty() || state.areLotsEmpty();
    case PayrollLack::JobOrTasks: {
        // Both sides are asked: before the first job the tasks are closed, and asking them fails.
        const bool tasksEmpty = state.areTasksEmpty();
        return state.isJobEmpty() || tasksEmpty;
    }
    case PayrollLack::OpenTasksOrJob:
        return !state.areTasksOpen() || state.isJobEmpty();
    case PayrollLack::Tasks:
        return state.areTasksEmpty();
    case PayrollLack::Task:
        return !state.hasTask();
    }
    return false;
}

} // namespace tarnwell
