#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "frame/main/BackupTable.h"
#include "frame/main/frmBackups.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace tarnwell {

namespace {

constexpr QSize designSize(820, 460);
constexpr int browseWidth = 40, progressWidth = 220;

} // namespace

void frmBackups::makeControls() {
    struct Button {
        QPushButton*& button;
        const char* name;
        const char* caption;
        const char* toolTip;
    };
    const std::array buttons{
        Button{cmdFolder, "cmdFolder", "...", "Press to choose another folder for the backups"},
        Button{cmdBackUp, "cmdBackUp", "Back &Up Now",
               "Press to make a backup of the present data and check it"},
        Button{cmdRestore, "cmdRestore", "&Restore",
               "Press to put the selected backup in the place of the "
               "present data, which become one more backup"},
        Button{cmdRestoreFile, "cmdRestoreFile", "Restore &Other...",
               "Press to restore a backup that is not listed"},
        Button{cmdCheck, "cmdCheck", "&Check", "Press to look for faults in the selected line's data"},
        Button{cmdNew, "cmdNew", "&New Database...", "Press to make a new, empty database"},
        Button{cmdClose, "cmdClose", "Close", "Press to close this window"},
    };
    for (const Button& one : buttons) {
        one.button = new QPushButton(QLatin1String(one.caption), canvas());
        nameControl(one.button, QLatin1String(one.name), QLatin1String(one.toolTip));
    }
    cmdFolder->setAccessibleName(QStringLiteral("Browse for the folder of the backups"));
    lblDatabase = label({}, QStringLiteral("lblDatabase"));
    lblDatabase->setTextFormat(Qt::PlainText);
    lblDatabase->setAccessibleName(QStringLiteral("Database"));
    txtFolder = new QLineEdit(canvas());
    txtFolder->setReadOnly(true);
    nameControl(txtFolder, QStringLiteral("txtFolder"), QStringLiteral("Folder of the backups"));
    chkAtExit = new QCheckBox(
        QStringLiteral("Back up by itself the first time the program is &ended on a day"), canvas());
    nameControl(chkAtExit, QStringLiteral("chkAtExit"),
                QStringLiteral("Tick to have a backup made each day; kept are seven days and four weeks"));
    tblBackups = new BackupTable(canvas());
    nameControl(tblBackups, QStringLiteral("tblBackups"),
                QStringLiteral("The present data and their backups; Enter restores the selected one"));
    lblWork = label({}, QStringLiteral("lblWork"));
    proWork = new QProgressBar(canvas());
    proWork->setObjectName(QStringLiteral("proWork"));
    proWork->setAccessibleName(QStringLiteral("Progress"));
    proWork->setTextVisible(false);
}

void frmBackups::layOut() {
    setDesignSize(designSize);
    auto* head = spaced<QGridLayout>();
    head->addWidget(label(QStringLiteral("Database:"), QStringLiteral("lblDatabaseLabel")), 0, 0);
    head->addWidget(lblDatabase, 0, 1, 1, 2);
    head->addWidget(label(QStringLiteral("&Folder:"), QStringLiteral("lblFolder"), txtFolder), 1, 0);
    head->addWidget(txtFolder, 1, 1);
    head->addWidget(cmdFolder, 1, 2);
    head->addWidget(chkAtExit, 2, 1, 1, 2);
    head->setColumnStretch(1, 1);
    cmdFolder->setMaximumWidth(browseWidth);

    auto* progress = spaced<QHBoxLayout>();
    progress->addWidget(lblWork, 1);
    progress->addWidget(proWork);
    proWork->setFixedWidth(progressWidth);
    // It has its place while it is hidden.
    QSizePolicy always = proWork->sizePolicy();
    always.setRetainSizeWhenHidden(true);
    proWork->setSizePolicy(always);

    auto* buttons = spaced<QHBoxLayout>();
    for (QPushButton* button : {cmdBackUp, cmdRestore, cmdRestoreFile, cmdCheck, cmdNew})
        buttons->addWidget(button);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);

    auto* form = filling<QVBoxLayout>(canvas());
    form->addLayout(head);
    form->addWidget(label(QStringLiteral("&Backups:"), QStringLiteral("lblBackups"), tblBackups));
    form->addWidget(tblBackups, 1);
    form->addLayout(progress);
    form->addLayout(buttons);
    tabThrough({tblBackups, cmdBackUp, cmdRestore, cmdRestoreFile, cmdCheck, cmdNew, cmdClose, txtFolder,
                cmdFolder, chkAtExit});
}

} // namespace tarnwell
