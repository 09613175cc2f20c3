#include "frame/main/frmFirstStart.h"

#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/SingleLine.h"
#include "frame/FileDialog.h"
#include "runtime/EventGuard.h"
#include "runtime/MousePointer.h"
#include "runtime/MsgBox.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace tarnwell {

namespace {

constexpr int textWidth = 560;
constexpr int browseWidth = 40;
constexpr int indent = 24; ///< A note below the option that it belongs to.
constexpr double headingScale = 1.6;
const QString title = QStringLiteral("Tarnwell");

enum class Needs { Nothing, File, Server };
enum class Offered { Always, AfterFirst };

struct ChoiceEntry {
    const char* caption;
    const char* note; ///< The tool tip too.
    Needs needs;
    Offered offered;
    bool opensWhatIsThere; ///< It can be tried before.
};

/// In the order of `StartChoice`.
constexpr std::array<ChoiceEntry, 7> entries{{
    {"&Try again", "After the drive or the network folder has been connected", Needs::Nothing,
     Offered::AfterFirst, false},
    {"&Restore a backup", "A checked copy of it takes the place of the file that can't be opened",
     Needs::File, Offered::AfterFirst, false},
    {"&Begin with an empty database", "For your own work", Needs::File, Offered::Always, false},
    {"&Look around in a sample", "Invented builders, jobs and payments, to try everything with", Needs::File,
     Offered::Always, false},
    {"&Open a file that exists", "A Tarnwell database on this computer or on a network drive", Needs::File,
     Offered::Always, true},
    {"Open a catalog on &PostgreSQL", "A database that several computers share", Needs::Server,
     Offered::Always, true},
    {"Open a catalog on S&QL Server", "A database that several computers share", Needs::Server,
     Offered::Always, true},
}};

const ChoiceEntry& entryOf(StartChoice choice) {
    return entries.at(static_cast<std::size_t>(choice));
}

QString heading(StartReason reason) {
    return reason == StartReason::FirstStart ? QStringLiteral("Welcome to Tarnwell")
                                             : QStringLiteral("The database can't be opened");
}

QString explanation(StartReason reason) {
    if (reason == StartReason::FirstStart)
        return QStringLiteral("Builders, jobs and payments are kept in a database. Which one is it to be?");
    return QStringLiteral("The settings name this file:\n%1").arg(databaseInUse().file);
}

} // namespace

frmFirstStart::frmFirstStart() : Screen(QStringLiteral("frmFirstStart"), title, {Part::StatusBar}) {}

void frmFirstStart::Form_Load() {
    makeControls();
    layOut();
    m_trial.emplace(*this, std::vector<QWidget*>{m_page, cmdTest, cmdStart}, cmdLeave);
    setDefaultButton(cmdStart);
    setCancelButton(cmdLeave);
    for (QRadioButton* option : optChoice)
        if (option != nullptr)
            connect(option, &QRadioButton::toggled, this, guarded([this](bool isMarked) {
                        if (isMarked)
                            optChoice_Click();
                    }));
    connect(cmdFile, &QPushButton::clicked, this, guarded([this] { browse(); }));
    connect(cmdTest, &QPushButton::clicked, this, guarded([this] { cmdTest_Click(); }));
    connect(cmdStart, &QPushButton::clicked, this, guarded([this] { cmdStart_Click(); }));
    connect(cmdLeave, &QPushButton::clicked, this, guarded([this] { cmdLeave_Click(); }));

    QRadioButton* proposed = optChoice.at(static_cast<std::size_t>(proposedChoice(Reason)));
    proposed->setChecked(true);
    SetFocus(proposed);
}

