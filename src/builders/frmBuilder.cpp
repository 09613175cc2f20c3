#include "builders/frmBuilder.h"

#include "builders/JobList.h"
#include "builders/frmAddMasterTasks.h"
#include "controls/Combo.h"
#include "controls/KeyCodes.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "data/recordset/Recordset.h"
#include "frame/DeleteQuestion.h"
#include "frame/ToolbarButtons.h"
#include "master/Categories.h"
#include "master/FastSearch.h"
#include "master/frmAddOptionGroup.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MousePointer.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"

#include <QPushButton>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Add | Button::Remove | Button::AddSame |
                                    Button::Find | Button::Group | Button::Copy | Button::Help;
constexpr ButtonMask emptyButtons = Button::Exit | Button::Add | Button::Save | Button::Find | Button::Help;
constexpr ButtonMask fieldButtons =
    Button::Exit | Button::Add | Button::Remove | Button::Save | Button::Find | Button::Group | Button::Help;
constexpr ButtonMask categoryButtons =
    Button::Exit | Button::Add | Button::Save | Button::Group | Button::Help;

/// Hands the picking dialog what the option group screen has chosen.
class GroupPicking : public PickingCaller {
public:
    explicit GroupPicking(const frmAddOptionGroup& groups) : m_groups(groups) {}
    [[nodiscard]] PickingTarget pickingTarget() const override {
        return {.ownerKey = m_groups.builder().ContractorKey, .groupKey = m_groups.selectedGroup()};
    }

private:
    const frmAddOptionGroup& m_groups;
};

void pickForGroup(frmAddOptionGroup& groups) {
    GroupPicking caller(groups);
    auto& dialog = theForm<frmAddMasterTasks>();
    dialog.Mode = PickingMode::OptionGroup;
    dialog.pickFor(caller, &groups);
}

} // namespace

frmBuilder::frmBuilder() : Screen("frmBuilder", "Builders", {Part::Toolbar, Part::StatusBar}) {}

frmBuilder::~frmBuilder() = default;

void frmBuilder::Form_Load() {
    makeControls();
    connectControls();
    cmbType->setItems(readTaskCategories(connection()));
    if (cmbType->ListCount() > 0)
        cmbType->setListIndex(0);
    DisplayRecord();
    BuildToolbar(*this, builtButtons);
    setToolbarButton("AddSame", "Task", "Add Task");
}

void frmBuilder::connectControls() {
    connectFields();
    connectGrids();
    connect(cmbType, &Combo::clicked, this, guarded([this] { cmbType_Click(); }));
    connect(cmbType, &Combo::keyUp, this,
            guarded([this](int keyCode, int shift) { ComboIncrementalSearch(*cmbType, keyCode, shift); }));
    onGotFocus(cmbType, [this] {
        EnableToolbar(*this, categoryButtons, ToolbarMask);
        showToolTip(cmbType);
    });
    connect(cmdSelectAll, &QPushButton::clicked, this, guarded([this] { selectAllJobs(!SelectAllJobs); }));
}

void frmBuilder::connectFields() {
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        onGotFocus(m_fields.at(i), [this, i] { MskField_GotFocus(static_cast<int>(i)); });
    MaskedBox* name = m_fields[0];
    onLostFocus(name, [this] { MskField_LostFocus(); });
    connect(name, &MaskedBox::keyDown, this,
            guarded([this](int& keyCode, int shift) { MskField_KeyDown(keyCode, shift); }));
    connect(name, &MaskedBox::keyUp, this, guarded([this] { MskField_KeyUp(); }));
}

void frmBuilder::Form_Unload() {
    SaveRecord();
    jgPlans->Update();
    jgTasks->Update();
    m_binding = true;
    jgTasks->bind(nullptr);
    jgPlans->bind(nullptr);
    rsPlanTasks.reset();
    rsPlans.reset();
}

/// A row that can't be written is told, and the form stays with it.
void frmBuilder::closeRequested() {
    if (writeGrids())
        Unload();
}

