#include "timecard/PayrollControls.h"

#include "controls/AccessibleName.h"
#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/DayArrows.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "controls/grid/Grid.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int jobNumberDigits = 19, priceDigits = 13, dateDigits = 11; // Widths, in digits of the font.
constexpr int lotRows = 2, taskRows = 3;                               // Shares of the height.
constexpr int leftShare = 11, rightShare = 10;
constexpr int noteLines = 3;
constexpr double figureScale = 1.35;

constexpr auto jobToolTip = "Press Add or Find to get job number";
constexpr auto lotExcludeToolTip = "Exclude Job Lot from dependency check in payroll";

std::vector<GridColumn> lotColumns() {
    return {{.key = "JobLotKey", .caption = "JobKey", .visible = false},
            {.key = "JobKey", .caption = "JobKey", .visible = false},
            {.key = "LotBlock", .caption = "Lot/Block", .maxLength = 10, .width = 100},
            {.key = "PlanName", .caption = "Plan Name", .maxLength = 20, .width = 210},
            {.key = "Address", .caption = "Address", .maxLength = 50},
            {.key = "ContractorPlanKey", .caption = "", .visible = false},
            {.key = "ExcludeDependencyCheck",
             .caption = "Exclude",
             .visible = false,
             .format = ColumnFormat::YesNo,
             .edit = ColumnEdit::CheckBox,
             .headerToolTip = lotExcludeToolTip}};
}

std::vector<GridColumn> taskColumns() {
    return {{.key = "MasterTaskKey", .caption = "MasterTaskKey", .visible = false},
            {.key = "JobLotKey", .caption = "JobLotKey", .visible = false},
            {.key = "CodeKey", .caption = "CodeKey", .visible = false},
            {.key = "JobLotTaskKey", .caption = "JobLotTaskKey", .visible = false},
            {.key = "Name", .caption = "Name", .maxLength = 50},
            {.key = "MasterPrice", .caption = "Price", .format = ColumnFormat::Fixed, .width = 100},
            {.key = "ExcludeDependency", .caption = "ExcludeDependency", .visible = false},
            {.key = "EmployeeKey", .caption = "EmployeeKey", .visible = false}};
}

Grid* readOnlyGrid(QWidget* parent, std::vector<GridColumn> columns) {
    auto* grid = new Grid(parent);
    grid->setColumns(std::move(columns));
    grid->setAllowEdit(false);
    grid->setAllowAdd(false);
    grid->setAllowDelete(false);
    return grid;
}

/// A field that only shows; it can be reached to read and copy a long text.
MaskedBox* shownField(QWidget* parent) {
    auto* field = new MaskedBox(0, parent);
    field->setReadOnly(true);
    QPalette flat;
    flat.setBrush(QPalette::Base, field->palette().window());
    field->setPalette(flat);
    return field;
}

/// The labels in front of fields that stand below each other are of one width.
int widestOf(const QWidget& form, std::initializer_list<const char*> labels) {
    int widest = 0;
    for (const char* text : labels)
        widest = std::max(widest, form.fontMetrics().horizontalAdvance(QLatin1String(text)));
    return widest;
}

int digits(const QWidget& form, int count) {
    constexpr int frame = 14;
    return frame + count * form.fontMetrics().horizontalAdvance(u'0');
}

int entryLabelWidth(const QWidget& form) {
    return widestOf(form, {"Employee:", "Completed:", "Task Price:", "Note:"});
}

} // namespace

void PayrollControls::build(QWidget& form) {
    make(form);
    makeUnused(form);
    auto* rows = filling<QVBoxLayout>(&form);
    rows->addLayout(jobRow());
    auto* columns = new QHBoxLayout;
    columns->setSpacing(formColumnGap);
    columns->addLayout(taskColumn(), leftShare);
    columns->addLayout(paymentColumn(), rightShare);
    rows->addLayout(columns, 1);
    orderTabs();
}

