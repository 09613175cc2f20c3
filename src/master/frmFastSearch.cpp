#include "master/frmFastSearch.h"

#include "controls/FormLayout.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "master/FastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr QSize designSize(680, 460);
constexpr int optionColumns = 3;

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

frmFastSearch::frmFastSearch() : Screen("frmFastSearch", "Fast Search", {}) {}

void frmFastSearch::Form_Load() {
    m_typed = new MaskedBox(0, canvas());
    nameControl(m_typed, "MskField(0)");
    lstItems = new ListBox(ListBox::Pitch::Fixed, canvas());
    nameControl(lstItems, "lstItems");
    lstItems->setAccessibleName("Found");
    cmdSelect = new QPushButton("&Select", canvas());
    nameControl(cmdSelect, "cmdSelect");
    cmdCancel = new QPushButton("&Cancel", canvas());
    nameControl(cmdCancel, "cmdCancel");
    layOut();

    for (int i = 0; i < optionLimit; ++i)
        connect(optSearch.at(i), &QRadioButton::toggled, this, guarded([this, i](bool chosen) {
                    if (chosen)
                        m_option = i;
                }));
    connect(m_typed, &MaskedBox::keyUp, this, guarded([this](int, int) { MskField_KeyUp(); }));
    connect(m_typed, &MaskedBox::keyDown, this,
            guarded([this](int& keyCode, int) { MskField_KeyDown(keyCode); }));
    connect(lstItems, &ListBox::doubleClick, this, guarded([this] { cmdSelect_Click(); }));
    connect(cmdSelect, &QPushButton::clicked, this, guarded([this] { cmdSelect_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { Hide(); }));
    for (auto* control : canvas()->findChildren<QWidget*>())
        if (control->focusPolicy() != Qt::NoFocus)
            control->installEventFilter(this);
}

void frmFastSearch::layOut() {
    setDesignSize(designSize);
    auto* form = filling<QVBoxLayout>(canvas());

    auto* fraInformation = new QGroupBox("Search By");
    fraInformation->setObjectName("fraInformation");
    auto* options = new QGridLayout(fraInformation);
    for (int i = 0; i < optionLimit; ++i) {
        optSearch.at(i) = new QRadioButton;
        nameControl(optSearch.at(i), QStringLiteral("optSearch(%1)").arg(i));
        // No kind has more than three: the others lie hidden below them.
        options->addWidget(optSearch.at(i), 0, i % optionColumns);
    }
    form->addWidget(fraInformation);

    form->addLayout(labelled("Search:", "lblFieldLabel(0)", m_typed));
    form->addWidget(lstItems, 1);

    form->addLayout(buttonRow({cmdSelect, cmdCancel}));
    tabThrough({m_typed, lstItems, cmdSelect, cmdCancel});
}

void frmFastSearch::Form_Activate() {
    try {
        startClean();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmFastSearch::startClean() {
    m_keys.assign(1, {});
    lstItems->Clear();
    m_option = 0;
    m_closingKey = 0;
    m_selectedKey.clear();
    optSearch[0]->setChecked(true);
    if (const SearchKind* kind = searchKind(searchType))
        showOptions(*kind);
    cmdSelect->setText("Select");
    m_typed->clear();
    SetFocus(m_typed);
}

void frmFastSearch::showOptions(const SearchKind& kind) {
    setWindowTitle(kind.caption);
    for (std::size_t i = 0; i < optSearch.size(); ++i) {
        const bool shown = i < kind.options.size();
        optSearch.at(i)->setText(shown ? QString(kind.options[i].caption) : QString());
        optSearch.at(i)->setVisible(shown);
    }
}

void frmFastSearch::MskField_KeyUp() {
    m_keys.assign(1, {});
    lstItems->Clear();
    const SearchKind* kind = searchKind(searchType);
    if (kind == nullptr)
        return;
    std::vector<ListItem> lines;
    for (FoundRow& row : searchRows(DataEnvironment::cnnConnection(), *kind, m_option, m_typed->text())) {
        lines.emplace_back(std::move(row.text), static_cast<qint64>(m_keys.size()));
        m_keys.push_back(std::move(row.key));
    }
    lstItems->setItems(lines);
}

void frmFastSearch::MskField_KeyDown(int& keyCode) {
    if (keyCode != KeyCode::Down || lstItems->ListCount() == 0)
        return;
    if (lstItems->ListIndex() < 0)
        lstItems->setListIndex(0);
    SetFocus(lstItems);
    keyCode = 0;
}

bool frmFastSearch::eventFilter(QObject* watched, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    return (key && takesKey(watched, *static_cast<QKeyEvent*>(event))) || Screen::eventFilter(watched, event);
}

/// Escape cancels; Enter presses the button that has the focus, else takes the chosen row or the first one.
/// Both act when the key comes up: a release that the caller's field received would be a key of its own
/// there, and look its job up again.
bool frmFastSearch::takesKey(QObject* watched, const QKeyEvent& event) {
    auto* button = qobject_cast<QPushButton*>(watched);
    if (event.key() == Qt::Key_Escape)
        button = cmdCancel;
    else if (!isEnter(event))
        return false;
    else if (button == nullptr && lstItems->ListCount() > 0)
        button = cmdSelect;
    if (button == nullptr)
        return false;
    if (event.type() == QEvent::KeyPress) {
        m_closingKey = event.key();
        if (button == cmdSelect && watched != cmdSelect && lstItems->ListIndex() < 0)
            lstItems->setListIndex(0);
    } else if (m_closingKey == event.key() && !event.isAutoRepeat()) {
        button->click();
    }
    return true;
}

void frmFastSearch::cmdSelect_Click() {
    const int row = lstItems->ListIndex();
    if (row >= 0 && !m_keys.empty())
        m_selectedKey = m_keys.at(static_cast<std::size_t>(lstItems->ItemData(row)));
    Hide();
}

} // namespace tarnwell