void frmBuilder::Toolbar1_ButtonClick(const QString& caption) {
    const struct {
        const char* caption;
        std::function<void()> routine;
    } buttons[] = {
        {"Add",
         [this] {
             if (AddRecord())
                 SetFocus(m_fields[0]);
         }},
        {"Copy", [this] { CopyPlan(); }},
        {"Del", [this] { DeleteRecord(); }},
        {"Exit",
         [this] {
             SuppressVerify = true;
             closeRequested();
         }},
        {"Find", [this] { FindRecord(); }},
        {"Group", [this] { ShowGroups(); }},
        {"Task",
         [this] {
             AddPlanTasks();
             SetTaskToolbar();
         }},
    };
    try {
        for (const auto& button : buttons)
            if (caption == QLatin1String(button.caption))
                button.routine();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

bool frmBuilder::AddRecord() {
    SuppressVerify = true;
    const bool written = writeAll();
    if (written) {
        ContractorKey = addBuilder(connection());
        DisplayRecord();
    }
    SuppressVerify = false;
    return written;
}

void frmBuilder::FindRecord() {
    SuppressVerify = true;
    auto& search = theForm<frmFastSearch>();
    search.searchType = SearchType::Builder;
    search.Show(Modality::Modal, this);
    if (search.selectedKey().isEmpty())
        return;
    const bool written = writeAll();
    if (written) {
        ContractorKey = selectedKeyNumber(search.selectedKey());
        DisplayRecord();
    }
    SuppressVerify = false;
    if (written)
        SetFocus(m_fields[0]);
}

void frmBuilder::ShowGroups() {
    SaveRecord();
    auto& groups = theForm<frmAddOptionGroup>();
    groups.openFor({.ContractorKey = ContractorKey, .name = m_fields[0]->text()}, pickForGroup, this);
}

/// The builder on the screen with its grids: none of it may be left behind, or come under the next builder.
/// False when a row was refused, and its message shown.
bool frmBuilder::writeAll() {
    SaveRecord();
    return writeGrids();
}

/// Raises what `saveBuilder` raises. A builder that no longer exists leaves the screen then: as long as it
/// stayed, neither another builder nor Exit could be reached.
void frmBuilder::SaveRecord() {
    BuilderTexts texts;
    std::transform(m_fields.begin(), m_fields.end(), texts.begin(),
                   [](const MaskedBox* field) { return field->text(); });
    try {
        saveBuilder(connection(), ContractorKey, texts);
    } catch (const RunTimeError& error) {
        if (error.is(Failure::NoCurrentRecord)) {
            letBuilderGo();
            SuppressVerify = false;
        }
        throw;
    }
}

/// No builder is on the screen from here on. What was pending in the grids has no owner any more.
void frmBuilder::letBuilderGo() {
    jgTasks->CancelUpdate();
    jgPlans->CancelUpdate();
    ToolbarMask = 0;
    ContractorKey = 0;
    DisplayRecord();
    SetFocus(m_fields[0]);
    SetFieldToolbar(0);
}

void frmBuilder::DisplayRecord() {
    const BuilderTexts texts = readBuilder(connection(), ContractorKey);
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        m_fields.at(i)->setText(texts.at(i));
    LoadJobList();
    LoadPlans();
}

void frmBuilder::LoadJobList() {
    lstJobs->setItems(readJobList(connection(), ContractorKey));
    if (ContractorKey == 0)
        return;
    selectAllJobs(true);
}

/// All of them at once: the list repaints once. The header stays as it is.
void frmBuilder::selectAllJobs(bool select) {
    SelectAllJobs = select;
    const QAbstractItemModel& lines = *lstJobs->model();
    if (lstJobs->ListCount() > 1)
        lstJobs->selectionModel()->select({lines.index(1, 0), lines.index(lstJobs->ListCount() - 1, 0)},
                                          select ? QItemSelectionModel::Select
                                                 : QItemSelectionModel::Deselect);
}

void frmBuilder::DeleteRecord() {
    const QWidget* active = ActiveControl();
    if (std::find(m_fields.begin(), m_fields.end(), active) != m_fields.end())
        DeleteBuilder();
    else if (active == jgPlans)
        DeletePlan();
    else if (active == jgTasks)
        DeletePlanTask();
}

void frmBuilder::DeleteBuilder() {
    if (!isDeleteConfirmed("Delete Current Builder?"))
        return;
    const HourGlass hourGlass;
    deleteBuilder(connection(), ContractorKey);
    letBuilderGo();
}

void frmBuilder::SetFieldToolbar(int index) {
    EnableToolbar(*this, index == 0 && ContractorKey == 0 ? emptyButtons : fieldButtons, ToolbarMask);
}

void frmBuilder::MskField_GotFocus(int index) {
    if (index > 0)
        showToolTip(m_fields.at(static_cast<std::size_t>(index)));
    else
        setStatusText(ContractorKey != 0 ? "Enter Builder Name"
                                         : "Press Add to enter new record, Find to get record");
    SetFieldToolbar(index);
}

void frmBuilder::MskField_LostFocus() {
    if (SuppressVerify || (!isBuilderNameEmpty() && ContractorKey != 0))
        return;
    m_fields[0]->clear();
    SetFocus(m_fields[0]);
}

void frmBuilder::MskField_KeyDown(int& keyCode, int shift) {
    if (ContractorKey != 0 || !isEntryKey(keyCode, shift))
        return;
    const bool add = MsgBox({.text = "Do you want to add a new builder?",
                             .title = "Add Record",
                             .buttons = MessageButtons::YesNo,
                             .icon = MessageIcon::Question,
                             .defaultButton = 2}) == Answer::Yes;
    if (!add) {
        keyCode = 0; // the field stays empty
        return;
    }
    AddRecord();
    MskField_GotFocus(0);
}

void frmBuilder::MskField_KeyUp() {
    if (ContractorKey == 0)
        m_fields[0]->clear();
}

bool frmBuilder::isBuilderNameEmpty() const {
    return m_fields[0]->text().isEmpty();
}

} // namespace tarnwell
