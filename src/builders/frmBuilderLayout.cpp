#include "builders/frmBuilder.h"
#include "controls/Combo.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "look/Theme.h"

#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

// The screen as it is seen: texts, columns, places and the order of Tab.

namespace tarnwell {

namespace {

constexpr QSize designSize(1180, 640);
constexpr int shortFieldWidth = 110;
constexpr int frameTitleTop = 1, frameTitleGap = 3; // Above a frame's title, and between it and the edge.
constexpr int recordShare = 3, jobShare = 2;        // Of the upper half's width.
constexpr int planShare = 2, taskShare = 3;         // Of the lower half's.

constexpr auto taskToolTip = "Enter new tasks, Press Add to include tasks";

std::vector<GridColumn> planColumns() {
    return {{.key = "ContractorPlanKey", .caption = "ContractorPlanKey", .visible = false},
            {.key = "ContractorKey", .caption = "ContractorKey", .visible = false},
            {.key = "PlanName", .caption = "Plan Name", .tag = "Enter the plan name"}};
}

std::vector<GridColumn> taskColumns() {
    return {{.key = "MasterTaskKey", .caption = "MasterTaskKey", .visible = false},
            {.key = "ContractorPlanKey", .caption = "ContractorPlanKey", .visible = false},
            {.key = "CodeKey", .caption = "CodeKey", .visible = false},
            {.key = "ContractorPlanTaskKey", .caption = "ContractorPlanTaskKey", .visible = false},
            {.key = "AddonButton",
             .edit = ColumnEdit::ButtonOnly,
             .width = 28,
             .tag = "Press button to add linked tasks to plan"},
            {.key = "Name", .caption = "Name", .maxLength = 50, .tag = "Enter the name of the task"},
            {.key = "MasterPrice",
             .caption = "Price",
             .format = ColumnFormat::Fixed,
             .width = 96,
             .tag = "Enter the price for this task"},
            {.key = "ExcludeDependency",
             .caption = "Exclude",
             .format = ColumnFormat::YesNo,
             .edit = ColumnEdit::CheckBox,
             .width = 72,
             .tag = "Exclude this task from the dependency check in Time Card Entry",
             .headerToolTip = "Exclude Dependency"}};
}

} // namespace

void frmBuilder::makeControls() {
    setDesignSize(designSize);
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        m_fields.at(i) = new MaskedBox(builderFields.at(i).length, canvas());
    lstJobs = new ListBox(ListBox::Pitch::Fixed, canvas());
    lstJobs->setSelectionMode(QAbstractItemView::MultiSelection);
    cmdSelectAll = new QPushButton("Un/Select All", canvas());
    jgPlans = editableGrid(canvas(), planColumns());
    cmbType = new Combo(canvas());
    cmbType->setAlwaysChosen();
    jgTasks = editableGrid(canvas(), taskColumns());
    nameControls();

    auto* form = filling<QVBoxLayout>(canvas(), formColumnGap);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(formColumnGap);
    upper->addWidget(recordFrame(), recordShare);
    upper->addLayout(jobColumn(), jobShare);
    form->addLayout(upper);
    form->addLayout(planHalf(), 1);
    orderTabs();
}

void frmBuilder::nameControls() {
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        nameControl(m_fields.at(i), QStringLiteral("MskField(%1)").arg(i), builderFields.at(i).toolTip);
    nameControl(lstJobs, "lstJobs");
    nameControl(cmdSelectAll, "cmdSelectAll");
    nameControl(jgPlans, "jgPlans");
    nameControl(cmbType, "cmbType", "Select Category to display tasks");
    nameControl(jgTasks, "jgTasks", taskToolTip);
    jgTasks->setAccessibleName("Task Grid");
}

/// Its mnemonic leads to the name. Made on the canvas, where the fields keep their place in the order of Tab.
QWidget* frmBuilder::recordFrame() {
    constexpr std::size_t state = 4, zip = 5;
    auto* frame = new QGroupBox("&Builder", canvas());
    frame->setObjectName("fraInformation");
    auto* grid = spaced<QGridLayout>(frame);
    int row = 0;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        auto* caption =
            label(builderFields.at(i).label, QStringLiteral("lblField(%1)").arg(i + 1), m_fields.at(i));
        if (i == zip) { // beside the state
            grid->addWidget(caption, row - 1, 3);
            grid->addWidget(m_fields.at(i), row - 1, 4);
            continue;
        }
        grid->addWidget(caption, row, 0);
        grid->addWidget(m_fields.at(i), row++, 1, 1, i == state ? 1 : 4);
    }
    for (const std::size_t small : {state, zip})
        m_fields.at(small)->setFixedWidth(scaledToText(shortFieldWidth, *m_fields.at(small)));
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(row, 1);
    return frame;
}

/// As high as the record beside it, so that the plans get the room; its title and edges are level with the
/// record's.
QLayout* frmBuilder::jobColumn() {
    lstJobs->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    auto* jobs = new QVBoxLayout;
    jobs->setSpacing(0);
    jobs->addSpacing(frameTitleTop);
    jobs->addWidget(label("Jobs for Price Updates:", "lblField(8)", lstJobs));
    jobs->addSpacing(frameTitleGap);
    jobs->addWidget(lstJobs, 1);
    jobs->addSpacing(formSpacing);
    jobs->addWidget(cmdSelectAll, 0, Qt::AlignRight);
    return jobs;
}

QLayout* frmBuilder::planHalf() {
    auto* half = new QGridLayout;
    half->setHorizontalSpacing(formColumnGap);
    half->setVerticalSpacing(formSpacing);
    half->addWidget(label("Plans:", "lblField(9)", jgPlans), 0, 0);
    half->addLayout(labelled("&Category:", "lblField(0)", cmbType), 0, 1);
    half->addWidget(jgPlans, 1, 0);
    half->addWidget(jgTasks, 1, 1);
    half->setColumnStretch(0, planShare);
    half->setColumnStretch(1, taskShare);
    half->setRowStretch(1, 1);
    return half;
}

/// The record, then a plan and what is in it, then the jobs that it reaches.
void frmBuilder::orderTabs() {
    std::vector<QWidget*> order(m_fields.begin(), m_fields.end());
    order.insert(order.end(), {jgPlans, cmbType, jgTasks, lstJobs, cmdSelectAll});
    tabThrough(order);
}

} // namespace tarnwell
