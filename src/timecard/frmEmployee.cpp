#include "timecard/frmEmployee.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "frame/ToolbarButtons.h"
#include "master/FastSearch.h"
#include "master/Foremen.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"
#include "timecard/EmployeeLog.h"
#include "timecard/frmEmployeeNotes.h"

#include <QCheckBox>
#include <QLabel>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Add | Button::Find | Button::Help;
constexpr std::array maritalStates{"M", "MS", "S"};

constexpr auto ssnHint = "Enter Social Security Number";
constexpr auto noRecordHint = "Press Add to enter new record, Find to get record";

constexpr auto ssnSigns = "- "; // Stand between the digits and don't count.

/// The place in `shown` that has as many digits behind it as the caret had in `typed`.
int caretIn(const QString& shown, const QString& typed, int caret) {
    const auto isDigit = [](QChar character) { return !QLatin1String(ssnSigns).contains(character); };
    auto behind = std::count_if(typed.begin() + caret, typed.end(), isDigit);
    auto place = shown.size();
    while (behind > 0 && place > 0)
        if (isDigit(shown[--place]))
            --behind;
    return static_cast<int>(place);
}

} // namespace

frmEmployee::frmEmployee() : Screen("frmEmployee", "Employee", {Part::Toolbar, Part::StatusBar}) {}

void frmEmployee::Form_Load() {
    setDesignSize(EmployeeControls::designSize);
    ui.build(*canvas());
    for (const auto& [control, name, toolTip] : ui.named())
        nameControl(control, name, toolTip);
    connectControls();
    setHints();
    LoadForemen();
    ui.cmbType->setTexts(readEmployeeTypes(connection()));
    for (const char* state : maritalStates)
        ui.cmbMaritalStatus->AddItem(state);
    EmployeeKey = 0;
    LoadRecord();
    BuildToolbar(*this, builtButtons);
}

void frmEmployee::connectControls() {
    MaskedBox* ssn = ui.MskField[EmployeeField::Ssn];
    connect(ssn, &MaskedBox::keyDown, this,
            guarded([this](int& keyCode, int shift) { MskField_KeyDown(keyCode, shift); }));
    connect(ssn, &MaskedBox::keyUp, this, guarded([this](int, int) { MskField_KeyUp(); }));
    connect(ssn, &QLineEdit::textEdited, this, guarded([this] { MskField_Change(); }));
    onLostFocus(ssn, [this] { MskField_LostFocus(); });
    MaskedBox* telephone = ui.MskField[EmployeeField::Telephone];
    onLostFocus(telephone, [telephone] { telephone->setText(telephoneText(telephone->text())); });
    for (const auto field : {EmployeeField::LastName, EmployeeField::FirstName})
        connect(ui.MskField[field], &QLineEdit::textChanged, this, guarded([this] { showHeading(); }));
    for (Combo* combo : {ui.cmbType, ui.cmbForeman, ui.cmbMaritalStatus})
        connect(combo, &Combo::keyUp, this,
                guarded([combo](int keyCode, int shift) { ComboIncrementalSearch(*combo, keyCode, shift); }));
    connect(ui.lstErrorLog, &ListBox::doubleClick, this, guarded([this] { lstErrorLog_DblClick(); }));
}

void frmEmployee::Form_Unload() {
    SaveRecord();
}

