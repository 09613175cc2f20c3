#pragma once

#include "controls/grid/DetailRows.h"
#include "data/recordset/Recordset.h"
#include "frame/Screen.h"
#include "master/PriceCascade.h"

#include <memory>

class QCheckBox;
class QLayout;

namespace tarnwell {

class Combo;
class Grid;

/// The task catalogue by category. A committed row is carried into plans, open jobs and option groups as the
/// user chose; beside it stands what the category depends on.
class frmMasterTasks : public Screen {
    Q_OBJECT

public:
    frmMasterTasks();
    ~frmMasterTasks() override;

    /// The category on screen, also while another text is typed over it; 0 when there is none.
    [[nodiscard]] qint64 categoryKey() const { return m_tasks ? m_tasks->keys().category : 0; }

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    void closeRequested() override;

private:
    // frmMasterTasksLayout.cpp
    void makeControls();
    void nameControls();
    [[nodiscard]] QLayout* catalogueColumn();
    [[nodiscard]] QLayout* cascadeColumn();
    [[nodiscard]] QLayout* fieldTicks();
    void orderTabs();

    void connectControls();
    void setHints();
    void connectGrid();
    void fillLists();
    void nameButtons();
    void SetToolbarForControl();

    void cmbType_Click();
    void showCategory(qint64 category);
    void LoadDependencies(qint64 category);
    void jgMasterTasks_AfterUpdate();
    void jgMasterTasks_RowColChange();
    [[nodiscard]] CascadeChoice cascadeChoice() const;
    void AddDependency();
    void RemoveDependency();
    void DeleteTask();

    Combo* cmbType = nullptr;
    Combo* cmbCascade = nullptr;
    QCheckBox* chkUpdateName = nullptr;
    QCheckBox* chkUpdatePrice = nullptr;
    QCheckBox* chkUpdateExclude = nullptr;
    Grid* jgMasterTasks = nullptr;
    Grid* jgDependency = nullptr;

    Recordset TaskRecordset;
    std::shared_ptr<Recordset> DependencyRecordset; ///< None until a category is shown.
    std::unique_ptr<DetailRows> m_tasks; ///< From `Form_Load` on: the tasks of the category on screen.
    ButtonMask m_toolbarMask = 0;
};

} // namespace tarnwell