void PayrollControls::make(QWidget& form) {
    // No limit on what is typed: a type-ahead goes on behind a number that fills its column.
    jobNumber = new MaskedBox(0, &form);
    jobName = shownField(&form);
    jobName->setAccessibleName("Job Name");
    builder = shownField(&form);
    jgJobLots = readOnlyGrid(&form, lotColumns());
    jgJobLots->setAccessibleName("Lots");
    jgTasks = readOnlyGrid(&form, taskColumns());
    cmbType = new Combo(&form);
    cmbType->setAlwaysChosen();
    cmbEmployees = new Combo(&form);
    chkUseTaskEmployee = new QCheckBox(&form);
    rebCompleted = new DateBox(DateBox::Arrows::None, &form);
    // The date's own keys do their work; a click leaves the focus where it is.
    vscrCompleted = new DayArrows(&form);
    vscrCompleted->setFocusPolicy(Qt::NoFocus);
    vscrCompleted->setAccessibleName("Completed, a day on or back");
    price = new MaskedBox(0, &form);
    price->setText("0.00");
    price->setAlignment(Qt::AlignRight);
    rchNote = new NoteBox(&form);
    cmdApplyTask = new QPushButton("&Apply Payment", &form);
    lstTaskHistory = new ListBox(ListBox::Pitch::Proportional, &form);
    lstEmployeeHistory = new ListBox(ListBox::Pitch::Proportional, &form);
    for (ListBox* history : {lstTaskHistory, lstEmployeeHistory}) {
        history->setSpacing(1);
        history->setScrollsSideways();
    }
}

/// The form's design has them, and nothing shows or fills them.
void PayrollControls::makeUnused(QWidget& form) {
    m_boundPrice = new MaskedBox(0, &form);
    m_boundPrice->hide();
    auto* secondDateLabel = fieldLabel(3, "Completed:");
    secondDateLabel->setParent(&form);
    secondDateLabel->hide();
}

std::vector<NamedControl> PayrollControls::named() const {
    return {
        {cmbType, "cmbType", "Select Category to Display Tasks"},
        {lstEmployeeHistory, "lstEmployeeHistory"},
        {chkUseTaskEmployee, "chkUseTaskEmployee",
         "Use assigned task employee instead of the selected employee"},
        {rebCompleted, "rebCompleted", "Enter date for task completed"},
        {vscrCompleted, "vscrCompleted"},
        {cmbEmployees, "cmbEmployees", "Select employee to add to tasks"},
        {jobNumber, "MskField(2)", jobToolTip},
        {jobName, "MskField(1)", jobToolTip},
        {builder, "MskField(4)"},
        {m_boundPrice, "MskField(8)"},
        {lstTaskHistory, "lstTaskHistory"},
        {price, "txtField(0)", "Enter price for task or Double-Click to auto add price"},
        {cmdApplyTask, "cmdApplyTask", "Press to add task entry to history"},
        {rchNote, "rchNote", "Enter any notes for task"},
        {jgTasks, "jgTasks", "Select task to pay"},
        {jgJobLots, "jgJobLots", "Select the lot/block to display tasks to pay"},
    };
}

void PayrollControls::setHints(const PayrollState& state) const {
    jgJobLots->setEmptyHint([&state]() -> QString {
        return state.isJobEmpty() ? "Type a job number above, or press Find."
                                  : "Enter the lots of this job in Jobs.";
    });
    jgTasks->setEmptyHint([&state]() -> QString {
        return state.areLotsEmpty() ? "Choose a job to see its tasks."
                                    : "The lot has no tasks of this category: choose another one.";
    });
    lstTaskHistory->setEmptyHint([&state]() -> QString {
        return state.hasTask() ? "Nothing was paid for this task yet."
                               : "Choose a task to see what was paid for it.";
    });
    lstEmployeeHistory->setEmptyHint([this]() -> QString {
        return cmbEmployees->ListIndex() > 0 ? "Nothing is noted about this employee."
                                             : "Choose an employee to see what was noted.";
    });
}

QLayout* PayrollControls::jobRow() {
    auto* row = spaced<QHBoxLayout>();
    jobNumber->setFixedWidth(digits(*cmdApplyTask, jobNumberDigits));
    auto* jobLabel = fieldLabel(0, "Job:", jobNumber);
    jobLabel->setMinimumWidth(widestOf(*jobNumber, {"Job:", "Category:"}));
    row->addWidget(jobLabel);
    row->addWidget(jobNumber);
    row->addWidget(jobName, 1);
    row->addSpacing(formColumnGap - formSpacing);
    row->addWidget(fieldLabel(2, "Builder:", builder));
    row->addWidget(builder, 1);
    return row;
}

