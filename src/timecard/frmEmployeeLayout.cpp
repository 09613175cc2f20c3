#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "look/Theme.h"
#include "timecard/frmEmployee.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

// The screen as it is seen: texts, places and the order of Tab.

namespace tarnwell {

namespace {

constexpr QSize designSize(940, 640);
constexpr int sideGap = 24;
constexpr int ssnWidth = 130, telephoneWidth = 150, dateWidth = 110, smallWidth = 80;
constexpr int fieldRows = 8, informationHeight = 76;
constexpr double headingScale = 1.3;

struct Field {
    const char* toolTip;
    const char* label;
    int labelIndex;
};

/// The text fields by their index. The first one's tool tip changes with the state.
constexpr std::array<Field, EmployeeField::Count> fields{{
    {"", "SSN:", 0},
    {"Enter Last Name", "Last Name:", 2},
    {"Enter First Name", "First Name:", 3},
    {"Enter Address 1", "Address 1:", 4},
    {"Enter Address 2", "Address 2:", 5},
    {"Enter City", "City:", 6},
    {"Enter State", "State:", 7},
    {"Enter Zip Code", "Zip Code:", 8},
    {"Enter Telephone Number", "Phone:", 13},
    {"Enter Number of Dependants", "Dependants:", 14},
}};

} // namespace

void frmEmployee::makeControls() {
    setDesignSize(designSize);
    for (MaskedBox*& field : MskField)
        field = new MaskedBox(0, canvas());
    MskField[EmployeeField::Ssn]->setPlaceholderText("000-00-0000");
    MskField[EmployeeField::Telephone]->setPlaceholderText("(000) 000-0000");
    // A text that is no number could not be stored.
    MaskedBox* dependants = MskField[EmployeeField::Dependants];
    dependants->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,4}"), dependants));
    cmbType = new Combo(canvas());
    cmbForeman = new Combo(canvas());
    cmbMaritalStatus = new Combo(canvas());
    rebHired = new DateBox(DateBox::Arrows::Beside, canvas());
    rebTerminated = new DateBox(DateBox::Arrows::Beside, canvas());
    rchField = new NoteBox(canvas());
    chkInActive = new QCheckBox(canvas());
    lstErrorLog = new ListBox(ListBox::Pitch::Fixed, canvas());
    nameControls();
    layOut();
    orderTabs();
}

void frmEmployee::nameControls() {
    for (std::size_t i = 0; i < fields.size(); ++i)
        nameControl(MskField.at(i), QStringLiteral("MskField(%1)").arg(i), fields.at(i).toolTip);
    const struct {
        QWidget* control;
        const char* name;
        const char* toolTip;
    } controls[] = {
        {cmbType, "cmbType", "Enter Employee Type!"},
        {rebHired, "rebHired", "Enter hired date"},
        {rebTerminated, "rebTerminated", "Enter terminated date"},
        {rchField, "rchField", "Enter Any Information"},
        {cmbMaritalStatus, "cmbMaritalStatus", "Enter Marital Status!"},
        {cmbForeman, "cmbForeman", "Enter Employee Foreman!"},
        {chkInActive, "chkInActive", "Select to change active status of employee"},
        {lstErrorLog, "lstErrorLog", "Error Log Information"},
    };
    for (const auto& [control, name, toolTip] : controls)
        nameControl(control, name, toolTip);
}

void frmEmployee::layOut() {
    auto* form = filling<QVBoxLayout>(canvas());
    m_heading = label({}, "lblEmployee");
    QFont font = m_heading->font();
    font.setPointSizeF(font.pointSizeF() * headingScale);
    font.setBold(true);
    m_heading->setFont(font);
    form->addWidget(m_heading);
    form->addWidget(information(), 1);
    form->addWidget(fieldLabel(12, "Notes Log:", lstErrorLog));
    form->addWidget(lstErrorLog);
}

/// Who somebody is on the left, what he is to the office on the right, and what is written about him below.
QWidget* frmEmployee::information() {
    auto* frame = new QGroupBox("&Employee");
    frame->setObjectName("fraInformation");
    auto* grid = spaced<QGridLayout>(frame);
    const auto add = [grid](int row, int side, int labelIndex, const char* text, QWidget* control,
                            int width = 0) {
        const int column = side * 3;
        grid->addWidget(fieldLabel(labelIndex, text, control), row, column);
        if (width > 0)
            control->setFixedWidth(scaledToText(width, *control));
        grid->addWidget(control, row, column + 1, width > 0 ? Qt::AlignLeft : Qt::Alignment());
    };
    const auto addField = [&](int row, int side, std::size_t index, int width = 0) {
        add(row, side, fields.at(index).labelIndex, fields.at(index).label, MskField.at(index), width);
    };
    addField(0, 0, EmployeeField::Ssn, ssnWidth);
    constexpr std::size_t city = 5, state = 6, zipCode = 7;
    for (std::size_t index = EmployeeField::LastName; index <= city; ++index)
        addField(static_cast<int>(index), 0, index);
    auto* place = spaced<QHBoxLayout>();
    MskField[state]->setFixedWidth(scaledToText(smallWidth, *MskField[state]));
    place->addWidget(MskField[state]);
    place->addSpacing(formSpacing);
    place->addWidget(fieldLabel(fields[zipCode].labelIndex, fields[zipCode].label, MskField[zipCode]));
    place->addWidget(MskField[zipCode], 1);
    grid->addWidget(fieldLabel(fields[state].labelIndex, fields[state].label, MskField[state]), 6, 0);
    grid->addLayout(place, 6, 1);

    add(0, 1, 1, "Type:", cmbType);
    add(1, 1, 16, "Foreman:", cmbForeman);
    add(2, 1, 9, "Hired:", rebHired, dateWidth);
    add(3, 1, 10, "Terminated:", rebTerminated, dateWidth);
    addField(4, 1, EmployeeField::Telephone, telephoneWidth);
    addField(5, 1, EmployeeField::Dependants, smallWidth);
    add(6, 1, 15, "Marital Status:", cmbMaritalStatus, smallWidth);
    add(7, 1, 17, "Inactive:", chkInActive);

    grid->addWidget(fieldLabel(11, "Information:", rchField), fieldRows, 0, Qt::AlignTop);
    grid->addWidget(rchField, fieldRows, 1, 1, 4);
    grid->setColumnMinimumWidth(2, sideGap - formSpacing);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    for (int row = 0; row < fieldRows; ++row)
        grid->setRowMinimumHeight(row, cmbType->sizeHint().height());
    rchField->setMinimumHeight(informationHeight);
    grid->setRowStretch(fieldRows, 1);
    return frame;
}

/// Down the left column, down the right one, then what lies below.
void frmEmployee::orderTabs() {
    std::vector<QWidget*> order(MskField.begin(), MskField.begin() + EmployeeField::Telephone);
    order.insert(order.end(),
                 {cmbType, cmbForeman, rebHired, rebTerminated, MskField[EmployeeField::Telephone],
                  MskField[EmployeeField::Dependants], cmbMaritalStatus, chkInActive, rchField, lstErrorLog});
    tabThrough(order);
}

} // namespace tarnwell
