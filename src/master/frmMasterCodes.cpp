#include "master/frmMasterCodes.h"

#include "controls/Combo.h"
#include "controls/FormLayout.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridBinding.h"
#include "frame/ToolbarButtons.h"
#include "master/MasterCodes.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modGlobalVariables.h"

#include <QLineEdit>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Remove | Button::Help;
constexpr QSize designSize(560, 480);

enum Column { Code1 = 1, Name, Deleted, CodeKey };

std::vector<GridColumn> codeColumns() {
    return {{.key = "Code1", .caption = "Code1", .visible = false, .defaultValue = 0},
            {.key = "Description", .caption = "Name", .maxLength = 50},
            {.key = "Deleted", .caption = "Deleted", .visible = false, .defaultValue = 0},
            {.key = "CodeKey", .caption = "CodeKey", .visible = false}};
}

} // namespace

frmMasterCodes::frmMasterCodes()
    : Screen("frmMasterCodes", "Master Codes", {Part::Toolbar, Part::StatusBar}) {}

frmMasterCodes::~frmMasterCodes() = default;

void frmMasterCodes::Form_Load() {
    makeControls();
    m_codes = std::make_unique<DetailRows>(
        *jgCodes, DetailRows::Source{.chosen = [this] { return DetailKeys{.category = chosenKey(*cmbType)}; },
                                     .show = [this](const DetailKeys& keys) { showList(keys.category); },
                                     .reload = [this] { cmbType_Click(); }});
    connectControls();
    CodeRecordset.Open(allCodes, DataEnvironment::cnnConnection(), CursorType::Static, LockType::Optimistic);
    jgCodes->bind(&CodeRecordset);
    jgCodes->LoadLayout(gLayoutPath + "MasterCodes.lyt");
    for (const CodeList& list : codeLists)
        cmbType->AddItem(list.name, list.code1);
    cmbType->setListIndex(0);
    cmbType->lineEdit()->selectAll(); // The first key replaces it.
    BuildToolbar(*this, builtButtons);
    setStatusText("Select Category / Enter Master Codes");
}

void frmMasterCodes::makeControls() {
    setDesignSize(designSize);
    cmbType = new Combo(canvas());
    cmbType->setAlwaysChosen();
    nameControl(cmbType, "cmbType");
    jgCodes = new Grid(canvas());
    nameControl(jgCodes, "jgCodes");
    jgCodes->setAccessibleName("Codes");
    jgCodes->setColumns(codeColumns());
    jgCodes->setAllowAdd(true, NewRowPosition::First);
    jgCodes->setAllowEdit(true);
    // Rows are deleted by the toolbar alone, which asks first and only marks them.
    jgCodes->setAllowDelete(false);

    auto* form = filling<QVBoxLayout>(canvas());
    form->addLayout(labelled("&Category:", "lblfield", cmbType));
    form->addWidget(jgCodes, 1);
    setTabOrder(cmbType, jgCodes);
}

void frmMasterCodes::connectControls() {
    connect(cmbType, &Combo::clicked, this, guarded([this] { cmbType_Click(); }));
    connect(cmbType, &Combo::keyUp, this, guarded([this](int keyCode, int shift) {
                ComboIncrementalSearch(*cmbType, keyCode, shift, false);
            }));
    connect(jgCodes, &Grid::beforeUpdate, this, guarded([this] { jgCodes_BeforeUpdate(); }));
    onLostFocus(jgCodes, [this] { jgCodes->UpdateOrTell(); });
    // Neither control has a hint of its own: the opening one stays.
    onGotFocus(cmbType, [] {});
    onGotFocus(jgCodes, [] {});
}

/// A row that can't be written stays on screen, and with it the list that it belongs to.
void frmMasterCodes::cmbType_Click() {
    if (cmbType->ListIndex() < 0)
        return;
    try {
        if (m_codes->follow())
            return;
        restoreChoice(*cmbType, m_codes->keys().category);
        SetFocus(jgCodes);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, "frmMasterCodes.cmbType_Click");
    }
}

void frmMasterCodes::showList(qint64 list) {
    CodeRecordset.setFilter(rowsOfList(list));
    jgCodes->Rebind();
}

void frmMasterCodes::jgCodes_BeforeUpdate() {
    try {
        jgCodes->setValue(Code1, m_codes->keys().category);
    } catch (const RunTimeError& error) {
        // The text of the other routine: the two are one line in the log.
        ErrorHandler(error, "frmMasterCodes.cmbType_Click");
    }
}

void frmMasterCodes::Toolbar1_ButtonClick(const QString& caption) {
    if (caption == "Exit")
        closeRequested();
    else if (caption == "Del")
        DeleteCode();
}

void frmMasterCodes::DeleteCode() {
    // A new row gets its list when it is written: until then there is nothing to delete.
    if (ActiveControl() != jgCodes || jgCodes->value(Code1).isNoKey())
        return;
    // A pending edit waits for the answer: after No it can be continued or discarded.
    if (!confirmCodeDeletion(MsgBox, jgCodes->value(Code1), jgCodes->value(Name), m_codes->keys().category) ||
        !jgCodes->UpdateOrTell())
        return;
    jgCodes->setValue(Deleted, true);
    jgCodes->Update();
    readWithoutRow(*jgCodes, CodeRecordset);
}

/// What the database refuses is reported, and the form stays open.
void frmMasterCodes::closeRequested() {
    if (jgCodes->UpdateOrTell())
        Unload();
}

void frmMasterCodes::Form_Unload() {
    jgCodes->Update();
    jgCodes->bind(nullptr);
    if (CodeRecordset.State() == ObjectState::Open)
        CodeRecordset.Close();
}

} // namespace tarnwell
