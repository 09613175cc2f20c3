#include "tour/Chapters.h"
#include "tour/ReportPictures.h"
#include "tour/Steps.h"

#include <array>

// Each screen once, with a state that shows what it is for. Nothing is stored on the way.

namespace tarnwell::tour {

namespace {

constexpr std::array mainWindow{
    Step{Do::See, "frmSwitchboard"},
    Step{Do::Picture, "frmSwitchboard"},
};

constexpr std::array backups{
    Step{Do::Click, "lnkBackups"},         Step{Do::See, "frmBackups"},     Step{Do::Press, "Alt+U"},
    Step{Do::Show, "lblWork", "1 backup"}, Step{Do::Picture, "frmBackups"}, Step{Do::Press, "Esc"},
};

constexpr std::array timeCard{
    Step{Do::Press, "Alt+C"},
    Step{Do::See, "frmPayroll"},
    Step{Do::Type, "26-1003"},
    Step{Do::Show, "MskField(2)", "26-1003"},
    Step{Do::Cell, "jgJobLots", "1/9", "LotBlock"},
    Step{Do::Press, "Alt+C"},
    Step{Do::Type, "Interior Trim"},
    Step{Do::Show, "cmbType", "Interior Trim"},
    Step{Do::Cell, "jgTasks", "Base and casing", "Name"},
    Step{Do::Press, "Tab"},
    Step{Do::Type, "911-14-7118"},
    Step{Do::Show, "cmbEmployees", "911-14-7118"},
    Step{Do::Picture, "frmPayroll"},
    Step{Do::Toolbar, "Find"},
    Step{Do::See, "frmFastSearch"},
    Step{Do::Type, "Mo"},
    Step{Do::Picture, "frmFastSearch"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmPayroll"},
    Step{Do::DoubleLine, "lstTaskHistory", ""},
    Step{Do::See, "frmTaskNotes"},
    Step{Do::Picture, "frmTaskNotes"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmPayroll"},
    Step{Do::Press, "Alt+E, Ctrl+A"},
    Step{Do::Type, "400"},
    Step{Do::Press, "Alt+A"},
    Step{Do::See, "msgBox"},
    Step{Do::Picture, "msgBox"},
    Step{Do::Press, "Alt+N"},
    Step{Do::See, "frmPayroll"},
    Step{Do::Toolbar, "Exit"},
};

constexpr std::array employees{
    Step{Do::Press, "Alt+E"},
    Step{Do::See, "frmEmployee"},
    Step{Do::Toolbar, "Find"},
    Step{Do::See, "frmFastSearch"},
    Step{Do::Type, "Montoya"},
    Step{Do::DoubleLine, "lstItems", "909-06-1279"},
    Step{Do::See, "frmEmployee"},
    Step{Do::Picture, "frmEmployee"},
    Step{Do::DoubleLine, "lstErrorLog", ""},
    Step{Do::See, "frmEmployeeNotes"},
    Step{Do::Picture, "frmEmployeeNotes"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmEmployee"},
    Step{Do::Toolbar, "Exit"},
};

constexpr std::array masterCodes{
    Step{Do::Press, "Alt+O"},  Step{Do::See, "frmMasterCodes"},
    Step{Do::Type, "M"},       Step{Do::Picture, "frmMasterCodes"},
    Step{Do::Toolbar, "Exit"},
};

constexpr std::array masterTasks{
    Step{Do::Press, "Alt+M"},
    Step{Do::See, "frmMasterTasks"},
    Step{Do::Type, "Flooring"},
    Step{Do::Show, "cmbType", "Flooring"},
    Step{Do::Choose, "cmbCascade", "Update Builder, Jobs"},
    Step{Do::Click, "chkUpdatePrice"},
    Step{Do::Cell, "jgMasterTasks", "Carpet bedrooms", "Name"},
    Step{Do::Picture, "frmMasterTasks"},
    Step{Do::Cell, "jgDependency", "Painting", "Description"},
    Step{Do::Toolbar, "Add"},
    Step{Do::See, "frmAddDependency"},
    Step{Do::Type, "Drywall"},
    Step{Do::Show, "cmbType", "Drywall"},
    Step{Do::Picture, "frmAddDependency"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmMasterTasks"},
    Step{Do::Toolbar, "Exit"},
};

constexpr std::array builders{
    Step{Do::Press, "Alt+B"},
    Step{Do::See, "frmBuilder"},
    Step{Do::Toolbar, "Find"},
    Step{Do::See, "frmFastSearch"},
    Step{Do::Type, "North"},
    Step{Do::DoubleLine, "lstItems", "Northgate"},
    Step{Do::See, "frmBuilder"},
    Step{Do::Cell, "jgPlans", "Birch 1620", "PlanName"},
    Step{Do::Press, "Alt+C"},
    Step{Do::Type, "Flooring"},
    Step{Do::Show, "cmbType", "Flooring"},
    Step{Do::Cell, "jgTasks", "Carpet bedrooms", "Name"},
    Step{Do::Picture, "frmBuilder"},
    Step{Do::Toolbar, "Task"},
    Step{Do::See, "frmAddMasterTasks"},
    Step{Do::Line, "lstTasks", "Kitchen island"},
    Step{Do::Line, "lstTasks", "Laundry cabinets"},
    Step{Do::Picture, "frmAddMasterTasks"},
    Step{Do::Toolbar, "Exit"},
    Step{Do::See, "frmBuilder"},
    Step{Do::Click, "MskField(0)"},
    Step{Do::Toolbar, "Group"},
    Step{Do::See, "frmAddOptionGroup"},
    Step{Do::Line, "lstGroups", "Third Car Garage"},
    Step{Do::Picture, "frmAddOptionGroup"},
    Step{Do::Toolbar, "Add"},
    Step{Do::See, "frmOptionGroupAdd"},
    Step{Do::Type, "Screened Porch"},
    Step{Do::Picture, "frmOptionGroupAdd"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmAddOptionGroup"},
    Step{Do::Toolbar, "Exit"},
    Step{Do::See, "frmBuilder"},
    Step{Do::Toolbar, "Exit"},
};

constexpr std::array jobs{
    Step{Do::Press, "Alt+J"},
    Step{Do::See, "frmJobs"},
    Step{Do::Toolbar, "Find"},
    Step{Do::See, "frmFastSearch"},
    Step{Do::Type, "26-1003"},
    Step{Do::DoubleLine, "lstItems", "26-1003"},
    Step{Do::See, "frmJobs"},
    Step{Do::Cell, "jgJobLots", "1/9", "LotBlock"},
    Step{Do::Press, "Alt+C"},
    Step{Do::Type, "Interior Trim"},
    Step{Do::Show, "cmbType", "Interior Trim"},
    Step{Do::Cell, "jgTasks", "Hang interior doors", "Name"},
    Step{Do::Picture, "frmJobs"},
    Step{Do::Toolbar, "Group"},
    Step{Do::See, "frmAddJobOptionGroup"},
    Step{Do::Picture, "frmAddJobOptionGroup"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmJobs"},
    Step{Do::Cell, "jgJobLots", "Fairmont 2240", "PlanName"},
    Step{Do::Press, "F4"},
    Step{Do::See, "frmAddJobTasks"},
    Step{Do::Line, "lstTasks", "1"},
    Step{Do::Picture, "frmAddJobTasks"},
    Step{Do::Toolbar, "Exit"},
    Step{Do::See, "frmJobs"},
    Step{Do::Click, "MskField(0)"},
    Step{Do::Toolbar, "Add"},
    Step{Do::See, "frmJobAdd"},
    Step{Do::Type, "26-1030"},
    Step{Do::Press, "Tab"},
    Step{Do::Type, "Willow Creek Ph 2"},
    Step{Do::Choose, "cmbContractors", "Northgate Custom Homes"},
    Step{Do::Picture, "frmJobAdd"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmJobs"},
    Step{Do::Toolbar, "Exit"},
};

constexpr std::array menus{
    Step{Do::Press, "Alt+T"},    Step{Do::Type, "o"},
    Step{Do::See, "frmOptions"}, Step{Do::Picture, "frmOptions"},
    Step{Do::Press, "Esc"},      Step{Do::See, "msgBox"},
    Step{Do::Press, "Alt+Y"},    Step{Do::See, "frmSwitchboard"},
    Step{Do::Press, "Alt+H"},    Step{Do::Type, "a"},
    Step{Do::See, "frmAbout"},   Step{Do::Picture, "frmAbout"},
    Step{Do::Press, "Esc"},
};

template <const auto& steps>
void takeAll(Driver& driver) {
    take(driver, steps);
}

} // namespace

std::span<const Chapter> pictureChapters() {
    static constexpr std::array<Chapter, 10> all{{
        {"Main window", takeAll<mainWindow>},
        {"Backups", takeAll<backups>},
        {"Time card", takeAll<timeCard>},
        {"Employees", takeAll<employees>},
        {"Master codes", takeAll<masterCodes>},
        {"Master tasks", takeAll<masterTasks>},
        {"Builders", takeAll<builders>},
        {"Jobs", takeAll<jobs>},
        {"Reports", takeReportPictures},
        {"Options and about", takeAll<menus>},
    }};
    return all;
}

} // namespace tarnwell::tour
