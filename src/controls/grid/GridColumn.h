#pragma once

#include "data/Value.h"

#include <QString>

#include <functional>
#include <vector>

namespace tarnwell {

enum class NewRowPosition { First, Last };

/// How a column shows its values. `Fixed`: two decimals, right-aligned. `YesNo`: a check box.
/// `GeneralDate`: "mm/dd/yy hh:mm".
enum class ColumnFormat { General, Fixed, YesNo, GeneralDate };

/// How a column is edited. `ButtonOnly` columns are not bound to a field.
enum class ColumnEdit { Text, CheckBox, ValueList, ButtonOnly, TextWithButton, None };

/// One entry of a value list: what is stored and what is shown.
struct ListEntry {
    Value value;
    QString text;

    friend bool operator==(const ListEntry&, const ListEntry&) = default;
};

/// One column of a grid, as data.
struct GridColumn {
    QString key = {}; ///< Field of the recordset; empty or unknown to it for a button column.
    QString caption = {};
    bool visible = true;
    ColumnFormat format = ColumnFormat::General;
    ColumnEdit edit = ColumnEdit::Text;
    int maxLength = 0;       ///< Characters that the editor takes; 0 for no limit.
    int width = 0;           ///< Pixels at first show; 0 lets the column share what is left.
    Value defaultValue = {}; ///< Given to a new row; Empty for none.
    QString tag = {};        ///< Status bar text when the column is entered.
    QString headerToolTip = {};
    bool selectable = true;
    std::vector<ListEntry> valueList = {};

    friend bool operator==(const GridColumn&, const GridColumn&) = default;
};

/// Where a row stands in a tree of two levels that the rows' order shows.
enum class TreeLevel { Plain, Parent, Child };
/// A cell of a row by its column's number, pending values included.
using CellReader = std::function<Value(int column)>;
/// Tells a row's level by its cells.
using TreeRule = std::function<TreeLevel(const CellReader& cell)>;

/// The cells are check boxes.
[[nodiscard]] bool showsCheckBox(const GridColumn& column);
/// The cells carry a button that raises `buttonClick`.
[[nodiscard]] bool hasButton(const GridColumn& column);
/// The cells are edited as text, typed or chosen from a list.
[[nodiscard]] bool takesText(const GridColumn& column);
/// The current cell can stand here.
[[nodiscard]] bool isStop(const GridColumn& column);

} // namespace tarnwell
