#include "frame/main/frmOptions.h"

#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/SingleLine.h"
#include "frame/FileDialog.h"
#include "runtime/DatabaseSettings.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr int pathWidth = 440;
constexpr int browseWidth = 40;
constexpr int indent = 24; ///< A field below the option that it belongs to.

QGroupBox* frame(const QString& caption, const QString& name, QWidget* page) {
    auto* made = new QGroupBox(caption, page);
    made->setObjectName(name);
    return made;
}

} // namespace

frmOptions::frmOptions()
    : Screen(QStringLiteral("frmOptions"), QStringLiteral("Options"), {Part::StatusBar}) {}

void frmOptions::Form_Load() {
    makeControls();
    layOut();
    setDefaultButton(cmdOK);
    setCancelButton(cmdCancel);
    for (QRadioButton* option : optEngine)
        connect(option, &QRadioButton::clicked, this, guarded([this] { optEngine_Click(); }));
    connect(cmdReportPath, &QPushButton::clicked, this,
            guarded([this] { browse(txtReportPath, QStringLiteral("Select Report Database")); }));
    connect(cmdDataPath, &QPushButton::clicked, this,
            guarded([this] { browse(txtFilePath, QStringLiteral("Select Program Database")); }));
    connect(cmdOK, &QPushButton::clicked, this, guarded([this] { cmdOK_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { cmdCancel_Click(); }));

    const DatabaseSettings settings = readDatabaseSettings();
    optEngine.at(settings.isFile ? 0 : 1)->setChecked(true);
    txtFilePath->setText(settings.file);
    txtServer->setText(settings.server);
    txtCatalog->setText(settings.catalog);
    optEngine_Click();
    txtReportPath->setText(settings.reportFile);
    SetFocus(txtReportPath);
}

void frmOptions::makeControls() {
    const auto field = [this](const QString& name, const QString& toolTip) {
        auto* made = new QLineEdit(canvas());
        keepOnOneLine(*made);
        nameControl(made, name, toolTip);
        return made;
    };
    const auto button = [this](const QString& caption, const QString& name, const QString& toolTip) {
        auto* made = new QPushButton(caption, canvas());
        nameControl(made, name, toolTip);
        return made;
    };
    const auto option = [this](const QString& caption, const QString& name, const QString& toolTip) {
        auto* made = new QRadioButton(caption, canvas());
        nameControl(made, name, toolTip);
        return made;
    };
    const QString browseToolTip = QStringLiteral("Press to browse for file");
    txtReportPath =
        field(QStringLiteral("txtReportPath"), QStringLiteral("Enter the report generator database"));
    cmdReportPath = button(QStringLiteral("..."), QStringLiteral("cmdReportPath"), browseToolTip);
    cmdReportPath->setAccessibleName(QStringLiteral("Browse for the report database"));
    optEngine = {option(QStringLiteral("Access:"), QStringLiteral("optEngine(0)"),
                        QStringLiteral("Select to use Access Database")),
                 option(QStringLiteral("SQL Server:"), QStringLiteral("optEngine(1)"),
                        QStringLiteral("Select to use SQL Server"))};
    txtFilePath = field(QStringLiteral("txtFilePath"), QStringLiteral("Enter path to database"));
    cmdDataPath = button(QStringLiteral("..."), QStringLiteral("cmdDataPath"), browseToolTip);
    cmdDataPath->setAccessibleName(QStringLiteral("Browse for the database"));
    txtServer =
        field(QStringLiteral("txtServer"), QStringLiteral("Enter the SQL Server i.e. (\\\\MyServer)"));
    txtCatalog = field(QStringLiteral("txtCatalog"), QStringLiteral("Enter database catalog"));
    cmdOK = button(QStringLiteral("OK"), QStringLiteral("cmdOK"), QStringLiteral("Press to save changes"));
    cmdCancel = button(QStringLiteral("Cancel"), QStringLiteral("cmdCancel"),
                       QStringLiteral("Press to cancel changes"));
}

void frmOptions::layOut() {
    auto* page = new QWidget;
    auto* paths = frame(QStringLiteral("Paths"), QStringLiteral("fraOptions(0)"), page);
    auto* pathRow = new QGridLayout(paths);
    pathRow->addWidget(label(QStringLiteral("Report:"), QStringLiteral("lblReport"), txtReportPath), 0, 0);
    pathRow->addWidget(txtReportPath, 0, 1);
    pathRow->addWidget(cmdReportPath, 0, 2);

    auto* database = frame(QStringLiteral("Database"), QStringLiteral("fraOptions(1)"), page);
    auto* rows = new QGridLayout(database);
    rows->setColumnMinimumWidth(0, indent);
    rows->addWidget(optEngine[0], 0, 0, 1, 4);
    rows->addWidget(label(QStringLiteral("File Path:"), QStringLiteral("lblFilePath"), txtFilePath), 1, 1);
    rows->addWidget(txtFilePath, 1, 2);
    rows->addWidget(cmdDataPath, 1, 3);
    rows->addWidget(optEngine[1], 2, 0, 1, 4);
    rows->addWidget(label(QStringLiteral("Server:"), QStringLiteral("lblServer"), txtServer), 3, 1);
    rows->addWidget(txtServer, 3, 2);
    rows->addWidget(label(QStringLiteral("Catalog:"), QStringLiteral("lblCatalog"), txtCatalog), 4, 1);
    rows->addWidget(txtCatalog, 4, 2);
    txtFilePath->setMinimumWidth(pathWidth);
    for (QPushButton* browse : {cmdReportPath, cmdDataPath})
        browse->setMaximumWidth(browseWidth);

    auto* column = filling<QVBoxLayout>(page, formMargin);
    column->addWidget(paths);
    column->addWidget(database);

    auto* tabs = new QTabWidget(canvas());
    tabs->setObjectName(QStringLiteral("TabStrip1"));
    tabs->addTab(page, QStringLiteral("General"));
    auto* form = filling<QVBoxLayout>(canvas());
    form->addWidget(tabs);
    form->addLayout(buttonRow({cmdOK, cmdCancel}));
    tabThrough({txtReportPath, cmdReportPath, optEngine[0], txtFilePath, cmdDataPath, optEngine[1], txtServer,
                txtCatalog, cmdOK, cmdCancel});
}

void frmOptions::optEngine_Click() {
    const bool isFile = optEngine[0]->isChecked();
    txtFilePath->setEnabled(isFile);
    txtServer->setEnabled(!isFile);
    txtCatalog->setEnabled(!isFile);
}

void frmOptions::browse(QLineEdit* field, const QString& title) {
    if (const auto chosen =
            chooseFile(this, {.title = title, .filter = QStringLiteral("*.mdb"), .start = field->text()}))
        field->setText(*chosen);
}

void frmOptions::cmdOK_Click() {
    saveDatabaseSettings({.isFile = optEngine[0]->isChecked(),
                          .file = txtFilePath->text(),
                          .server = txtServer->text(),
                          .catalog = txtCatalog->text(),
                          .reportFile = txtReportPath->text()});
    MsgBox({.text = QStringLiteral("Values saved, restart program to use new parameters."),
            .title = QStringLiteral("Saved Changes"),
            .icon = MessageIcon::Information});
    Unload();
}

void frmOptions::cmdCancel_Click() {
    const Answer answer = MsgBox({.text = QStringLiteral("Quit without saving changes?"),
                                  .title = QStringLiteral("Cancel Verification"),
                                  .buttons = MessageButtons::YesNo,
                                  .icon = MessageIcon::Question});
    if (answer == Answer::Yes)
        Unload();
}

} // namespace tarnwell
