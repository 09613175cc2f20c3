#include "frame/main/frmOptions.h"

#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/SingleLine.h"
#include "frame/FileDialog.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr int pathWidth = 440;
constexpr int browseWidth = 40;
constexpr int indent = 24; ///< A field below the option that it belongs to.

/// One of the engines that Options offers.
struct EngineChoice {
    const char* caption;
    const char* toolTip;
    const char* serverToolTip; ///< Of the field for its server.
};

constexpr auto sqlServerToolTip = "Enter the SQL Server i.e. (\\\\MyServer)";

/// In the order of `DatabaseEngine`.
constexpr std::array<EngineChoice, 3> choices{{
    {"Access:", "Select to use Access Database", sqlServerToolTip},
    {"SQL Server:", "Select to use SQL Server", sqlServerToolTip},
    {"PostgreSQL:", "Select to use PostgreSQL", "Enter the PostgreSQL server i.e. (MyServer)"},
}};

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
    m_trial.emplace(*this, std::vector<QWidget*>{m_page, cmdOK}, cmdCancel);
    setDefaultButton(cmdOK);
    setCancelButton(cmdCancel);
    for (QRadioButton* option : optEngine)
        connect(option, &QRadioButton::clicked, this, guarded([this] { optEngine_Click(); }));
    connect(cmdReportPath, &QPushButton::clicked, this,
            guarded([this] { browse(txtReportPath, QStringLiteral("Select Report Database")); }));
    connect(cmdDataPath, &QPushButton::clicked, this,
            guarded([this] { browse(txtFilePath, QStringLiteral("Select Program Database")); }));
    connect(cmdTest, &QPushButton::clicked, this, guarded([this] { cmdTest_Click(); }));
    connect(cmdOK, &QPushButton::clicked, this, guarded([this] { cmdOK_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { cmdCancel_Click(); }));

    const DatabaseSettings settings = readDatabaseSettings();
    optEngine.at(static_cast<std::size_t>(settings.engine))->setChecked(true);
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
    const QString browseToolTip = QStringLiteral("Press to browse for file");
    txtReportPath =
        field(QStringLiteral("txtReportPath"), QStringLiteral("Enter the report generator database"));
    cmdReportPath = button(QStringLiteral("..."), QStringLiteral("cmdReportPath"), browseToolTip);
    cmdReportPath->setAccessibleName(QStringLiteral("Browse for the report database"));
    for (std::size_t i = 0; i < optEngine.size(); ++i) {
        optEngine[i] = new QRadioButton(QLatin1String(choices[i].caption), canvas());
        nameControl(optEngine[i], QStringLiteral("optEngine(%1)").arg(i), QLatin1String(choices[i].toolTip));
    }
    txtFilePath = field(QStringLiteral("txtFilePath"), QStringLiteral("Enter path to database"));
    cmdDataPath = button(QStringLiteral("..."), QStringLiteral("cmdDataPath"), browseToolTip);
    cmdDataPath->setAccessibleName(QStringLiteral("Browse for the database"));
    txtServer = field(QStringLiteral("txtServer"), QLatin1String(sqlServerToolTip));
    txtCatalog = field(QStringLiteral("txtCatalog"), QStringLiteral("Enter database catalog"));
    cmdTest = button(QStringLiteral("&Test"), QStringLiteral("cmdTest"),
                     QStringLiteral("Press to see whether the database can be opened"));
    cmdOK = button(QStringLiteral("OK"), QStringLiteral("cmdOK"), QStringLiteral("Press to save changes"));
    cmdCancel = button(QStringLiteral("Cancel"), QStringLiteral("cmdCancel"),
                       QStringLiteral("Press to cancel changes"));
}

