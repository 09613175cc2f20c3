#include "master/frmAddDependency.h"

#include "controls/Combo.h"
#include "controls/FormLayout.h"
#include "master/Categories.h"
#include "master/CategoryDependencies.h"
#include "master/frmMasterTasks.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr QSize designSize(380, 96);

} // namespace

frmAddDependency::frmAddDependency()
    : Screen("frmAddDependency", "Add Category Dependency", {Part::StatusBar}) {}

void frmAddDependency::Form_Load() {
    cmbType = new Combo(canvas());
    nameControl(cmbType, "cmbType");
    cmdAdd = new QPushButton("&Add", canvas());
    nameControl(cmdAdd, "cmdAdd");
    cmdCancel = new QPushButton("&Cancel", canvas());
    nameControl(cmdCancel, "cmdCancel");
    layOut();
    setDefaultButton(cmdAdd);
    setCancelButton(cmdCancel);

    connect(cmbType, &Combo::keyUp, this,
            guarded([this](int keyCode, int shift) { ComboIncrementalSearch(*cmbType, keyCode, shift); }));
    connect(cmdAdd, &QPushButton::clicked, this, guarded([this] { cmdAdd_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { Unload(); }));
    // The hint stays, whichever control has the focus.
    for (QWidget* control : std::initializer_list<QWidget*>{cmbType, cmdAdd, cmdCancel})
        onGotFocus(control, [] {});

    // A category can't depend on itself.
    cmbType->setItems(
        readTaskCategories(DataEnvironment::cnnConnection(), theForm<frmMasterTasks>().categoryKey()));
    if (cmbType->ListCount() > 0)
        cmbType->setListIndex(0);
    cmbType->lineEdit()->selectAll(); // The first key replaces it.
    setStatusText("Select category to add ");
}

void frmAddDependency::layOut() {
    setDesignSize(designSize);
    auto* form = filling<QVBoxLayout>(canvas());
    form->addLayout(labelled("&Category:", "lblField(0)", cmbType));
    form->addStretch(1);
    form->addLayout(buttonRow({cmdAdd, cmdCancel}));
    tabThrough({cmbType, cmdAdd, cmdCancel});
}

void frmAddDependency::cmdAdd_Click() {
    // Text that was typed over a choice is not a choice. With an empty list none can be made, which fails.
    if (cmbType->ListIndex() < 0 && cmbType->ListCount() > 0) {
        SetFocus(cmbType);
        return;
    }
    addDependency(DataEnvironment::cnnConnection(), theForm<frmMasterTasks>().categoryKey(),
                  cmbType->ItemData(cmbType->ListIndex()));
    Unload();
}

} // namespace tarnwell
