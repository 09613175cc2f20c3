#pragma once

#include "controls/NamedControl.h"
#include "jobs/JobRecord.h"

#include <QSize>

#include <array>
#include <functional>
#include <vector>

namespace tarnwell {

class Combo;
class DateBox;
class Grid;
class MaskedBox;

/// Columns of `jgJobLots`, by number.
namespace LotColumn {
inline constexpr int JobLotKey = 1, JobKey = 2, LotBlock = 3, PlanName = 4, Address = 5,
                     ContractorPlanKey = 6;
}

/// Columns of the jobs screen's `jgTasks`, by number.
namespace LotTaskColumn {
inline constexpr int MasterTaskKey = 1, JobLotKey = 2, CodeKey = 3, AddOnButton = 4, ParentKey = 5, Child = 6,
                     Name = 8, EmployeeKey = 15;
}

/// The controls of the jobs screen: their texts, columns and places, and the order of Tab. The form owns
/// them; before `build` there are none.
class JobControls {
public:
    /// The size of the form that they are laid out for.
    static constexpr QSize designSize{1180, 640};

    /// Makes them in the form, which has no layout yet. Runs once.
    void build(QWidget& form);
    /// All that have a name, for the screen that follows their focus.
    [[nodiscard]] std::vector<NamedControl> named() const;

    /// What the fields hold. A text that is not a date is handed on as it is.
    [[nodiscard]] JobRecord record() const;
    void show(const ShownJob& job) const;
    void clear() const;
    /// What an empty grid says, with a job and without one.
    void setHints(const std::function<bool()>& hasJob) const;
    /// Without a job only the field that leads to one, the category and the grids can be used.
    void showHasJob(bool has) const;

    std::array<MaskedBox*, 3> MskField{}; ///< Job number, job name, builder.
    Combo* cmbForeman = nullptr;
    DateBox* rebCompletedDate = nullptr;
    Grid* jgJobLots = nullptr;
    Combo* cmbType = nullptr;
    Grid* jgTasks = nullptr;

private:
    void make(QWidget& form);
    [[nodiscard]] QWidget* jobFrame(QWidget& form) const;
};

} // namespace tarnwell
