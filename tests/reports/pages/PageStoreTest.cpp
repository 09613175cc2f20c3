#include "reports/pages/PageStore.h"

#include "data/file/DatabaseFile.h"
#include "data/sqlite/SqliteDatabase.h"
#include "reports/pages/ReportFile.h"
#include "reports/pages/TextSearch.h"
#include "runtime/modGlobalVariables.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTemporaryDir>

#include <array>
#include <gtest/gtest.h>
#include <latch>
#include <memory>
#include <set>
#include <thread>

namespace {

using namespace tarnwell;
using test::numberOf;
using test::raisedNumber;
using test::raisedText;

class PageStoreTest : public testing::Test {
protected:
    static PageText text(qint64 page, const QString& words, const TextLook& look = {}) {
        return {700, 800, words, page, Orientation::Portrait, look};
    }

    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("Report.mdb")); }
    [[nodiscard]] std::unique_ptr<PageStore> open() const { return std::make_unique<PageStore>(path()); }
    [[nodiscard]] qint64 rowsOf(const QByteArray& table) const {
        const data::SqliteDatabase handle(path(), data::SqliteDatabase::Access::ReadOnly);
        data::SqliteStatement count = handle.prepare("SELECT COUNT(*) FROM " + table);
        return count.step() ? count.integerAt(0) : -1;
    }

    QTemporaryDir m_folder;
};

TEST_F(PageStoreTest, GivesBackWhatWasDrawn) {
    const TextLook look{.Bold = true,
                        .FontSize = 14,
                        .FontName = QStringLiteral("Arial"),
                        .PageTotal = true,
                        .BackColor = 0xFFEEDD,
                        .ForeColor = 0x0000FF,
                        .Flag2 = true};
    const QString words = QString::fromUtf8("Zoë 价 😀");
    const auto store = open();
    const qint64 key = store->newReport();
    store->add(key, PageText{-7, 32767, words, 1, Orientation::Landscape, look, 1440});
    store->add(key, PageLine{1, -2, 3, 4, 1, Orientation::Landscape, 3});
    store->add(key, PageText{0, 0, QString::fromUtf8("Zoë"), 1, Orientation::Landscape, {}});
    store->add(key, PageText{0, 0, {}, 1, Orientation::Landscape, {}});
    store->finish(key);

    const PageItems page = ReportPages(*store, key).page(1);
    EXPECT_EQ(page.orientation, Orientation::Landscape);
    ASSERT_EQ(page.texts.size(), 3U);
    const PageText& back = page.texts.front();
    EXPECT_EQ(std::tuple(back.x, back.y, back.text, back.width), std::tuple(-7, 32767, words, 1440));
    EXPECT_EQ(std::tuple(back.look.Bold, back.look.FontSize, back.look.FontName),
              std::tuple(true, 14, QStringLiteral("Arial")));
    EXPECT_EQ(std::tuple(back.look.PageTotal, back.look.BackColor, back.look.ForeColor, back.look.Flag2),
              std::tuple(true, 0xFFEEDDU, 0x0000FFU, true));
    EXPECT_EQ(page.texts[1].text, QString::fromUtf8("Zoë"));
    EXPECT_EQ(std::tuple(page.texts[1].look.Bold, page.texts[1].width), std::tuple(false, 0));
    EXPECT_EQ(std::tuple(page.texts[2].text, page.texts[2].look.FontSize), std::tuple(QString(), 10));
    ASSERT_EQ(page.lines.size(), 1U);
    const PageLine& line = page.lines.front();
    EXPECT_EQ(std::tuple(line.x1, line.y1, line.x2, line.y2, line.width), std::tuple(1, -2, 3, 4, 3));
}

