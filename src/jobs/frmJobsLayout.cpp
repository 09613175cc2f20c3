#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "jobs/LotTasks.h"
#include "jobs/frmJobs.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

// The screen as it is seen: texts, columns, places and the order of Tab.

namespace tarnwell {

namespace {

constexpr QSize designSize(1180, 640);
constexpr std::array fieldLengths{30, 30, 0}; // The builder is only shown, whole.
constexpr int numberShare = 2, nameShare = 3; // Of the job's place in the frame.
constexpr int jobShare = 5, foremanShare = 3; // Of the frame's width.
constexpr int categoryRest = 3;               // What the category leaves of its line.
constexpr int lotShare = 2, taskShare = 3;    // Of the grids' height.

constexpr int treeColumn = 8, parentColumn = 5, childColumn = 6;

constexpr auto lotToolTip = "Select the lot/block to modify or enter new lot/block";
constexpr auto taskToolTip = "Enter new tasks, Press Task to include tasks";

std::vector<GridColumn> lotColumns() {
    return {{.key = "JobLotKey", .caption = "JobKey", .visible = false},
            {.key = "JobKey", .caption = "JobKey", .visible = false, .defaultValue = 0},
            {.key = "LotBlock",
             .caption = "Lot/Block",
             .maxLength = 10,
             .width = 126,
             .tag = "Enter the lot / block"},
            {.key = "PlanName",
             .caption = "Plan Name",
             .edit = ColumnEdit::TextWithButton,
             .maxLength = 20,
             .width = 180,
             .tag = "Click the down arrow to select the plan / tasks"},
            {.key = "Address", .caption = "Address", .maxLength = 50, .tag = "Enter the address"},
            {.key = "ContractorPlanKey", .visible = false, .defaultValue = 0},
            {.key = "ExcludeDependencyCheck",
             .caption = "Exclude",
             .format = ColumnFormat::YesNo,
             .edit = ColumnEdit::CheckBox,
             .width = 72,
             .defaultValue = 0,
             .tag = "Exclude this job lot from dependency check in payroll?",
             .headerToolTip = "Exclude this job lot from dependency check in payroll"}};
}

GridColumn hiddenColumn(const char* key) {
    return {.key = key, .caption = key, .visible = false};
}

GridColumn dateColumn(const char* key, const char* caption, const char* tag, const char* toolTip) {
    return {.key = key,
            .caption = caption,
            .format = ColumnFormat::GeneralDate,
            .width = 120,
            .tag = tag,
            .headerToolTip = toolTip};
}

/// The columns that are filled in for a task that stands.
std::vector<GridColumn> scheduleColumns() {
    return {{.key = "ExcludeDependency",
             .caption = "Exclude",
             .format = ColumnFormat::YesNo,
             .edit = ColumnEdit::CheckBox,
             .width = 72,
             .defaultValue = 0,
             .tag = "Exclude this task from dependency check in payroll?",
             .headerToolTip = "Exclude dependency"},
            dateColumn("StartDate", "Start", "Enter date when the task will be started (mm/dd/yy hh:mm)",
                       "Start Date"),
            dateColumn("StopDate", "Stop", "Enter date when the task will be complete (mm/dd/yy hh:mm)",
                       "Stop Date"),
            {.key = "EmployeeKey",
             .caption = "Employee",
             .edit = ColumnEdit::ValueList,
             .width = 160,
             .tag = "Enter the employee to complete task",
             .headerToolTip = "Employee"}};
}

std::vector<GridColumn> taskColumns() {
    std::vector<GridColumn> columns{
        hiddenColumn("MasterTaskKey"),
        hiddenColumn("JobLotKey"),
        hiddenColumn("CodeKey"),
        {.key = "AddOnButton",
         .edit = ColumnEdit::ButtonOnly,
         .width = 28,
         .tag = "Click to select linked or non-linked tasks"},
        hiddenColumn("ParentKey"),
        hiddenColumn("Child"),
        hiddenColumn("JobLotTaskKey"),
        {.key = "Name", .caption = "Name", .maxLength = 50, .tag = "Enter the task name"},
        {.key = "MasterPrice",
         .caption = "Price",
         .format = ColumnFormat::Fixed,
         .width = 84,
         .tag = "Enter the master price"},
        {.key = "CustomTask",
         .caption = "Custom",
         .edit = ColumnEdit::ValueList,
         .width = 74,
         .tag = "Is this a custom task?",
         .valueList = {{.value = "N", .text = "N"}, {.value = "Y", .text = "Y"}}},
        {.key = "ContractorPlanTaskKey",
         .caption = "ContractorPlanTaskKey",
         .visible = false,
         .selectable = false}};
    for (GridColumn& column : scheduleColumns())
        columns.push_back(std::move(column));
    return columns;
}

TreeLevel levelOfTask(const CellReader& cell) {
    switch (taskRole(cell(parentColumn), cell(childColumn))) {
    case TaskRole::Parent:
        return TreeLevel::Parent;
    case TaskRole::Option:
        return TreeLevel::Child;
    default:
        return TreeLevel::Plain;
    }
}

} // namespace

void frmJobs::makeControls() {
    setDesignSize(designSize);
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        m_fields.at(i) = new MaskedBox(fieldLengths.at(i), canvas());
    cmbForeman = new Combo(canvas());
    rebCompletedDate = new DateBox(DateBox::Arrows::Beside, canvas());
    jgJobLots = editableGrid(canvas(), lotColumns());
    cmbType = new Combo(canvas());
    cmbType->setAlwaysChosen();
    jgTasks = editableGrid(canvas(), taskColumns());
    jgTasks->setTree(treeColumn, levelOfTask);
    nameControls();

    auto* category = labelled("&Category:", "lblField(5)", cmbType);
    category->addStretch(categoryRest);
    auto* form = filling<QVBoxLayout>(canvas());
    form->addWidget(jobFrame());
    form->addWidget(label("Lots:", "lblField(4)", jgJobLots));
    form->addWidget(jgJobLots, lotShare);
    form->addLayout(category);
    form->addWidget(jgTasks, taskShare);
    orderTabs();
}

void frmJobs::nameControls() {
    nameControl(m_fields[0], "MskField(0)", "Press Add or Find to get job");
    nameControl(m_fields[1], "MskField(1)", "Press Add or Find to get job number");
    nameControl(m_fields[2], "MskField(2)");
    m_fields[1]->setAccessibleName("Job Name");
    nameControl(cmbForeman, "cmbForeman", "Enter Job Foreman!");
    nameControl(rebCompletedDate, "rebCompletedDate", "Enter completed date of job");
    nameControl(cmbType, "cmbType", "Select Category to Display Tasks");
    nameControl(jgJobLots, "jgJobLots", lotToolTip);
    nameControl(jgTasks, "jgTasks", taskToolTip);
    jgTasks->setAccessibleName("Tasks");
    // The builder is only shown, and as readable as the rest.
    QPalette shown = m_fields[2]->palette();
    shown.setBrush(QPalette::Disabled, QPalette::Text, shown.brush(QPalette::Active, QPalette::Text));
    m_fields[2]->setPalette(shown);
    m_fields[2]->setEnabled(false);
}

/// Its mnemonic leads to the job number. Made on the canvas, where the fields keep their place in the order
/// of Tab.
QWidget* frmJobs::jobFrame() {
    auto* frame = new QGroupBox("&Job Entry", canvas());
    frame->setObjectName("fraInformation");
    auto* job = spaced<QHBoxLayout>();
    job->addWidget(m_fields[0], numberShare);
    job->addWidget(m_fields[1], nameShare);
    auto* grid = spaced<QGridLayout>(frame);
    grid->addWidget(label("Job:", "lblField(0)", m_fields[0]), 0, 0);
    grid->addLayout(job, 0, 1);
    grid->addWidget(label("Builder:", "lblField(1)", m_fields[2]), 1, 0);
    grid->addWidget(m_fields[2], 1, 1);
    grid->setColumnMinimumWidth(2, formColumnGap);
    grid->addWidget(label("Foreman:", "lblField(2)", cmbForeman), 0, 3);
    grid->addWidget(cmbForeman, 0, 4);
    grid->addWidget(label("Completed:", "lblField(3)", rebCompletedDate), 1, 3);
    grid->addWidget(rebCompletedDate, 1, 4, Qt::AlignLeft);
    grid->setColumnStretch(1, jobShare);
    grid->setColumnStretch(4, foremanShare);
    return frame;
}

/// The job, its lots, a lot's tasks.
void frmJobs::orderTabs() {
    tabThrough({m_fields[0], m_fields[1], cmbForeman, rebCompletedDate, jgJobLots, cmbType, jgTasks});
}

} // namespace tarnwell
