#include "data/RunTimeError.h"
#include "runtime/DiskFile.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"

#include <QStringList>

#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>

namespace tarnwell {

namespace {

/// A combo box without a window.
class ListStandIn : public SearchableList {
public:
    explicit ListStandIn(QStringList entries) : m_entries(std::move(entries)) {}

    [[nodiscard]] int ListCount() const override { return static_cast<int>(m_entries.size()); }
    [[nodiscard]] QString List(int index) const override { return m_entries[index]; }
    void setListIndex(int index) override {
        chosen = index;
        text = index < 0 ? QString() : m_entries[index];
    }
    [[nodiscard]] QString Text() const override { return text; }
    [[nodiscard]] int SelStart() const override { return caret; }
    void setSelStart(int position) override { caret = position; }

    int type(const QString& typed, int at, int keyCode = 'A') {
        text = typed;
        caret = at;
        chosen = unchosen;
        return ComboIncrementalSearch(*this, keyCode, 0);
    }

    static constexpr int unchosen = -2;
    QString text;
    int caret = 0;
    int chosen = unchosen;

private:
    QStringList m_entries;
};

const QStringList trades{"DRYWALL", "Framing", "Paint, inside", "Paint, outside", "Émail"};

TEST(ComboSearch, FindsTheFirstEntryAtOrBehindWhatWasTyped) {
    const struct {
        const char* typed;
        int caret;
        int index;
    } cases[] = {
        {"d", 1, 0},   {"F", 1, 1},     {"e", 1, 1},       {"paint, o", 8, 3},    {"paintz", 6, 4},
        {"zzz", 3, 4}, {"paint", 0, 2}, {"framing", 2, 1}, {"framing it", 10, 2}, {"é", 1, 4},
    };
    ListStandIn combo(trades);
    for (const auto& each : cases) {
        const QString typed = each.typed;
        EXPECT_EQ(combo.type(typed, each.caret), each.index) << each.typed;
        EXPECT_EQ(combo.chosen, each.index);
        EXPECT_EQ(combo.caret, each.caret > 0 ? each.caret : typed.size()) << "caret behind what was typed";
    }
}

TEST(ComboSearch, StopsAtTheFirstEntryNotBelowInAnUnsortedList) {
    ListStandIn combo({"Beam", "Zinc", "Deck"});
    EXPECT_EQ(combo.type("d", 1), 1);
}

TEST(ComboSearch, GivesNoIndexForAnEmptyList) {
    ListStandIn combo({});
    EXPECT_EQ(combo.type("a", 1), -1);
    EXPECT_EQ(combo.chosen, -1);
}

TEST(ComboSearch, KeysThatPassThroughChooseNothing) {
    ListStandIn combo(trades);
    for (const int keyCode : {KeyCode::Tab, KeyCode::Shift, KeyCode::Control, KeyCode::Alt}) {
        combo.type("Fra", 2, keyCode);
        EXPECT_EQ(combo.chosen, ListStandIn::unchosen);
        EXPECT_EQ(combo.caret, 2);
    }
    combo.type("Fra", 2, KeyCode::End);
    EXPECT_EQ(combo.caret, 3);
    combo.type("Fra", 2, KeyCode::Home);
    EXPECT_EQ(combo.caret, 0);
    combo.type("  ", 2);
    EXPECT_EQ(combo.chosen, ListStandIn::unchosen);
}

TEST(ComboSearch, AnEmptyTextFindsTheFirstEntryWhenItIsNotCheckedFor) {
    ListStandIn combo(trades);
    EXPECT_EQ(ComboIncrementalSearch(combo, KeyCode::Delete, 0, false), 0);
    EXPECT_EQ(combo.caret, 0);
}

TEST(FieldText, TurnsValuesIntoText) {
    EXPECT_EQ(FieldText(Value::null()), QString());
    EXPECT_EQ(FieldText(Value(12)), "12");
    EXPECT_EQ(FieldText(Value(12), 1), "12") << "a whole number is never cut";
    EXPECT_EQ(FieldText(Value(12.5)), "12.5");
    EXPECT_EQ(FieldText(Value(12.5), 3), "12.");
    EXPECT_EQ(FieldText(Value("02134")), "02134");
    EXPECT_EQ(FieldText(Value("  Oak Homes "), 8), "  Oak Ho");
    EXPECT_EQ(FieldText(Value("  Oak Homes "), 6, true), "Oak");
    EXPECT_EQ(FieldText(Value("   "), 0, true), QString());
    EXPECT_EQ(FieldText(Value("\ttab "), 0, true), "\ttab");
}

TEST(StripCharacters, KeepsPlainCharactersOnly) {
    EXPECT_EQ(StripCharacters("123-45-6789", "-"), "123456789");
    EXPECT_EQ(StripCharacters(QString::fromUtf8("12\t-é\x7f€ 3"), QString()), "12- 3");
    EXPECT_EQ(StripCharacters("xXyY", "x"), "yY");
}

TEST(Text, IsPaddedAndLaidOver) {
    EXPECT_EQ(PadRight("ab", 4), "ab  ");
    EXPECT_THROW(static_cast<void>(PadRight("abcde", 4)), RunTimeError);
    QString line(8, u'.');
    overlay(line, 1, "abcdef", 3);
    overlay(line, 7, "xyz");
    overlay(line, 9, "beyond");
    EXPECT_EQ(line, "abc...xy");
    EXPECT_EQ(NullToZero(Value::null()), Value(0));
    EXPECT_EQ(NullToZero(Value("")), Value(""));
}

TEST(DiskFiles, AFullDiskIsRecognisedByItsNumberAndByItsWords) {
    const std::pair<int, Failure> cases[] = {{ENOSPC, Failure::DiskFull},
                                             {EDQUOT, Failure::DiskFull},
                                             {EFBIG, Failure::FileAccess},
                                             {EACCES, Failure::FileAccess}};
    for (const auto& [systemError, failure] : cases) {
        EXPECT_TRUE(fileError("out.pdf", systemError).is(failure)) << systemError;
        EXPECT_EQ(fileFailure(QString::fromLocal8Bit(std::strerror(systemError))), failure) << systemError;
    }
}

} // namespace

} // namespace tarnwell