TEST_F(PageStoreTest, KeepsTheOrderOfPagesThatAreDrawnByTurnsAndOfPagesBeyondMemory) {
    const auto store = open();
    const qint64 key = store->newReport();
    constexpr int rounds = 3000; // more than what is kept in memory
    for (int round = 0; round < rounds; ++round) {
        store->add(key, text(4, QString::number(round) + QString(100, QLatin1Char('x'))));
        if (round % 1000 == 0)
            store->add(key, text(1, QString::number(round)));
    }
    store->finish(key);
    const ReportPages report(*store, key);
    EXPECT_EQ(report.pageCount(), 4);
    EXPECT_EQ(report.page(1).texts.size(), 3U);
    EXPECT_TRUE(report.page(2).texts.empty());
    const PageItems last = report.page(4);
    ASSERT_EQ(last.texts.size(), std::size_t{rounds});
    for (int round = 0; round < rounds; ++round)
        ASSERT_TRUE(last.texts[static_cast<std::size_t>(round)].text.startsWith(QString::number(round)));
}

TEST_F(PageStoreTest, ARunThatWasCutShortLeavesNothing) {
    const auto store = open();
    const qint64 cut = store->newReport();
    store->add(cut, text(1, QStringLiteral("never shown")));
    const qint64 key = store->newReport();
    store->add(key, text(1, QStringLiteral("shown")));
    store->finish(key);
    EXPECT_NE(cut, key);
    EXPECT_EQ(store->pageCount(cut), 0);
    EXPECT_EQ(store->page(key, 1).texts.size(), 1U) << "what waited for the first run got into the second";
    EXPECT_EQ(raisedNumber([&] { store->add(cut, text(1, {})); }), numberOf(Failure::NotAllowed));
    EXPECT_EQ(raisedNumber([&] { store->add(key, text(2, {})); }), numberOf(Failure::NotAllowed));
}

TEST_F(PageStoreTest, AStoringThatIsHaltedKeepsNobodyWaitingAndCanBeDoneAgain) {
    const auto store = open();
    const auto other = open();
    const qint64 key = store->newReport();
    for (qint64 page = 1; page <= 100; ++page)
        store->add(key, text(page, QString::number(page)));
    EXPECT_FALSE(store->finish(key, [](qint64 done, qint64 /*pages*/) { return done < 70; }));
    EXPECT_EQ(rowsOf("Page"), 0);
    EXPECT_GT(other->newReport(), key) << "the file is free";
    qint64 followed = 0;
    EXPECT_TRUE(
        store->finish(key, [&](qint64 done, qint64 pages) { return ++followed == done && pages == 100; }));
    EXPECT_EQ(store->pageCount(key), 100);
    EXPECT_EQ(store->page(key, 70).texts.front().text, QStringLiteral("70"));
}

TEST_F(PageStoreTest, ClearsTheRunBeforeAndItsOwnAtTheEnd) {
    auto store = open();
    qint64 lastKey = 0;
    for (int run = 0; run < 3; ++run) {
        const qint64 key = store->newReport();
        EXPECT_GT(key, lastKey);
        lastKey = key;
        store->add(key, text(1, QStringLiteral("pay")));
        store->finish(key);
        EXPECT_EQ(rowsOf("Page"), 1);
    }
    store.reset();
    EXPECT_EQ(rowsOf("Page") + rowsOf("Report"), 0);
    EXPECT_GT(open()->newReport(), lastKey) << "a key was given out twice";
}

/// By drive: with a write-ahead log, and without one as on a network drive.
class SharedPageStoreTest : public PageStoreTest, public testing::WithParamInterface<data::Journal> {
protected:
    [[nodiscard]] std::unique_ptr<PageStore> openShared() const {
        return std::make_unique<PageStore>(path(), GetParam());
    }
};
INSTANTIATE_TEST_SUITE_P(EveryJournal, SharedPageStoreTest,
                         testing::Values(data::Journal::WriteAhead, data::Journal::Rollback));

TEST_P(SharedPageStoreTest, ClearsWhatAKilledProgramLeft) {
    (void)PageStore(path(), data::Journal::WriteAhead).newReport(); // also one from another kind of drive
    openShared().reset();
    {
        const data::SqliteDatabase killed(path(), data::SqliteDatabase::Access::ReadWrite);
        killed.run("INSERT INTO Page VALUES (1, 1, 1, x'00')");
        killed.run("INSERT INTO Report VALUES (1)");
    }
    openShared().reset();
    EXPECT_EQ(rowsOf("Page") + rowsOf("Report"), 0);
}