QLayout* PayrollControls::taskColumn() {
    auto* column = spaced<QVBoxLayout>();
    column->addWidget(jgJobLots, lotRows);
    column->addLayout(labelled("&Category:", "lblField(0)", cmbType));
    column->addWidget(fieldLabel(10, "Task:", jgTasks));
    column->addWidget(jgTasks, taskRows);
    return column;
}

QLayout* PayrollControls::paymentColumn() {
    auto* column = spaced<QVBoxLayout>();
    column->addWidget(timecardEntry());
    column->addWidget(taskEntry());
    column->addLayout(figures());
    column->addWidget(fieldLabel(4, "Task History:", lstTaskHistory));
    column->addWidget(lstTaskHistory, 3);
    column->addWidget(fieldLabel(13, "Employee History:", lstEmployeeHistory));
    column->addWidget(lstEmployeeHistory, 2);
    return column;
}

QWidget* PayrollControls::timecardEntry() {
    auto* frame = new QGroupBox("&Timecard Entry");
    frame->setObjectName("Frame1");
    auto* grid = spaced<QGridLayout>(frame);
    grid->setColumnMinimumWidth(0, entryLabelWidth(*cmdApplyTask));
    grid->addWidget(fieldLabel(9, "Employee:", cmbEmployees), 0, 0);
    grid->addWidget(cmbEmployees, 0, 1, 1, 4);
    rebCompleted->setFixedWidth(digits(*cmdApplyTask, dateDigits));
    grid->addWidget(fieldLabel(1, "Completed:", rebCompleted), 1, 0);
    auto* date = new QHBoxLayout;
    date->setSpacing(1);
    date->addWidget(rebCompleted);
    date->addWidget(vscrCompleted);
    grid->addLayout(date, 1, 1);
    grid->setColumnStretch(2, 1);
    grid->addWidget(fieldLabel(14, "Use Task Employee:", chkUseTaskEmployee), 1, 3);
    grid->addWidget(chkUseTaskEmployee, 1, 4);
    return frame;
}

QWidget* PayrollControls::taskEntry() {
    auto* frame = new QGroupBox("Task &Entry");
    frame->setObjectName("fraTask");
    auto* grid = spaced<QGridLayout>(frame);
    grid->setColumnMinimumWidth(0, entryLabelWidth(*cmdApplyTask));
    price->setFixedWidth(digits(*cmdApplyTask, priceDigits));
    grid->addWidget(fieldLabel(7, "Task Price:", price), 0, 0);
    grid->addWidget(price, 0, 1);
    grid->setColumnStretch(2, 1);
    rchNote->setFixedHeight(formMargin + noteLines * rchNote->fontMetrics().lineSpacing());
    grid->addWidget(fieldLabel(8, "Note:", rchNote), 1, 0, Qt::AlignTop);
    grid->addWidget(rchNote, 1, 1, 1, 2);
    grid->addWidget(cmdApplyTask, 2, 2, Qt::AlignRight);
    return frame;
}

QLayout* PayrollControls::figures() {
    auto* grid = new QGridLayout;
    grid->setContentsMargins(formMargin, 0, formMargin, 0);
    grid->setVerticalSpacing(2);
    totalPaid = fieldLabel(12, "0.00");
    difference = fieldLabel(5, "0.00");
    for (QLabel* figure : {totalPaid, difference}) {
        QFont font = figure->font();
        font.setPointSizeF(font.pointSizeF() * figureScale);
        font.setBold(true);
        figure->setFont(font);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    auto* paidCaption = fieldLabel(11, "Total paid for task:");
    auto* differenceCaption = fieldLabel(6, "Difference paid for task:");
    setSpokenCaption(*totalPaid, paidCaption->text());
    setSpokenCaption(*difference, differenceCaption->text());
    grid->addWidget(paidCaption, 0, 0);
    grid->addWidget(totalPaid, 0, 1);
    grid->addWidget(differenceCaption, 1, 0);
    grid->addWidget(difference, 1, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

/// The way of one payment, then what is only read.
void PayrollControls::orderTabs() {
    tabThrough({jobNumber, jgJobLots, cmbType, jgTasks, cmbEmployees, chkUseTaskEmployee, rebCompleted, price,
                rchNote, cmdApplyTask, lstTaskHistory, lstEmployeeHistory, jobName, builder});
}

} // namespace tarnwell
