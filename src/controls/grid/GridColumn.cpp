#include "controls/grid/GridColumn.h"

namespace tarnwell {

bool showsCheckBox(const GridColumn& column) {
    return column.edit == ColumnEdit::CheckBox || column.format == ColumnFormat::YesNo;
}

bool hasButton(const GridColumn& column) {
    return column.edit == ColumnEdit::ButtonOnly || column.edit == ColumnEdit::TextWithButton;
}

bool takesText(const GridColumn& column) {
    return !showsCheckBox(column) &&
           (column.edit == ColumnEdit::Text || column.edit == ColumnEdit::ValueList ||
            column.edit == ColumnEdit::TextWithButton);
}

bool isStop(const GridColumn& column) {
    return column.visible && column.selectable;
}

} // namespace tarnwell