TEST_P(SharedPageStoreTest, WorkstationsLeaveEachOthersReportsAlone) {
    const auto first = openShared();
    const qint64 key = first->newReport();
    first->add(key, text(1, QStringLiteral("on the first screen")));
    first->finish(key);
    {
        const auto second = openShared();
        const qint64 drawnMeanwhile = second->newReport();
        EXPECT_NE(drawnMeanwhile, key);
        second->add(drawnMeanwhile, text(1, QStringLiteral("half drawn")));
        const auto third = openShared();
        EXPECT_GT(third->newReport(), drawnMeanwhile);
        second->finish(drawnMeanwhile);
        EXPECT_EQ(second->pageCount(drawnMeanwhile), 1);
    }
    ASSERT_EQ(first->page(key, 1).texts.size(), 1U);
    EXPECT_EQ(first->page(key, 1).texts.front().text, QStringLiteral("on the first screen"));
    EXPECT_EQ(QFile::exists(path() + "-wal"), GetParam() == data::Journal::WriteAhead);
}

TEST_F(PageStoreTest, FindsTextsAsTheyAreReadOnThePage) {
    const auto store = open();
    const qint64 key = store->newReport();
    store->add(key, text(1, QStringLiteral("Page:1 of"), {.PageTotal = true}));
    store->add(key, text(1, QStringLiteral("Framing")));
    store->add(key, text(12, QStringLiteral("FRAMING and framing")));
    store->finish(key);
    const ReportPages report(*store, key);
    using Hits = std::vector<std::size_t>;
    EXPECT_EQ(report.findOnPage(QStringLiteral("framing"), 1), Hits{1});
    EXPECT_EQ(report.findOnPage(QStringLiteral("framing"), 12), Hits{0});
    EXPECT_EQ(report.findOnPage(QStringLiteral("Framing"), 12, Qt::CaseSensitive), Hits{});
    EXPECT_EQ(report.findOnPage(QStringLiteral("1 of 12"), 1), Hits{0});
    EXPECT_EQ(report.findOnPage({}, 1), Hits{});
}

TEST(TextSearchTest, AccentsMatterOnlyWithCase) {
    using Places = std::vector<TextSearch::Place>;
    const struct {
        const char* sought;
        const char* text;
        Places places;
        Places withCase;
    } cases[] = {{"munoz", "MU\u00D1OZ, Muñoz", {{0, 5}, {7, 5}}, {}},
                 {"Muñoz", "Munoz Muñoz", {{0, 5}, {6, 5}}, {{6, 5}}},
                 {"noe", "Noe\u0308l", {{0, 4}}, {}},
                 {"ZOE", "\U0001F600 Zoë", {{3, 3}}, {}},
                 {"aa", "aaaaa", {{0, 2}, {2, 2}}, {{0, 2}, {2, 2}}},
                 {"\u0301", "é", {}, {}},
                 {"", "text", {}, {}}};
    for (const auto& [sought, text, places, withCase] : cases) {
        const QString where = QString::fromUtf8(text);
        for (const auto letters : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
            const TextSearch search(QString::fromUtf8(sought), letters);
            const Places& expected = letters == Qt::CaseSensitive ? withCase : places;
            EXPECT_EQ(search.placesIn(where), expected) << sought << " in " << text;
            EXPECT_EQ(search.isIn(where), !expected.empty()) << sought << " in " << text;
        }
    }
}

TEST_F(PageStoreTest, AFileThatAFullDiskLeftWithoutTablesIsMadeWhole) {
    data::SqliteDatabase(path(), data::SqliteDatabase::Access::Create).run("PRAGMA auto_vacuum=FULL");
    ASSERT_GT(QFileInfo(path()).size(), 0);
    EXPECT_GT(open()->newReport(), 0);
}

TEST_F(PageStoreTest, ProgramsThatMakeItTogetherAllGetIt) {
    constexpr int programs = 4;
    for (int round = 0; round < 5; ++round) {
        const QString place = m_folder.filePath(QString("Report%1.mdb").arg(round));
        std::array<qint64, programs> keys{};
        {
            std::latch start(programs);
            std::vector<std::jthread> starting;
            for (qint64& key : keys)
                starting.emplace_back([&start, &place, &key] {
                    start.arrive_and_wait();
                    const QString failure = raisedText([&] { key = PageStore(place).newReport(); });
                    EXPECT_EQ(failure, QString());
                });
        }
        EXPECT_EQ(std::set(keys.begin(), keys.end()).size(), keys.size()) << "a key was given out twice";
    }
}

