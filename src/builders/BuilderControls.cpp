#include "builders/BuilderControls.h"

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

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int shortFieldWidth = 110;
constexpr int frameTitleTop = 1, frameTitleGap = 3; // Above a frame's title, and between it and the edge.
constexpr int recordShare = 3, jobShare = 2;        // Of the upper half's width.
constexpr int planShare = 2, taskShare = 3;         // Of the lower half's.

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

void BuilderControls::make(QWidget& form) {
    for (std::size_t i = 0; i < MskField.size(); ++i)
        MskField.at(i) = new MaskedBox(builderFields.at(i).length, &form);
    lstJobs = new ListBox(ListBox::Pitch::Fixed, &form);
    lstJobs->setSelectionMode(QAbstractItemView::MultiSelection);
    cmdSelectAll = new QPushButton("Un/Select All", &form);
    jgPlans = editableGrid(&form, planColumns());
    cmbType = new Combo(&form);
    cmbType->setAlwaysChosen();
    jgTasks = editableGrid(&form, taskColumns());
}

std::vector<NamedControl> BuilderControls::named() const {
    std::vector<NamedControl> names;
    names.reserve(MskField.size());
    for (std::size_t i = 0; i < MskField.size(); ++i)
        names.push_back({MskField.at(i), QStringLiteral("MskField(%1)").arg(i), builderFields.at(i).toolTip});
    names.insert(names.end(), {{lstJobs, "lstJobs"},
                               {cmdSelectAll, "cmdSelectAll"},
                               {jgPlans, "jgPlans"},
                               {cmbType, "cmbType", "Select Category to display tasks"},
                               {jgTasks, "jgTasks", "Enter new tasks, Press Add to include tasks"}});
    return names;
}

BuilderTexts BuilderControls::texts() const {
    BuilderTexts texts;
    std::transform(MskField.begin(), MskField.end(), texts.begin(),
                   [](const MaskedBox* field) { return field->text(); });
    return texts;
}

void BuilderControls::show(const BuilderTexts& texts, bool hasBuilder) const {
    for (std::size_t i = 0; i < MskField.size(); ++i) {
        MskField.at(i)->setText(texts.at(i));
        MskField.at(i)->setEnabled(hasBuilder || i == 0);
    }
    lstJobs->setEnabled(hasBuilder);
    cmdSelectAll->setEnabled(hasBuilder);
}

void BuilderControls::setHints(const std::function<bool()>& hasBuilder) const {
    jgPlans->setEmptyHint([hasBuilder]() -> QString {
        return hasBuilder() ? "" : "Press Add for a new builder, or Find to choose one.";
    });
    jgTasks->setEmptyHint([hasBuilder]() -> QString {
        return hasBuilder() ? "Enter or choose a plan to see its tasks." : "Choose a builder first.";
    });
}

std::vector<qint64> BuilderControls::selectedJobs() const {
    std::vector<qint64> jobs;
    for (int i = 0; i < lstJobs->ListCount(); ++i)
        if (lstJobs->item(i)->isSelected())
            jobs.push_back(lstJobs->ItemData(i));
    return jobs;
}

void BuilderControls::selectAllJobs(bool select) const {
    const QAbstractItemModel& lines = *lstJobs->model();
    if (lstJobs->ListCount() > 1)
        lstJobs->selectionModel()->select({lines.index(1, 0), lines.index(lstJobs->ListCount() - 1, 0)},
                                          select ? QItemSelectionModel::Select
                                                 : QItemSelectionModel::Deselect);
}

/// Tab visits the record, then a plan and what is in it, then the jobs that it reaches.
void BuilderControls::build(QWidget& form) {
    make(form);
    jgTasks->setAccessibleName("Task Grid");
    auto* column = filling<QVBoxLayout>(&form, formColumnGap);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(formColumnGap);
    upper->addWidget(recordFrame(form), recordShare);
    upper->addLayout(jobColumn(), jobShare);
    column->addLayout(upper);
    column->addLayout(planHalf(), 1);
    std::vector<QWidget*> order(MskField.begin(), MskField.end());
    order.insert(order.end(), {jgPlans, cmbType, jgTasks, lstJobs, cmdSelectAll});
    tabThrough(order);
}

/// Its mnemonic leads to the name. The fields' parent is the form, where they keep their place in the order
/// of Tab.
QWidget* BuilderControls::recordFrame(QWidget& form) const {
    constexpr std::size_t state = 4, zip = 5;
    auto* frame = new QGroupBox("&Builder", &form);
    frame->setObjectName("fraInformation");
    auto* grid = spaced<QGridLayout>(frame);
    int row = 0;
    for (std::size_t i = 0; i < MskField.size(); ++i) {
        auto* caption =
            label(builderFields.at(i).label, QStringLiteral("lblField(%1)").arg(i + 1), MskField.at(i));
        if (i == zip) { // beside the state
            grid->addWidget(caption, row - 1, 3);
            grid->addWidget(MskField.at(i), row - 1, 4);
            continue;
        }
        grid->addWidget(caption, row, 0);
        grid->addWidget(MskField.at(i), row++, 1, 1, i == state ? 1 : 4);
    }
    for (const std::size_t small : {state, zip})
        MskField.at(small)->setFixedWidth(scaledToText(shortFieldWidth, *MskField.at(small)));
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(row, 1);
    return frame;
}

/// As high as the record beside it, so that the plans get the space; its title and edges are level with the
/// record's.
QLayout* BuilderControls::jobColumn() const {
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

QLayout* BuilderControls::planHalf() const {
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

} // namespace tarnwell