void frmFirstStart::makeControls() {
    m_page = new QWidget(canvas());
    const auto field = [this](const QString& name, const QString& toolTip) {
        auto* made = new QLineEdit(m_page);
        keepOnOneLine(*made);
        nameControl(made, name, toolTip);
        return made;
    };
    const auto button = [this](const QString& caption, const QString& name, const QString& toolTip) {
        auto* made = new QPushButton(caption, canvas());
        nameControl(made, name, toolTip);
        return made;
    };
    for (std::size_t i = 0; i < optChoice.size(); ++i) {
        const ChoiceEntry& entry = entries.at(i);
        if (Reason == StartReason::FirstStart && entry.offered == Offered::AfterFirst)
            continue;
        optChoice.at(i) = new QRadioButton(QLatin1String(entry.caption), m_page);
        nameControl(optChoice.at(i), QStringLiteral("optChoice(%1)").arg(i), QLatin1String(entry.note));
        optChoice.at(i)->setAccessibleDescription(QLatin1String(entry.note));
    }
    txtFile = field(QStringLiteral("txtFile"), QStringLiteral("Enter path to database"));
    cmdFile =
        button(QStringLiteral("..."), QStringLiteral("cmdFile"), QStringLiteral("Press to browse for file"));
    cmdFile->setParent(m_page);
    cmdFile->setAccessibleName(QStringLiteral("Browse for the file"));
    txtServer = field(QStringLiteral("txtServer"), QStringLiteral("Enter the name of the server"));
    txtCatalog = field(QStringLiteral("txtCatalog"), QStringLiteral("Enter database catalog"));
    cmdTest = button(QStringLiteral("T&est"), QStringLiteral("cmdTest"),
                     QStringLiteral("Press to see whether the database can be opened"));
    cmdStart = button(QStringLiteral("&Start"), QStringLiteral("cmdStart"),
                      QStringLiteral("Press to go on with the marked choice"));
    cmdLeave = button(QStringLiteral("Leave"), QStringLiteral("cmdLeave"),
                      QStringLiteral("Press to end the program"));
}