void frmOptions::layOut() {
    m_page = new QWidget;
    auto* paths = frame(QStringLiteral("Paths"), QStringLiteral("fraOptions(0)"), m_page);
    auto* pathRow = new QGridLayout(paths);
    pathRow->addWidget(label(QStringLiteral("Report:"), QStringLiteral("lblReport"), txtReportPath), 0, 0);
    pathRow->addWidget(txtReportPath, 0, 1);
    pathRow->addWidget(cmdReportPath, 0, 2);

    auto* database = frame(QStringLiteral("Database"), QStringLiteral("fraOptions(1)"), m_page);
    auto* rows = new QGridLayout(database);
    rows->setColumnMinimumWidth(0, indent);
    rows->addWidget(optEngine[0], 0, 0, 1, 4);
    rows->addWidget(label(QStringLiteral("File Path:"), QStringLiteral("lblFilePath"), txtFilePath), 1, 1);
    rows->addWidget(txtFilePath, 1, 2);
    rows->addWidget(cmdDataPath, 1, 3);
    rows->addWidget(optEngine[1], 2, 0, 1, 4);
    rows->addWidget(optEngine[2], 3, 0, 1, 4);
    rows->addWidget(label(QStringLiteral("Server:"), QStringLiteral("lblServer"), txtServer), 4, 1);
    rows->addWidget(txtServer, 4, 2);
    rows->addWidget(label(QStringLiteral("Catalog:"), QStringLiteral("lblCatalog"), txtCatalog), 5, 1);
    rows->addWidget(txtCatalog, 5, 2);
    rows->addLayout(buttonRow({cmdTest}), 6, 0, 1, 4);
    txtFilePath->setMinimumWidth(pathWidth);
    for (QPushButton* browse : {cmdReportPath, cmdDataPath})
        browse->setMaximumWidth(browseWidth);

    auto* column = filling<QVBoxLayout>(m_page, formMargin);
    column->addWidget(paths);
    column->addWidget(database);

    auto* tabs = new QTabWidget(canvas());
    tabs->setObjectName(QStringLiteral("TabStrip1"));
    tabs->addTab(m_page, QStringLiteral("General"));
    auto* form = filling<QVBoxLayout>(canvas());
    form->addWidget(tabs);
    form->addLayout(buttonRow({cmdOK, cmdCancel}));
    tabThrough({txtReportPath, cmdReportPath, optEngine[0], txtFilePath, cmdDataPath, optEngine[1],
                optEngine[2], txtServer, txtCatalog, cmdTest, cmdOK, cmdCancel});
}

void frmOptions::optEngine_Click() {
    const DatabaseSettings chosen = shownSettings();
    txtFilePath->setEnabled(chosen.isFile());
    txtServer->setEnabled(!chosen.isFile());
    txtCatalog->setEnabled(!chosen.isFile());
    txtServer->setToolTip(QLatin1String(choices.at(static_cast<std::size_t>(chosen.engine)).serverToolTip));
}

void frmOptions::browse(QLineEdit* field, const QString& title) {
    if (const auto chosen =
            chooseFile(this, {.title = title, .filter = QStringLiteral("*.mdb"), .start = field->text()}))
        field->setText(*chosen);
}

DatabaseSettings frmOptions::shownSettings() const {
    const auto chosen = std::ranges::find_if(optEngine, &QRadioButton::isChecked);
    return {.engine = static_cast<DatabaseEngine>(chosen - optEngine.begin()),
            .file = txtFilePath->text(),
            .server = txtServer->text(),
            .catalog = txtCatalog->text(),
            .reportFile = txtReportPath->text()};
}

void frmOptions::cmdTest_Click() {
    const auto result = m_trial->run(composeConnectionString(shownSettings()), cmdTest);
    if (!result)
        return;
    MsgBox({.text = result->text,
            .title = QStringLiteral("Database Test"),
            .icon = result->isUsable ? MessageIcon::Information : MessageIcon::Exclamation});
}

void frmOptions::cmdOK_Click() {
    saveDatabaseSettings(shownSettings());
    MsgBox({.text = QStringLiteral("Values saved, restart program to use new parameters."),
            .title = QStringLiteral("Saved Changes"),
            .icon = MessageIcon::Information});
    Unload();
}

void frmOptions::cmdCancel_Click() {
    if (m_trial->end())
        return;
    const Answer answer = MsgBox({.text = QStringLiteral("Quit without saving changes?"),
                                  .title = QStringLiteral("Cancel Verification"),
                                  .buttons = MessageButtons::YesNo,
                                  .icon = MessageIcon::Question});
    if (answer == Answer::Yes)
        Unload();
}

} // namespace tarnwell
