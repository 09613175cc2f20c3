#include "tour/Chapters.h"
#include "tour/Steps.h"

#include <array>

// A day's mixed work that leaves the database as it was, so that it can go on for ever.

namespace tarnwell::tour {

namespace {

constexpr std::array payment{
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
    Step{Do::Type, "909-06-1279"},
    Step{Do::Show, "cmbEmployees", "909-06-1279"},
    Step{Do::Press, "Alt+E, Ctrl+A"},
    Step{Do::Type, "3.21"},
    Step{Do::Press, "Alt+A"},
    Step{Do::Show, "lstTaskHistory", "3.21"},
    Step{Do::DoubleLine, "lstTaskHistory", "3.21"},
    Step{Do::See, "frmTaskNotes"},
    Step{Do::Press, "Alt+R"},
    Step{Do::See, "msgBox"},
    Step{Do::Press, "Alt+Y"},
    Step{Do::See, "frmPayroll"},
    Step{Do::Toolbar, "Exit"},
    Step{Do::See, "frmSwitchboard"},
};

constexpr std::array screens{
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
    Step{Do::Toolbar, "Exit"},
    Step{Do::Press, "Alt+B"},
    Step{Do::See, "frmBuilder"},
    Step{Do::Toolbar, "Find"},
    Step{Do::See, "frmFastSearch"},
    Step{Do::Type, "North"},
    Step{Do::DoubleLine, "lstItems", "Northgate"},
    Step{Do::See, "frmBuilder"},
    Step{Do::Cell, "jgPlans", "Birch 1620", "PlanName"},
    Step{Do::Toolbar, "Exit"},
    Step{Do::Press, "Alt+M"},
    Step{Do::See, "frmMasterTasks"},
    Step{Do::Type, "Flooring"},
    Step{Do::Show, "cmbType", "Flooring"},
    Step{Do::Cell, "jgMasterTasks", "Carpet bedrooms", "Name"},
    Step{Do::Toolbar, "Exit"},
    Step{Do::See, "frmSwitchboard"},
};

constexpr std::array preview{
    Step{Do::Press, "Alt+R"},
    Step{Do::See, "frmReportParameters"},
    Step{Do::Choose, "cmbReports", "Lot Budget"},
    Step{Do::Show, "cmbReports", "Lot Budget"},
    Step{Do::Click, "cmdSelectAll"},
    Step{Do::Toolbar, "Prevw"},
    Step{Do::See, "preview"},
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmReportParameters"},
    Step{Do::Toolbar, "Exit"},
    Step{Do::See, "frmSwitchboard"},
};

template <const auto& steps>
void takeAll(Driver& driver) {
    take(driver, steps);
}

} // namespace

std::span<const Chapter> soakChapters() {
    static constexpr std::array<Chapter, 3> all{{
        {"A payment made and taken back", takeAll<payment>},
        {"Jobs, builders and the catalogue, looked at", takeAll<screens>},
        {"A report in the preview", takeAll<preview>},
    }};
    return all;
}

} // namespace tarnwell::tour
