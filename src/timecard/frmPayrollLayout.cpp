#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/DayArrows.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "controls/grid/Grid.h"
#include "timecard/frmPayroll.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

// The screen as it is seen: texts, columns, places and the order of Tab.

namespace tarnwell {

namespace {

constexpr QSize designSize(1180, 640);
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

void frmPayroll::makeControls() {
    setDesignSize(designSize);
    // No limit on what is typed: a type-ahead goes on behind a number that fills its column.
    m_jobNumber = new MaskedBox(0, canvas());
    m_jobName = shownField(canvas());
    m_builder = shownField(canvas());
    jgJobLots = readOnlyGrid(canvas(), lotColumns());
    jgTasks = readOnlyGrid(canvas(), taskColumns());
    cmbType = new Combo(canvas());
    cmbType->setAlwaysChosen();
    cmbEmployees = new Combo(canvas());
    chkUseTaskEmployee = new QCheckBox(canvas());
    rebCompleted = new DateBox(DateBox::Arrows::None, canvas());
    // The date's own keys do their work; a click leaves the focus where it is.
    vscrCompleted = new DayArrows(canvas());
    vscrCompleted->setFocusPolicy(Qt::NoFocus);
    m_price = new MaskedBox(0, canvas());
    m_price->setText("0.00");
    m_price->setAlignment(Qt::AlignRight);
    rchNote = new NoteBox(canvas());
    cmdApplyTask = new QPushButton("&Apply Payment", canvas());
    lstTaskHistory = new ListBox(ListBox::Pitch::Proportional, canvas());
    lstEmployeeHistory = new ListBox(ListBox::Pitch::Proportional, canvas());
    for (ListBox* history : {lstTaskHistory, lstEmployeeHistory}) {
        history->setSpacing(1);
        history->setScrollsSideways();
    }
    nameControls();

    auto* form = filling<QVBoxLayout>(canvas());
    form->addLayout(jobRow());
    auto* columns = new QHBoxLayout;
    columns->setSpacing(formColumnGap);
    columns->addLayout(taskColumn(), leftShare);
    columns->addLayout(paymentColumn(), rightShare);
    form->addLayout(columns, 1);
    orderTabs();
}

void frmPayroll::nameControls() {
    auto* boundPrice = new MaskedBox(0, canvas());
    boundPrice->hide();
    auto* secondDateLabel = fieldLabel(3, "Completed:");
    secondDateLabel->setParent(canvas());
    secondDateLabel->hide();
    const struct {
        QWidget* control;
        const char* name;
        const char* toolTip;
    } controls[] = {
        {cmbType, "cmbType", "Select Category to Display Tasks"},
        {lstEmployeeHistory, "lstEmployeeHistory", ""},
        {chkUseTaskEmployee, "chkUseTaskEmployee",
         "Use assigned task employee instead of the selected employee"},
        {rebCompleted, "rebCompleted", "Enter date for task completed"},
        {vscrCompleted, "vscrCompleted", ""},
        {cmbEmployees, "cmbEmployees", "Select employee to add to tasks"},
        {m_jobNumber, "MskField(2)", jobToolTip},
        {m_jobName, "MskField(1)", jobToolTip},
        {m_builder, "MskField(4)", ""},
        {boundPrice, "MskField(8)", ""},
        {lstTaskHistory, "lstTaskHistory", ""},
        {m_price, "txtField(0)", "Enter price for task or Double-Click to auto add price"},
        {cmdApplyTask, "cmdApplyTask", "Press to add task entry to history"},
        {rchNote, "rchNote", "Enter any notes for task"},
        {jgTasks, "jgTasks", "Select task to pay"},
        {jgJobLots, "jgJobLots", "Select the lot/block to display tasks to pay"},
    };
    for (const auto& [control, name, toolTip] : controls)
        nameControl(control, name, toolTip);
    m_jobName->setAccessibleName("Job Name");
    jgJobLots->setAccessibleName("Lots");
    vscrCompleted->setAccessibleName("Completed: day on or back");
}

QLayout* frmPayroll::jobRow() {
    auto* row = spaced<QHBoxLayout>();
    m_jobNumber->setFixedWidth(digits(*this, jobNumberDigits));
    auto* jobLabel = fieldLabel(0, "Job:", m_jobNumber);
    jobLabel->setMinimumWidth(widestOf(*this, {"Job:", "Category:"}));
    row->addWidget(jobLabel);
    row->addWidget(m_jobNumber);
    row->addWidget(m_jobName, 1);
    row->addSpacing(formColumnGap - formSpacing);
    row->addWidget(fieldLabel(2, "Builder:", m_builder));
    row->addWidget(m_builder, 1);
    return row;
}

QLayout* frmPayroll::taskColumn() {
    auto* column = spaced<QVBoxLayout>();
    column->addWidget(jgJobLots, lotRows);
    column->addLayout(labelled("&Category:", "lblField(0)", cmbType));
    column->addWidget(fieldLabel(10, "Task:", jgTasks));
    column->addWidget(jgTasks, taskRows);
    return column;
}

QLayout* frmPayroll::paymentColumn() {
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

QWidget* frmPayroll::timecardEntry() {
    auto* frame = new QGroupBox("&Timecard Entry");
    frame->setObjectName("Frame1");
    auto* grid = spaced<QGridLayout>(frame);
    grid->setColumnMinimumWidth(0, entryLabelWidth(*this));
    grid->addWidget(fieldLabel(9, "Employee:", cmbEmployees), 0, 0);
    grid->addWidget(cmbEmployees, 0, 1, 1, 4);
    rebCompleted->setFixedWidth(digits(*this, dateDigits));
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

QWidget* frmPayroll::taskEntry() {
    auto* frame = new QGroupBox("Task &Entry");
    frame->setObjectName("fraTask");
    auto* grid = spaced<QGridLayout>(frame);
    grid->setColumnMinimumWidth(0, entryLabelWidth(*this));
    m_price->setFixedWidth(digits(*this, priceDigits));
    grid->addWidget(fieldLabel(7, "Task Price:", m_price), 0, 0);
    grid->addWidget(m_price, 0, 1);
    grid->setColumnStretch(2, 1);
    rchNote->setFixedHeight(formMargin + noteLines * fontMetrics().lineSpacing());
    grid->addWidget(fieldLabel(8, "Note:", rchNote), 1, 0, Qt::AlignTop);
    grid->addWidget(rchNote, 1, 1, 1, 2);
    grid->addWidget(cmdApplyTask, 2, 2, Qt::AlignRight);
    return frame;
}

QLayout* frmPayroll::figures() {
    auto* grid = new QGridLayout;
    grid->setContentsMargins(formMargin, 0, formMargin, 0);
    grid->setVerticalSpacing(2);
    m_totalPaid = fieldLabel(12, "0.00");
    m_difference = fieldLabel(5, "0.00");
    for (QLabel* figure : {m_totalPaid, m_difference}) {
        QFont font = figure->font();
        font.setPointSizeF(font.pointSizeF() * figureScale);
        font.setBold(true);
        figure->setFont(font);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    grid->addWidget(fieldLabel(11, "Total paid for task:"), 0, 0);
    grid->addWidget(m_totalPaid, 0, 1);
    grid->addWidget(fieldLabel(6, "Difference paid for task:"), 1, 0);
    grid->addWidget(m_difference, 1, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

/// The way of one payment, then what is only read.
void frmPayroll::orderTabs() {
    tabThrough({m_jobNumber, jgJobLots, cmbType, jgTasks, cmbEmployees, chkUseTaskEmployee, rebCompleted,
                m_price, rchNote, cmdApplyTask, lstTaskHistory, lstEmployeeHistory, m_jobName, m_builder});
}

} // namespace tarnwell
