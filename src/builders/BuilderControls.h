#pragma once

#include "builders/BuilderRecord.h"
#include "controls/NamedControl.h"

#include <QSize>

#include <array>
#include <functional>
#include <vector>

class QLayout;
class QPushButton;

namespace tarnwell {

class Combo;
class Grid;
class ListBox;
class MaskedBox;

/// Columns of `jgPlans`, by number.
namespace PlanColumn {
inline constexpr int ContractorPlanKey = 1, ContractorKey = 2, PlanName = 3;
}

/// Columns of the builders screen's `jgTasks`, by number.
namespace PlanTaskColumn {
inline constexpr int MasterTaskKey = 1, ContractorPlanKey = 2, CodeKey = 3, ContractorPlanTaskKey = 4,
                     AddonButton = 5, Name = 6, MasterPrice = 7;
}

/// The controls of the builders screen: their texts, columns and places, and the order of Tab. The form owns
/// them; before `build` there are none.
class BuilderControls {
public:
    /// The size of the form that they are laid out for.
    static constexpr QSize designSize{1180, 640};

    /// Makes them in the form, which has no layout yet. Runs once.
    void build(QWidget& form);
    /// All that have a name, for the screen that follows their focus.
    [[nodiscard]] std::vector<NamedControl> named() const;

    [[nodiscard]] BuilderTexts texts() const;
    /// Without a builder only the field that leads to one, the category and the grids can be used.
    void show(const BuilderTexts& texts, bool hasBuilder) const;
    /// What an empty grid says, with a builder and without one.
    void setHints(const std::function<bool()>& hasBuilder) const;
    /// The keys of the jobs that are selected, from top to bottom; 0 for the header.
    [[nodiscard]] std::vector<qint64> selectedJobs() const;
    /// Selects every job but the header, or none; the list repaints once.
    void selectAllJobs(bool select) const;

    std::array<MaskedBox*, builderFields.size()> MskField{}; ///< In the order of `builderFields`.
    ListBox* lstJobs = nullptr;
    QPushButton* cmdSelectAll = nullptr;
    Grid* jgPlans = nullptr;
    Combo* cmbType = nullptr;
    Grid* jgTasks = nullptr;

private:
    void make(QWidget& form);
    [[nodiscard]] QWidget* recordFrame(QWidget& form) const;
    [[nodiscard]] QLayout* jobColumn() const;
    [[nodiscard]] QLayout* planHalf() const;
};

} // namespace tarnwell