void frmEmployee::Toolbar1_ButtonClick(const QString& caption) {
    try {
        if (caption == "Add") {
            AddRecord();
        } else if (caption == "Exit") {
            const QScopedValueRollback busy(Busy, true);
            Unload();
        } else if (caption == "Find") {
            FindRecord();
        }
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmEmployee::AddRecord() {
    const QScopedValueRollback busy(Busy, true);
    SaveRecord();
    EmployeeKey = addEmployee(connection());
    LoadRecord();
    SetFocus(ui.MskField[EmployeeField::Ssn]); // Whichever field had the focus.
}

void frmEmployee::FindRecord() {
    auto& search = theForm<frmFastSearch>();
    {
        const QScopedValueRollback busy(Busy, true);
        search.searchType = SearchType::Employee;
        search.Show(Modality::Modal, this);
    }
    if (search.selectedKey().isEmpty())
        return;
    SaveRecord();
    EmployeeKey = selectedKeyNumber(search.selectedKey());
    LoadRecord();
    SetFocus(ui.MskField[EmployeeField::Ssn]);
}

void frmEmployee::SaveRecord() {
    if (EmployeeKey == 0)
        return;
    saveEmployee(connection(), EmployeeKey, record());
    if (isForeman(ui.cmbType->Text()))
        LoadForemen();
}

/// A record that can't be read leaves the screen without one: it must not be written over with nothing.
void frmEmployee::LoadRecord() {
    const qint64 key = std::exchange(EmployeeKey, 0);
    showRecord({});
    ui.lstErrorLog->Clear();
    const auto state = qScopeGuard([this] { showState(); });
    if (key != 0)
        showRecord(readEmployee(connection(), key));
    EmployeeKey = key;
    LoadEmployeeLog();
}

EmployeeRecord frmEmployee::record() const {
    EmployeeRecord record{.inactive = ui.chkInActive->isChecked(),
                          .type = ui.cmbType->Text(),
                          .foreman = ui.cmbForeman->Text(),
                          .maritalStatus = ui.cmbMaritalStatus->Text(),
                          .fields = {},
                          .information = ui.rchField->text(),
                          .dateOfHire = ui.rebHired->value(),
                          .dateOfTermination = ui.rebTerminated->value()};
    for (std::size_t i = 0; i < EmployeeField::Count; ++i)
        record.fields.at(i) = ui.MskField.at(i)->text();
    QString& telephone = record.fields[EmployeeField::Telephone];
    if (telephone == telephoneText(m_telephone))
        telephone = m_telephone;
    return record;
}

void frmEmployee::showRecord(const EmployeeRecord& record) {
    m_telephone = record.fields[EmployeeField::Telephone];
    for (std::size_t i = 0; i < EmployeeField::Count; ++i)
        ui.MskField.at(i)->setText(record.fields.at(i));
    ui.MskField[EmployeeField::Telephone]->setText(telephoneText(m_telephone));
    ui.cmbType->setText(record.type);
    ui.cmbForeman->setText(record.foreman);
    ui.cmbMaritalStatus->setText(record.maritalStatus);
    ui.rchField->setText(record.information);
    ui.rebHired->setValue(record.dateOfHire);
    ui.rebTerminated->setValue(record.dateOfTermination);
    ui.chkInActive->setChecked(record.inactive);
}

void frmEmployee::setHints() {
    ui.lstErrorLog->setEmptyHint([this]() -> QString {
        return EmployeeKey == 0 ? "Press Add for a new employee, or Find to choose one."
                                : "Nothing is noted about this employee.";
    });
}

/// Without a record only the field that leads to one can be used.
void frmEmployee::showState() {
    const bool hasRecord = EmployeeKey != 0;
    MaskedBox* ssn = ui.MskField[EmployeeField::Ssn];
    ssn->setToolTip(hasRecord ? ssnHint : noRecordHint);
    if (ActiveControl() == nullptr || ActiveControl() == ssn)
        showToolTip(ssn);
    for (MaskedBox* field : ui.MskField)
        field->setEnabled(hasRecord || field == ssn);
    for (QWidget* control : {static_cast<QWidget*>(ui.cmbType), static_cast<QWidget*>(ui.cmbForeman),
                             static_cast<QWidget*>(ui.cmbMaritalStatus), static_cast<QWidget*>(ui.rebHired),
                             static_cast<QWidget*>(ui.rebTerminated), static_cast<QWidget*>(ui.rchField),
                             static_cast<QWidget*>(ui.chkInActive), static_cast<QWidget*>(ui.lstErrorLog)})
        control->setEnabled(hasRecord);
    showHeading();
}

void frmEmployee::showHeading() {
    const QString last = ui.MskField[EmployeeField::LastName]->text();
    const QString first = ui.MskField[EmployeeField::FirstName]->text();
    const bool named = !last.isEmpty() || !first.isEmpty();
    ui.heading->setText(EmployeeKey == 0                    ? QStringLiteral("No employee is shown")
                        : !named                            ? QStringLiteral("Employee without a name")
                        : last.isEmpty() || first.isEmpty() ? last + first
                                                            : last + QStringLiteral(", ") + first);
}

void frmEmployee::LoadForemen() {
    // What the record on the screen says stays, whatever the list holds by now.
    const QString foreman = ui.cmbForeman->Text();
    ui.cmbForeman->setTexts(readForemen(connection()));
    ui.cmbForeman->setText(foreman);
}

void frmEmployee::LoadEmployeeLog() {
    ui.lstErrorLog->Clear();
    try {
        readEmployeeLog(connection(), EmployeeKey, logLine,
                        [this](const QString& text, qint64 key) { ui.lstErrorLog->AddItem(text, key); });
        if (ui.lstErrorLog->ListCount() > 0)
            ui.lstErrorLog->setListIndex(0);
    } catch (const RunTimeError&) {
        return; // The record counts; its log stands as far as it was read.
    }
}

void frmEmployee::lstErrorLog_DblClick() {
    const int line = ui.lstErrorLog->ListIndex();
    if (line < 0)
        return;
    theForm<frmEmployeeNotes>().openFor(ui.lstErrorLog->ItemData(line), this);
    LoadEmployeeLog();
}

/// The key is turned into a new record or dropped.
void frmEmployee::MskField_KeyDown(int& keyCode, int shift) {
    if (EmployeeKey != 0 || !isEntryKey(keyCode, shift))
        return;
    keyCode = 0;
    const Answer answer = MsgBox({.text = "Do you want to add a new employee?",
                                  .title = "Add Record",
                                  .buttons = MessageButtons::YesNo,
                                  .icon = MessageIcon::Question,
                                  .defaultButton = 2});
    if (answer == Answer::Yes)
        AddRecord();
}

void frmEmployee::MskField_KeyUp() {
    if (EmployeeKey == 0)
        ui.MskField[EmployeeField::Ssn]->clear();
}

void frmEmployee::MskField_Change() {
    MaskedBox* ssn = ui.MskField[EmployeeField::Ssn];
    const QString typed = ssn->text();
    const QString shown = EmployeeKey == 0 ? QString() : ssnAsTyped(typed);
    if (shown == typed)
        return;
    const int caret = caretIn(shown, typed, ssn->cursorPosition());
    ssn->setText(shown);
    ssn->setCursorPosition(caret);
}

void frmEmployee::MskField_LostFocus() {
    if (Busy)
        return;
    MaskedBox* ssn = ui.MskField[EmployeeField::Ssn];
    if (EmployeeKey == 0) {
        SetFocus(ssn);
        return;
    }
    const QString digits = StripCharacters(ssn->text(), ssnSigns);
    ssn->setText(digits);
    if (digits.size() < ssnDigits)
        MsgBox({.text = "You did not enter 9 digits.",
                .title = "Data Entry Verification",
                .icon = MessageIcon::Critical});
    const QString formatted = ssnText(digits);
    ssn->setText(formatted);
    if (isSsnTaken(connection(), EmployeeKey, formatted))
        MsgBox(
            {.text = "Employee SSN entered exists!", .title = "Entry Error", .icon = MessageIcon::Critical});
}

} // namespace tarnwell
