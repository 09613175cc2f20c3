#pragma once

#include "controls/grid/DetailRows.h"
#include "frame/Screen.h"
#include "timecard/PaymentRules.h"
#include "timecard/PayrollControls.h"
#include "timecard/PayrollFocus.h"
#include "timecard/TaskHistory.h"

#include <functional>
#include <memory>

namespace tarnwell {

class Recordset;

/// Time card entry: a job, one of its lots, a category and a task are chosen, and an employee is paid for it.
/// Every link of that chain reloads the next. The screen writes nothing but payments.
class frmPayroll : public Screen, private PayrollState {
    Q_OBJECT

public:
    frmPayroll();
    ~frmPayroll() override;

    [[nodiscard]] bool showChanges() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;

private:
    void connectControls();
    void applyFocusRule(const PayrollFocusRule& rule);

    void LoadJob();
    /// Lists the selected task's payments anew, with its figures and what is left to pay.
    void LoadTaskHistory();
    void offerPrice(double left);
    void showFigures() const;
    void LoadEmployeeHistory();
    void FindEmployee();
    void FindJob();
    void cmbType_Click();
    void showTasks(const DetailKeys& keys);
    void jgJobLots_RowColChange();
    void jgTasks_RowColChange();
    [[nodiscard]] QString chosenTask() const;
    void lstTaskHistory_DblClick();
    void MskField_KeyUp(int keyCode);
    void vscrCompleted_Change();
    void cmdApplyTask_Click();
    void txtField_DblClick();

    [[nodiscard]] PaymentSelection selection() const;
    void showPayment(PaymentResult result);
    void trapped(const std::function<void()>& routine);
    [[nodiscard]] std::function<bool()> runAgain() const;

    [[nodiscard]] bool isJobEmpty() const override;
    [[nodiscard]] bool areLotsEmpty() const override;
    [[nodiscard]] bool areTasksOpen() const override;
    [[nodiscard]] bool areTasksEmpty() const override;
    [[nodiscard]] bool hasTask() const override;

    PayrollControls ui;
    qint64 JobKey = 0;
    std::shared_ptr<Recordset> LotRecordset;  ///< None until the first job.
    std::shared_ptr<Recordset> TaskRecordset; ///< Likewise.
    std::unique_ptr<DetailRows> m_tasks;      ///< From `Form_Load` on: by lot and category.
    ButtonMask ToolbarMask = 0;
    PaymentFigures m_figures;
    QString m_offeredPrice; ///< What is left to pay, as it was put into the price's field.
    bool m_trapped = false; ///< A payment is under way; a second press waits for nothing.
};

} // namespace tarnwell
