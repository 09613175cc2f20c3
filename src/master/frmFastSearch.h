#pragma once

#include "frame/Screen.h"

#include <array>
#include <vector>

class QPushButton;
class QRadioButton;

namespace tarnwell {

class ListBox;
class MaskedBox;
struct SearchKind;

/// The one lookup dialog: set `searchType`, show it modally, read `selectedKey`. It hides and stays loaded;
/// each showing starts clean.
class frmFastSearch : public Screen {
    Q_OBJECT

public:
    frmFastSearch();

    int searchType = 0; ///< One of `SearchType`; set before showing.

    /// Empty after a cancel, else the chosen record's key string (see `selectedKeyNumber`).
    [[nodiscard]] const QString& selectedKey() const { return m_selectedKey; }

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void closeRequested() override { Hide(); }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int optionLimit = 6;

    void layOut();
    void startClean();
    void showOptions(const SearchKind& kind);
    [[nodiscard]] bool takesKey(QObject* watched, const QKeyEvent& event);
    void MskField_KeyUp();
    void MskField_KeyDown(int& keyCode);
    void cmdSelect_Click();

    std::array<QRadioButton*, optionLimit> optSearch{};
    MaskedBox* m_typed = nullptr; // MskField(0)
    ListBox* lstItems = nullptr;
    QPushButton* cmdSelect = nullptr;
    QPushButton* cmdCancel = nullptr;

    int m_option = 0;
    int m_closingKey = 0; ///< Enter or Escape is down; its release closes the dialog.
    QString m_selectedKey;
    std::vector<QString> m_keys; ///< By a line's item data; element 0 stays empty.
};

} // namespace tarnwell