TEST_F(PageStoreTest, WhatCannotBeUsedIsSetAsideWithItsLogs) {
    constexpr qint64 pageSize = 16384;
    const auto damage = [this](qint64 from, qint64 size) {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(from));
        file.write(QByteArray(static_cast<qsizetype>(size), 'x'));
    };
    open().reset();
    const std::pair<qint64, qint64> places[] = {{0, 100}, {100, 3000}, {2 * pageSize, 2 * pageSize}};
    for (int number = 1; const auto& [from, size] : places) {
        damage(from, size);
        bool isSetAside = false;
        try {
            (void)open()->newReport();
        } catch (const UnusableReportFile& file) {
            const QString name =
                number == 1 ? "Report-damaged.mdb" : QString("Report-damaged-%1.mdb").arg(number);
            EXPECT_EQ(QFileInfo(file.nameAside()).fileName(), name);
            file.setAside();
            isSetAside = QFile::exists(file.nameAside());
        }
        EXPECT_TRUE(isSetAside) << from;
        EXPECT_GT(open()->newReport(), 0);
        ++number;
    }
}

TEST_F(PageStoreTest, RefusesAPlaceWhereNoReportDatabaseCanBe) {
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("folder")));
    QFile(m_folder.filePath(QStringLiteral("notes.txt"))).open(QIODevice::WriteOnly);
    const struct {
        const char* name;
        Failure failure;
    } cases[] = {{"nowhere/Report.mdb", Failure::PathNotFound},
                 {"notes.txt/Report.mdb", Failure::PathNotFound},
                 {"folder", Failure::FileAccess}};
    for (const auto& [name, failure] : cases) {
        const QString place = m_folder.filePath(QLatin1String(name));
        const QString raised = raisedText([&] { const PageStore store(place); });
        EXPECT_TRUE(raised.startsWith(makeError(failure).description()))
            << name << ": " << raised.toStdString();
        EXPECT_TRUE(raised.contains(m_folder.path())) << name << ": " << raised.toStdString();
    }
}

TEST_F(PageStoreTest, WhatMayHoldTheWagesIsNeverSetAside) {
    const auto file = [this](const char* name) { return m_folder.filePath(QLatin1String(name)); };
    const auto fill = [](const QString& path) {
        QFile unreadable(path);
        EXPECT_TRUE(unreadable.open(QIODevice::ReadWrite) && unreadable.write(QByteArray(2000, 'n')) == 2000);
    };
    createDatabase(file("Backup.mdb"));
    createDatabase(file("Tarnwell.mdb"));
    {
        const data::SqliteDatabase rest(file("Rest.mdb"), data::SqliteDatabase::Access::Create);
        rest.run("CREATE TABLE employee (Name TEXT)");
    }
    fill(file("Tarnwell.mdb"));
    ASSERT_TRUE(QFile::link(file("Tarnwell.mdb"), file("Link.mdb")));
    fill(file("notes.txt"));
    const QScopedValueRollback inUse(gConnectionString, test::connectionStringFor(file("Tarnwell.mdb")));
    const std::pair<const char*, bool> cases[] = {{"Backup.mdb", false},
                                                  {"Rest.mdb", false},
                                                  {"Tarnwell.mdb", false},
                                                  {"Link.mdb", false},
                                                  {"notes.txt", true}};
    for (const auto& [name, mayGo] : cases) {
        bool isSetAside = false;
        const QString raised = raisedText([&] {
            try {
                const PageStore store(file(name));
            } catch (const UnusableReportFile&) {
                isSetAside = true;
                throw;
            }
        });
        EXPECT_EQ(raised, makeError(Failure::DatabaseForeign, file(name)).description());
        EXPECT_EQ(isSetAside, mayGo) << name;
    }
    EXPECT_TRUE(integrityProblems(file("Backup.mdb")).isEmpty());
}

} // namespace
