#include "controls/Combo.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/grid/Grid.h"
#include "master/frmMasterTasks.h"

#include <QCheckBox>
#include <QVBoxLayout>

// The screen as it is seen: texts, columns, places and the order of Tab.

namespace tarnwell {

namespace {

constexpr QSize designSize(1040, 600);
constexpr int catalogueShare = 13, cascadeShare = 7;

std::vector<GridColumn> taskColumns() {
    return {{.key = "CodeKey", .caption = "CodeKey", .visible = false},
            {.key = "Name", .caption = "Name", .maxLength = 50, .tag = "Enter the name of the Master Task"},
            {.key = "MasterPrice",
             .caption = "Master Price",
             .format = ColumnFormat::Fixed,
             .width = 110,
             .tag = "Enter the Master Price for this task"},
            {.key = "CustomTask",
             .caption = "Custom",
             .edit = ColumnEdit::ValueList,
             .width = 80,
             .tag = "Is this a custom task?",
             .valueList = {{.value = "N", .text = "N"}, {.value = "Y", .text = "Y"}}},
            {.key = "ExcludeDependency",
             .caption = "Exclude",
             .format = ColumnFormat::YesNo,
             .edit = ColumnEdit::CheckBox,
             .width = 80,
             .defaultValue = 0,
             .tag = "Exclude dependency check for this task?",
             .headerToolTip = "Exclude Dependency Ties"},
            {.key = "MasterTaskKey", .caption = "MasterTaskKey", .visible = false},
            {.key = "Deleted", .caption = "Deleted", .visible = false}};
}

std::vector<GridColumn> dependencyColumns() {
    return {{.key = "CategoryDependencyKey", .caption = "CategoryDependencyKey", .visible = false},
            {.key = "CategoryKey", .caption = "CategoryKey", .visible = false},
            {.key = "DependentKey", .caption = "DependentKey", .visible = false},
            {.key = "Description", .caption = "Category Dependency"}};
}

} // namespace

void frmMasterTasks::makeControls() {
    setDesignSize(designSize);
    cmbType = new Combo(canvas());
    cmbType->setAlwaysChosen();
    cmbCascade = new Combo(canvas());
    // A typed text chooses nothing: the cascade would silently reach nothing.
    cmbCascade->setListOnly();
    chkUpdateName = new QCheckBox(canvas());
    chkUpdatePrice = new QCheckBox(canvas());
    chkUpdateExclude = new QCheckBox(canvas());
    jgMasterTasks = new Grid(canvas());
    jgMasterTasks->setColumns(taskColumns());
    jgMasterTasks->setAllowAdd(true, NewRowPosition::First);
    jgMasterTasks->setAllowEdit(true);
    // Rows are deleted by the toolbar alone, which asks first and only marks them.
    jgMasterTasks->setAllowDelete(false);
    jgDependency = new Grid(canvas());
    jgDependency->setColumns(dependencyColumns());
    jgDependency->setAllowAdd(false);
    jgDependency->setAllowEdit(false);
    jgDependency->setAllowDelete(false);
    nameControls();

    auto* form = filling<QHBoxLayout>(canvas(), formColumnGap);
    form->addLayout(catalogueColumn(), catalogueShare);
    form->addLayout(cascadeColumn(), cascadeShare);
    orderTabs();
}

void frmMasterTasks::nameControls() {
    auto* lstCustom = new ListBox(ListBox::Pitch::Proportional, canvas());
    lstCustom->hide();
    const struct {
        QWidget* control;
        const char* name;
        const char* toolTip;
    } controls[] = {
        {cmbType, "cmbType", "Select category to update"},
        {cmbCascade, "cmbCascade", "Update which tasks related to master task?"},
        {chkUpdateName, "chkUpdateName", "Check to update name field"},
        {chkUpdatePrice, "chkUpdatePrice", "Check to update price field"},
        {chkUpdateExclude, "chkUpdateExclude", "Check to update exlcude dependency field"},
        {jgMasterTasks, "jgMasterTasks", ""},
        {jgDependency, "jgDependency", "Press function to add or remove dependent categories"},
        {lstCustom, "lstCustom", ""},
    };
    for (const auto& [control, name, toolTip] : controls)
        nameControl(control, name, toolTip);
    jgMasterTasks->setAccessibleName("Master Tasks");
    jgDependency->setAccessibleName("Category Dependency");
}

QLayout* frmMasterTasks::catalogueColumn() {
    auto* column = spaced<QVBoxLayout>();
    column->addLayout(labelled("&Category:", "lblField(0)", cmbType));
    column->addWidget(jgMasterTasks, 1);
    return column;
}

QLayout* frmMasterTasks::cascadeColumn() {
    auto* column = spaced<QVBoxLayout>();
    column->addLayout(labelled("&Update To:", "lblField(1)", cmbCascade));
    column->addWidget(label("Fields:", "lblField(2)"));
    column->addLayout(fieldTicks());
    column->addSpacing(formSpacing);
    column->addWidget(jgDependency, 1);
    return column;
}

QLayout* frmMasterTasks::fieldTicks() {
    auto* row = spaced<QHBoxLayout>();
    const struct {
        const char* text;
        const char* name;
        QCheckBox* tick;
    } ticks[] = {{"Name:", "lblField(3)", chkUpdateName},
                 {"Price:", "lblField(4)", chkUpdatePrice},
                 {"Exclude:", "lblField(5)", chkUpdateExclude}};
    for (const auto& [text, name, tick] : ticks) {
        row->addSpacing(formSpacing);
        row->addWidget(label(text, name, tick));
        row->addWidget(tick);
    }
    row->addStretch(1);
    return row;
}

void frmMasterTasks::orderTabs() {
    tabThrough(
        {cmbType, jgMasterTasks, cmbCascade, chkUpdateName, chkUpdatePrice, chkUpdateExclude, jgDependency});
}

} // namespace tarnwell
