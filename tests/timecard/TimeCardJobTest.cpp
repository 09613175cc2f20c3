#include "timecard/TimeCardJob.h"

#include "frame/modGeneral.h"
#include "timecard/TimeCardData.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class FixedField : public TypedField {
public:
    explicit FixedField(QString text) : m_text(std::move(text)), m_caret(static_cast<int>(m_text.size())) {}
    [[nodiscard]] QString Text() const override { return m_text; }
    [[nodiscard]] int SelStart() const override { return m_caret; }
    void setSelStart(int caret) override { m_caret = caret; }

private:
    QString m_text;
    int m_caret;
};

QStringList textsOf(const std::vector<KeyedText>& items) {
    QStringList texts;
    for (const KeyedText& item : items)
        texts.append(item.first);
    return texts;
}

} // namespace

TEST(TimeCardJob, TypingFindsTheFirstOpenJobAtOrAfterTheText) {
    TimeCardData data;
    const qint64 second = data.addJob("b20", "Second");
    data.addJob("A99", "Closed", DateTime{QDate(2024, 1, 1)});
    const std::pair<const char*, qint64> cases[] = {
        {"1", data.job}, {"A", second}, {"B", second}, {"B21", 0}, {"", data.job}};
    for (const auto& [typed, found] : cases) {
        FixedField field(typed);
        EXPECT_EQ(LookupKeyByTyping(field, 'A', typedJobLookup, data.db.connection()), found) << typed;
    }
}

TEST(TimeCardJob, TheHeaderNamesJobAndBuilder) {
    TimeCardData data;
    const auto header = readJobHeader(data.db.connection(), data.job);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->jobNumber, "1001");
    EXPECT_EQ(header->name, "Elm Court");
    EXPECT_EQ(header->builder, "Abel Homes");
    EXPECT_FALSE(readJobHeader(data.db.connection(), data.job + 1));
}

TEST(TimeCardJob, ListsHoldActiveEmployeesBehindABlankAndLivingCategories) {
    TimeCardData data;
    data.addEmployee("000-00-0001", "Gone", "Gus", true);
    data.db.run("UPDATE Code SET Deleted=-1 WHERE CodeKey=" + QString::number(data.framing));
    const std::vector<KeyedText> employees = readActiveEmployees(data.db.connection());
    EXPECT_EQ(textsOf(employees), (QStringList{"", "111-11-1111/Archer,Ann", "222-22-2222/Baker,Bob"}));
    EXPECT_EQ(employees[0].second, 0);
    EXPECT_EQ(employees[2].second, data.bob);
    EXPECT_EQ(textsOf(readCategories(data.db.connection())), QStringList{"Footings"});
}

TEST(TimeCardJob, TasksComeByFamilyForOneLotAndCategory) {
    TimeCardData data;
    data.addTask("Walls", 1.0, data.footings);
    data.addTask("Beams", 1.0, data.framing);
    Recordset tasks;
    tasks.Open(tasksOfLot(data.lot, data.framing), data.db.connection());
    EXPECT_EQ(tasks.RecordCount(), 2);
    EXPECT_EQ(tasks["Name"], Value("Beams"));
    tasks.Close();
    tasks.Open(tasksOfNoLot, data.db.connection());
    EXPECT_EQ(tasks.RecordCount(), 0);
}
