#include "jobs/JobControls.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "jobs/LotTasks.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr int jobNumber = 0, jobName = 1, builder = 2; // Of the fields.
constexpr std::array fieldLengths{30, 30, 0};          // The builder is only shown, whole.
constexpr int numberShare = 2, nameShare = 3;          // Of the job's place in the frame.
constexpr int jobShare = 5, foremanShare = 3;          // Of the frame's width.
constexpr int categoryRest = 3;                        // What the category leaves of its line.
constexpr int lotShare = 2, taskShare = 3;             // Of the grids' height.

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

/// The columns that are filled in for a stored task.
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
    switch (taskRole(cell(LotTaskColumn::ParentKey), cell(LotTaskColumn::Child))) {
    case TaskRole::Parent:
        return TreeLevel::Parent;
    case TaskRole::Option:
        return TreeLevel::Child;
    default:
        return TreeLevel::Plain;
    }
}

/// The builder is only shown, and as readable as the rest.
void showOnly(MaskedBox& field) {
    QPalette shown = field.palette();
    shown.setBrush(QPalette::Disabled, QPalette::Text, shown.brush(QPalette::Active, QPalette::Text));
    field.setPalette(shown);
    field.setEnabled(false);
}

} // namespace

void JobControls::make(QWidget& form) {
    for (std::size_t i = 0; i < MskField.size(); ++i)
        MskField.at(i) = new MaskedBox(fieldLengths.at(i), &form);
    cmbForeman = new Combo(&form);
    rebCompletedDate = new DateBox(DateBox::Arrows::Beside, &form);
    jgJobLots = editableGrid(&form, lotColumns());
    cmbType = new Combo(&form);
    cmbType->setAlwaysChosen();
    jgTasks = editableGrid(&form, taskColumns());
    jgTasks->setTree(LotTaskColumn::Name, levelOfTask);
    showOnly(*MskField[builder]);
}

std::vector<NamedControl> JobControls::named() const {
    return {{MskField[jobNumber], "MskField(0)", "Press Add or Find to get job"},
            {MskField[jobName], "MskField(1)", "Press Add or Find to get job number"},
            {MskField[builder], "MskField(2)"},
            {cmbForeman, "cmbForeman", "Enter Job Foreman!"},
            {rebCompletedDate, "rebCompletedDate", "Enter completed date of job"},
            {cmbType, "cmbType", "Select Category to Display Tasks"},
            {jgJobLots, "jgJobLots", "Select the lot/block to modify or enter new lot/block"},
            {jgTasks, "jgTasks", "Enter new tasks, Press Task to include tasks"}};
}

JobRecord JobControls::record() const {
    return {.jobNumber = MskField[jobNumber]->text(),
            .name = MskField[jobName]->text(),
            .foreman = cmbForeman->Text(),
            .completedDate = rebCompletedDate->value()};
}

void JobControls::show(const ShownJob& job) const {
    MskField[jobNumber]->setText(job.record.jobNumber);
    MskField[jobName]->setText(job.record.name);
    MskField[builder]->setText(job.builderName);
    cmbForeman->setText(job.record.foreman);
    rebCompletedDate->setValue(job.record.completedDate);
}

void JobControls::clear() const {
    for (MaskedBox* field : MskField)
        field->clear();
    cmbForeman->setText({});
    rebCompletedDate->setText({});
}

void JobControls::setHints(const std::function<bool()>& hasJob) const {
    jgJobLots->setEmptyHint(
        [hasJob]() -> QString { return hasJob() ? "" : "Press Add for a new job, or Find to choose one."; });
    jgTasks->setEmptyHint([hasJob]() -> QString {
        return hasJob() ? "Enter or choose a lot above to see its tasks." : "Choose a job first.";
    });
}

void JobControls::showHasJob(bool has) const {
    for (QWidget* control : {static_cast<QWidget*>(MskField[jobName]), static_cast<QWidget*>(cmbForeman),
                             static_cast<QWidget*>(rebCompletedDate)})
        control->setEnabled(has);
}

void JobControls::build(QWidget& form) {
    make(form);
    MskField[jobName]->setAccessibleName("Job Name");
    jgTasks->setAccessibleName("Tasks");
    auto* category = labelled("&Category:", "lblField(5)", cmbType);
    category->addStretch(categoryRest);
    auto* column = filling<QVBoxLayout>(&form);
    column->addWidget(jobFrame(form));
    column->addWidget(label("Lots:", "lblField(4)", jgJobLots));
    column->addWidget(jgJobLots, lotShare);
    column->addLayout(category);
    column->addWidget(jgTasks, taskShare);
    tabThrough(
        {MskField[jobNumber], MskField[jobName], cmbForeman, rebCompletedDate, jgJobLots, cmbType, jgTasks});
}

/// Its mnemonic leads to the job number. The fields' parent is the form, where they keep their place in the
/// order of Tab.
QWidget* JobControls::jobFrame(QWidget& form) const {
    auto* frame = new QGroupBox("&Job Entry", &form);
    frame->setObjectName("fraInformation");
    auto* job = spaced<QHBoxLayout>();
    job->addWidget(MskField[jobNumber], numberShare);
    job->addWidget(MskField[jobName], nameShare);
    auto* grid = spaced<QGridLayout>(frame);
    grid->addWidget(label("Job:", "lblField(0)", MskField[jobNumber]), 0, 0);
    grid->addLayout(job, 0, 1);
    grid->addWidget(label("Builder:", "lblField(1)", MskField[builder]), 1, 0);
    grid->addWidget(MskField[builder], 1, 1);
    grid->setColumnMinimumWidth(2, formColumnGap);
    grid->addWidget(label("Foreman:", "lblField(2)", cmbForeman), 0, 3);
    grid->addWidget(cmbForeman, 0, 4);
    grid->addWidget(label("Completed:", "lblField(3)", rebCompletedDate), 1, 3);
    grid->addWidget(rebCompletedDate, 1, 4, Qt::AlignLeft);
    grid->setColumnStretch(1, jobShare);
    grid->setColumnStretch(4, foremanShare);
    return frame;
}

} // namespace tarnwell