void frmFirstStart::layOut() {
    QLabel* lblHeading = label(heading(Reason), QStringLiteral("lblHeading"));
    QFont strong = lblHeading->font();
    strong.setPointSizeF(strong.pointSizeF() * headingScale);
    strong.setWeight(QFont::DemiBold);
    lblHeading->setFont(strong);
    QLabel* lblExplanation = label(explanation(Reason), QStringLiteral("lblExplanation"));
    lblExplanation->setTextFormat(Qt::PlainText);
    lblExplanation->setWordWrap(true);
    lblExplanation->setMinimumWidth(textWidth);

    auto* rows = new QGridLayout;
    rows->setColumnMinimumWidth(0, indent);
    rows->setVerticalSpacing(2);
    addChoices(*rows);
    auto* fields = spaced<QGridLayout>();
    fields->addWidget(label(QStringLiteral("&File:"), QStringLiteral("lblFile"), txtFile), 0, 0);
    fields->addWidget(txtFile, 0, 1);
    fields->addWidget(cmdFile, 0, 2);
    fields->addWidget(label(QStringLiteral("Ser&ver:"), QStringLiteral("lblServer"), txtServer), 1, 0);
    fields->addWidget(txtServer, 1, 1);
    fields->addWidget(label(QStringLiteral("&Catalog:"), QStringLiteral("lblCatalog"), txtCatalog), 2, 0);
    fields->addWidget(txtCatalog, 2, 1);
    cmdFile->setMaximumWidth(browseWidth);

    auto* column = new QVBoxLayout(m_page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(formMargin);
    column->addWidget(lblHeading);
    column->addWidget(lblExplanation);
    column->addLayout(rows);
    column->addLayout(fields);
    auto* form = filling<QVBoxLayout>(canvas(), formMargin);
    form->addWidget(m_page);
    form->addLayout(buttonRow({cmdTest, cmdStart, cmdLeave}));

    std::vector<QWidget*> order;
    std::ranges::copy_if(optChoice, std::back_inserter(order),
                         [](const auto* option) { return option != nullptr; });
    order.insert(order.end(), {txtFile, cmdFile, txtServer, txtCatalog, cmdTest, cmdStart, cmdLeave});
    tabThrough(order);
}

void frmFirstStart::addChoices(QGridLayout& rows) {
    for (std::size_t i = 0; i < optChoice.size(); ++i) {
        if (optChoice.at(i) == nullptr)
            continue;
        const int row = rows.rowCount();
        auto* note = label(QLatin1String(entries.at(i).note), QStringLiteral("lblNote(%1)").arg(i));
        note->setForegroundRole(QPalette::PlaceholderText);
        rows.addWidget(optChoice.at(i), row, 0, 1, 2);
        rows.addWidget(note, row + 1, 1);
        rows.setRowMinimumHeight(row + 2, formSpacing / 2);
    }
}

void frmFirstStart::optChoice_Click() {
    const StartChoice choice = shownSelection().choice;
    const ChoiceEntry& entry = entryOf(choice);
    txtFile->setText(proposedFile(choice));
    for (QWidget* control : std::initializer_list<QWidget*>{txtFile, cmdFile})
        control->setEnabled(entry.needs == Needs::File);
    for (QWidget* control : std::initializer_list<QWidget*>{txtServer, txtCatalog})
        control->setEnabled(entry.needs == Needs::Server);
    cmdTest->setEnabled(entry.opensWhatIsThere);
}

void frmFirstStart::browse() {
    const StartChoice choice = shownSelection().choice;
    const bool isMade = choice == StartChoice::Empty || choice == StartChoice::Sample;
    if (const auto chosen = chooseFile(this, {.title = choice == StartChoice::Restore
                                                           ? QStringLiteral("Select Backup")
                                                           : QStringLiteral("Select Program Database"),
                                              .filter = QStringLiteral("*.mdb"),
                                              .start = txtFile->text(),
                                              .wanted = isMade ? FileWanted::New : FileWanted::Existing}))
        txtFile->setText(*chosen);
}

StartSelection frmFirstStart::shownSelection() const {
    const auto chosen = std::ranges::find_if(
        optChoice, [](const auto* option) { return option != nullptr && option->isChecked(); });
    return {.choice = static_cast<StartChoice>(chosen - optChoice.begin()),
            .file = fullPath(txtFile->text()),
            .server = txtServer->text(),
            .catalog = txtCatalog->text()};
}

void frmFirstStart::cmdTest_Click() {
    const auto result = m_trial->run(composeConnectionString(settingsFor(shownSelection())), cmdTest);
    if (result)
        MsgBox({.text = result->text,
                .title = QStringLiteral("Database Test"),
                .icon = result->isUsable ? MessageIcon::Information : MessageIcon::Exclamation});
}

bool frmFirstStart::isAccepted(const StartSelection& selection) {
    if (!entryOf(selection.choice).opensWhatIsThere)
        return true;
    const auto result = m_trial->run(composeConnectionString(settingsFor(selection)), cmdStart);
    if (!result || result->isUsable)
        return result.has_value();
    return MsgBox({.text = result->text + QStringLiteral("\n\nChoose it all the same?"),
                   .title = title,
                   .buttons = MessageButtons::YesNo,
                   .icon = MessageIcon::Exclamation,
                   .defaultButton = 2}) == Answer::Yes;
}

void frmFirstStart::cmdStart_Click() {
    const StartSelection selection = shownSelection();
    if (entryOf(selection.choice).needs == Needs::File && selection.file.isEmpty()) {
        MsgBox({.text = QStringLiteral("Enter the path of a file, or look for one with \"...\"."),
                .title = title,
                .icon = MessageIcon::Information});
        SetFocus(txtFile);
        return;
    }
    if (!isAccepted(selection))
        return;
    try {
        const HourGlass hourGlass;
        carryOut(selection);
    } catch (const RunTimeError& error) {
        MsgBox({.text = error.description() + QStringLiteral("\n\nNothing was changed. Choose another file "
                                                             "or another way to begin."),
                .title = title,
                .icon = MessageIcon::Exclamation});
        return;
    }
    Cancelled = false;
    Unload();
}

void frmFirstStart::cmdLeave_Click() {
    if (!m_trial->end())
        Unload();
}

} // namespace tarnwell
