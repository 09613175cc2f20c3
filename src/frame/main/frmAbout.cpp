#include "frame/main/frmAbout.h"

#include "controls/Label.h"
#include "controls/ListBox.h"
#include "frame/main/Modifications.h"
#include "look/Icons.h"
#include "runtime/EventGuard.h"
#include "runtime/SystemInformation.h"
#include "runtime/Version.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace tarnwell {

namespace {

constexpr QSize designSize(760, 460);
constexpr int margin = 16, spacing = 10, iconExtent = 48;
constexpr double nameScale = 1.3;
const QString title = QStringLiteral("Tarnwell");

} // namespace

frmAbout::frmAbout() : Screen(QStringLiteral("frmAbout"), QStringLiteral("About ") + title, {}) {}

void frmAbout::Form_Load() {
    lstModifications = new ListBox(ListBox::Pitch::Fixed, canvas());
    nameControl(lstModifications, QStringLiteral("lstModifications"));
    lstModifications->setAccessibleName(QStringLiteral("Modifications"));
    cmdOK = new QPushButton(QStringLiteral("OK"), canvas());
    nameControl(cmdOK, QStringLiteral("cmdOK"));
    cmdSysInfo = new QPushButton(QStringLiteral("&System Info..."), canvas());
    nameControl(cmdSysInfo, QStringLiteral("cmdSysInfo"));
    picIcon = label({}, QStringLiteral("picIcon"));
    picIcon->setPixmap(programIcon().pixmap(QSize(iconExtent, iconExtent), devicePixelRatioF()));
    lblTitle =
        label(QStringLiteral("%1: %2: %3").arg(QLatin1String(companyName), title, QLatin1String(legalNotice)),
              QStringLiteral("lblTitle"));
    lblVersion =
        label(QStringLiteral("Version %1.%2.%3").arg(versionMajor).arg(versionMinor).arg(versionRevision),
              QStringLiteral("lblVersion"));
    lblDescription = label(QLatin1String(versionComments), QStringLiteral("lblDescription"));
    layOut();
    setDefaultButton(cmdOK);
    setCancelButton(cmdOK);
    connect(cmdOK, &QPushButton::clicked, this, guarded([this] { Unload(); }));
    connect(cmdSysInfo, &QPushButton::clicked, this, guarded([] { StartSysInfo(); }));

    lstModifications->AddItem(QStringLiteral("-- Modifications --"));
    for (const char* entry : modifications())
        lstModifications->AddItem(QLatin1String(entry));
    SetFocus(cmdOK);
}

void frmAbout::layOut() {
    setDesignSize(designSize);
    QFont strong = lblTitle->font();
    strong.setPointSizeF(strong.pointSizeF() * nameScale);
    strong.setWeight(QFont::DemiBold);
    lblTitle->setFont(strong);
    auto* form = new QGridLayout(canvas());
    form->setContentsMargins(margin, margin, margin, margin);
    form->setHorizontalSpacing(margin);
    form->setVerticalSpacing(spacing);
    form->addWidget(picIcon, 0, 0, 3, 1, Qt::AlignTop);
    form->addWidget(lblTitle, 0, 1);
    form->addWidget(lblVersion, 1, 1);
    form->addWidget(lblDescription, 2, 1);
    form->addWidget(lstModifications, 3, 0, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(spacing);
    buttons->addWidget(cmdSysInfo);
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    form->addLayout(buttons, 4, 0, 1, 2);
    form->setColumnStretch(1, 1);
    form->setRowStretch(3, 1);
    setTabOrder(cmdOK, cmdSysInfo);
    setTabOrder(cmdSysInfo, lstModifications);
}

} // namespace tarnwell
