#pragma once

#include "controls/grid/DetailRows.h"
#include "frame/Screen.h"

#include <functional>
#include <memory>

namespace tarnwell {

class Grid;
class ListBox;
class MaskedBox;
class Recordset;

/// The builder whose option groups are kept.
struct OptionGroupBuilder {
    qint64 ContractorKey = 0;
    QString name = {};
};

/// Keeps the option groups of a builder: named sets of master tasks, each with a price of its own.
class frmAddOptionGroup : public Screen {
    Q_OBJECT

public:
    frmAddOptionGroup();
    ~frmAddOptionGroup() override;

    /// Lets the user pick tasks of the catalogue for the selected group, modally.
    using PickTasks = std::function<void(frmAddOptionGroup& caller)>;
    /// Shows the screen modally. The dialog that picks tasks belongs to a module above, so its opener
    /// is passed in.
    void openFor(OptionGroupBuilder builder, PickTasks pickTasks, QWidget* owner);

    [[nodiscard]] const OptionGroupBuilder& builder() const { return m_builder; }
    /// The key of the selected group; 0 for none.
    [[nodiscard]] qint64 selectedGroup() const;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    void closeRequested() override;

private:
    void makeControls();
    void layOut();
    void connectControls();
    void setHints();

    void LoadGroups();
    void FilterGroup();
    void showGroup(qint64 group);
    void AddGroup();
    void AddGroupTask();
    void RenameGroup();
    void DeleteGroup();
    void DeleteGroupTask();
    void SetGroupToolbar();
    void lstGroups_GotFocus();
    void jgGroupOptions_GotFocus();
    void readGroupTasks();
    [[nodiscard]] bool askName(int mode, QString& name);

    MaskedBox* m_builderName = nullptr; // txtField(0)
    ListBox* lstGroups = nullptr;
    Grid* jgGroupOptions = nullptr;

    std::unique_ptr<Recordset> GroupRecordset; ///< All builders' rows; a filter shows one group's.
    int FocusArea = 0;                         ///< What Del deletes: 0 the group, 1 the task.
    ButtonMask ToolbarMask = 0;
    std::unique_ptr<DetailRows> m_tasks; ///< From `Form_Load` on; the category is the group.
    OptionGroupBuilder m_builder;
    PickTasks m_pickTasks;
};

} // namespace tarnwell
