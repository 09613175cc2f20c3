#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"

#include <QString>

namespace tarnwell {

/// What the type-ahead routines need of a combo box: a list, a text and a caret. Entries and carets count
/// from 0.
class SearchableList {
public:
    virtual ~SearchableList() = default;
    [[nodiscard]] virtual int ListCount() const = 0;
    [[nodiscard]] virtual QString List(int index) const = 0;
    /// Replaces the text by that entry (-1: none) and fires the click routine, also for the same index.
    virtual void setListIndex(int index) = 0;
    [[nodiscard]] virtual QString Text() const = 0;
    /// Characters in front of the caret, or of the selection's start.
    [[nodiscard]] virtual int SelStart() const = 0;
    virtual void setSelStart(int caret) = 0;
};

/// What `LookupKeyByTyping` needs of a masked field.
class TypedField {
public:
    virtual ~TypedField() = default;
    [[nodiscard]] virtual QString Text() const = 0;
    [[nodiscard]] virtual int SelStart() const = 0;
    virtual void setSelStart(int caret) = 0;
};

/// Key codes that the routines know.
namespace KeyCode {
inline constexpr int Tab = 9, Enter = 13, Shift = 16, Control = 17, Alt = 18, Escape = 27, End = 35,
                     Home = 36, Left = 37, Up = 38, Right = 39, Down = 40, Delete = 46;
}

/// Chooses the first entry at or after the text in front of the caret (the whole text when the caret is at
/// 0), and puts the caret behind what was typed; past the last entry, the last one. Returns the index chosen,
/// -1 on an early return or an empty list. Releases of Tab, Shift, Ctrl and Alt do nothing.
int ComboIncrementalSearch(SearchableList& combo, int keyCode, int shift, bool emptyCheck = true);

/// The key of the first row at or after what was typed in front of the caret, 0 for none. The first "#" of
/// `sql` is replaced by the typed text. End and Home move the caret and return 0. An error goes to
/// `ErrorHandler` and returns 0.
[[nodiscard]] qint64 LookupKeyByTyping(TypedField& field, int keyCode, const QString& sql,
                                       Connection& connection);

/// The text with blanks behind it to the width. Raises InvalidProcedureCall (5) for a longer text.
[[nodiscard]] QString PadRight(const QString& text, int width);

/// Overwrites `line` with `part` from `position` (1 is the first character) for at most `width` characters
/// (0: no limit). The line keeps its length; a position outside it changes nothing.
void overlay(QString& line, int position, const QString& part, int width = 0);

} // namespace tarnwell
