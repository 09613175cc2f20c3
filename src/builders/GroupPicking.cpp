#include "builders/GroupPicking.h"

#include "builders/frmAddMasterTasks.h"
#include "master/frmAddOptionGroup.h"

namespace tarnwell {

namespace {

/// Tells the picking dialog what the option group screen has chosen.
class GroupPicking : public PickingCaller {
public:
    explicit GroupPicking(const frmAddOptionGroup& groups) : m_groups(groups) {}
    [[nodiscard]] PickingTarget pickingTarget() const override {
        return {.ownerKey = m_groups.builder().ContractorKey, .groupKey = m_groups.selectedGroup()};
    }

private:
    const frmAddOptionGroup& m_groups;
};

} // namespace

void pickForGroup(frmAddOptionGroup& groups) {
    GroupPicking caller(groups);
    auto& dialog = theForm<frmAddMasterTasks>();
    dialog.Mode = PickingMode::OptionGroup;
    dialog.pickFor(caller, &groups);
}

} // namespace tarnwell
