#pragma once

#include "controls/NamedControl.h"
#include "timecard/PayrollFocus.h"

#include <QSize>

#include <vector>

class QCheckBox;
class QLabel;
class QLayout;
class QPushButton;

namespace tarnwell {

class Combo;
class DateBox;
class DayArrows;
class Grid;
class ListBox;
class MaskedBox;
class NoteBox;

/// The controls of the time card: their texts, columns and places, and the order of Tab. The form owns them;
/// before `build` there are none.
class PayrollControls {
public:
    /// The size of the form that they are laid out for.
    static constexpr QSize designSize{1180, 640};

    /// Makes them in the form, which has no layout yet. Runs once.
    void build(QWidget& form);
    /// All that have a name, for the screen that follows their focus.
    [[nodiscard]] std::vector<NamedControl> named() const;
    /// What an empty grid or list says; the state must outlive the controls.
    void setHints(const PayrollState& state) const;

    MaskedBox* jobNumber = nullptr; // MskField(2)
    MaskedBox* jobName = nullptr;   // MskField(1)
    MaskedBox* builder = nullptr;   // MskField(4)
    MaskedBox* price = nullptr;     // txtField(0)
    Grid* jgJobLots = nullptr;
    Grid* jgTasks = nullptr;
    Combo* cmbType = nullptr;
    Combo* cmbEmployees = nullptr;
    QCheckBox* chkUseTaskEmployee = nullptr;
    DateBox* rebCompleted = nullptr;
    DayArrows* vscrCompleted = nullptr;
    NoteBox* rchNote = nullptr;
    QPushButton* cmdApplyTask = nullptr;
    ListBox* lstTaskHistory = nullptr;
    ListBox* lstEmployeeHistory = nullptr;
    QLabel* totalPaid = nullptr;  // lblFieldLabel(12)
    QLabel* difference = nullptr; // lblFieldLabel(5)

private:
    void make(QWidget& form);
    void makeUnused(QWidget& form);
    [[nodiscard]] QLayout* jobRow();
    [[nodiscard]] QLayout* taskColumn();
    [[nodiscard]] QLayout* paymentColumn();
    [[nodiscard]] QWidget* timecardEntry();
    [[nodiscard]] QWidget* taskEntry();
    [[nodiscard]] QLayout* figures();
    void orderTabs();

    MaskedBox* m_boundPrice = nullptr; // MskField(8), which is never shown.
};

} // namespace tarnwell
