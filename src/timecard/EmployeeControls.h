#pragma once

#include "controls/NamedControl.h"
#include "timecard/EmployeeRecord.h"

#include <QSize>

#include <array>
#include <vector>

class QCheckBox;
class QLabel;

namespace tarnwell {

class Combo;
class DateBox;
class ListBox;
class MaskedBox;
class NoteBox;

/// The controls of the employee screen: their texts and places, and the order of Tab. The form owns them;
/// before `build` there are none.
class EmployeeControls {
public:
    /// The size of the form that they are laid out for.
    static constexpr QSize designSize{940, 640};

    /// Makes them in the form, which has no layout yet. Runs once.
    void build(QWidget& form);
    /// All that have a name, for the screen that follows their focus.
    [[nodiscard]] std::vector<NamedControl> named() const;

    std::array<MaskedBox*, EmployeeField::Count> MskField{};
    Combo* cmbType = nullptr;
    Combo* cmbForeman = nullptr;
    Combo* cmbMaritalStatus = nullptr;
    DateBox* rebHired = nullptr;
    DateBox* rebTerminated = nullptr;
    NoteBox* rchField = nullptr;
    QCheckBox* chkInActive = nullptr;
    ListBox* lstErrorLog = nullptr;
    QLabel* heading = nullptr; ///< Whose record this is, or that there is none.

private:
    void make(QWidget& form);
    [[nodiscard]] QWidget* information();
    void orderTabs();
};

} // namespace tarnwell
