#include "timecard/EmployeeControls.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "look/Theme.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

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

void EmployeeControls::build(QWidget& form) {
    make(form);
    auto* rows = filling<QVBoxLayout>(&form);
    heading = label({}, "lblEmployee");
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * headingScale);
    font.setBold(true);
    heading->setFont(font);
    rows->addWidget(heading);
    rows->addWidget(information(), 1);
    rows->addWidget(fieldLabel(12, "Notes Log:", lstErrorLog));
    rows->addWidget(lstErrorLog);
    orderTabs();
}

void EmployeeControls::make(QWidget& form) {
    for (MaskedBox*& field : MskField)
        field = new MaskedBox(0, &form);
    MskField[EmployeeField::Ssn]->setPlaceholderText("000-00-0000");
    MskField[EmployeeField::Telephone]->setPlaceholderText("(000) 000-0000");
    // A text that is not a number could not be stored.
    MaskedBox* dependants = MskField[EmployeeField::Dependants];
    dependants->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,4}"), dependants));
    cmbType = new Combo(&form);
    cmbForeman = new Combo(&form);
    cmbMaritalStatus = new Combo(&form);
    rebHired = new DateBox(DateBox::Arrows::Beside, &form);
    rebTerminated = new DateBox(DateBox::Arrows::Beside, &form);
    rchField = new NoteBox(&form);
    chkInActive = new QCheckBox(&form);
    lstErrorLog = new ListBox(ListBox::Pitch::Fixed, &form);
}

std::vector<NamedControl> EmployeeControls::named() const {
    std::vector<NamedControl> controls{
        {cmbType, "cmbType", "Enter Employee Type!"},
        {rebHired, "rebHired", "Enter hired date"},
        {rebTerminated, "rebTerminated", "Enter terminated date"},
        {rchField, "rchField", "Enter Any Information"},
        {cmbMaritalStatus, "cmbMaritalStatus", "Enter Marital Status!"},
        {cmbForeman, "cmbForeman", "Enter Employee Foreman!"},
        {chkInActive, "chkInActive", "Select to change active status of employee"},
        {lstErrorLog, "lstErrorLog", "Error Log Information"},
    };
    for (std::size_t i = 0; i < fields.size(); ++i)
        controls.push_back({MskField.at(i), QStringLiteral("MskField(%1)").arg(i), fields.at(i).toolTip});
    return controls;
}

/// Who somebody is on the left, what he is to the office on the right, and what is written about him below.
QWidget* EmployeeControls::information() {
    auto* frame = new QGroupBox("&Employee");
    frame->setObjectName("fraInformation");
    auto* grid = spaced<QGridLayout>(frame);
    const auto add = [grid](int row, int side, int labelIndex, const char* text, QWidget* control,
                            int width = 0) {
        const int column = side * 3;
        auto* words = fieldLabel(labelIndex, text, control);
        words->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        grid->addWidget(words, row, column);
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
void EmployeeControls::orderTabs() {
    std::vector<QWidget*> order(MskField.begin(), MskField.begin() + EmployeeField::Telephone);
    order.insert(order.end(),
                 {cmbType, cmbForeman, rebHired, rebTerminated, MskField[EmployeeField::Telephone],
                  MskField[EmployeeField::Dependants], cmbMaritalStatus, chkInActive, rchField, lstErrorLog});
    tabThrough(order);
}

} // namespace tarnwell
