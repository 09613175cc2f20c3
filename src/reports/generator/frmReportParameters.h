#pragma once

#include "frame/Screen.h"
#include "reports/drawing/ReportParameters.h"
#include "reports/generator/ReportGenerator.h"

#include <array>

class QCheckBox;
class QGroupBox;
class QPushButton;
class QRadioButton;

namespace tarnwell {

class Combo;
class JobList;
class MaskedBox;
class ctlAHPrintPreview;

/// Where every report is started: the choice of a report, of the settings that its definition allows, and of
/// jobs. A report goes by what the controls hold, also by those that are disabled.
class frmReportParameters : public Screen {
    Q_OBJECT

public:
    frmReportParameters();

    /// What the controls hold now.
    [[nodiscard]] ReportParameters parameters() const;

    [[nodiscard]] bool showChanges() override;

protected:
    void Form_Load() override;
    void Toolbar1_ButtonClick(const QString& caption) override;

private:
    // frmReportParametersLayout.cpp
    void makeControls();
    void nameControls();
    void layOut();
    [[nodiscard]] QGroupBox* jobs();
    [[nodiscard]] QGroupBox* reportParameters();
    void orderTabs();

    void connectControls();
    void makeMenu();

    void LoadReports();
    void LoadJobList();
    void chooseTypedReport();
    void ShowReportParameters();
    void startReport(bool preview);
    void offerLastReport();
    void chooseLastReport();
    void MskField_LostFocus(std::size_t index);
    void mnuPrintSetup_Click();
    /// Null while no report is chosen.
    [[nodiscard]] const ReportDefinitionRecord* chosenReport() const;

    ctlAHPrintPreview* ctlAHPrintPreview1 = nullptr; ///< Never drawn on here.
    Combo* cmbReports = nullptr;
    QPushButton* cmdLast = nullptr; ///< Chooses the report that was started last, with its dates.
    JobList* lstJobs = nullptr;
    QPushButton* cmdClear = nullptr;
    QPushButton* cmdSelectAll = nullptr;
    std::array<QRadioButton*, 2> optJobType{}; ///< All, Incomplete.
    Combo* cmbCategory = nullptr;
    Combo* cmbGroupBy = nullptr;
    QCheckBox* chkSummary = nullptr;
    Combo* cmbSSN = nullptr;
    std::array<QRadioButton*, 3> optDetail{}; ///< In the order of `DetailLevel`.
    Combo* cmbForeman = nullptr;
    std::array<MaskedBox*, 2> MskField{}; ///< Start and stop.

    std::vector<ReportDefinitionRecord> m_definitions;
    QString m_dateBefore; ///< What the date field held when it took the focus.
};

} // namespace tarnwell
