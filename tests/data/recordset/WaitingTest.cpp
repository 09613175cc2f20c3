#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

/// Answers the questions of a wait.
class Watcher : public WaitWatcher {
public:
    std::function<bool(int number)> answer;
    int questions = 0, ends = 0;

    [[nodiscard]] bool goesOn(std::chrono::milliseconds waited) override {
        EXPECT_GT(waited.count(), 0);
        return answer(++questions);
    }
    void ended() noexcept override { ++ends; }
};

/// Somebody else holds the only master task.
struct Waiting : ::testing::Test {
    void SetUp() override {
        database.add("MasterTask", {{"Name", "Elm"}});
        holder->BeginTrans();
        holder->Execute("UPDATE MasterTask SET Name='held'");
        database.connection().setWaitWatcher(&watcher);
    }
    void write() { database.run("UPDATE MasterTask SET Name=Name+'!'"); }

    TemporaryDatabase database;
    std::unique_ptr<Connection> holder = database.secondWorkstation();
    Watcher watcher;
};

TEST_F(Waiting, AWriteAsksUntilItsTurnComes) {
    watcher.answer = [this](int number) {
        EXPECT_EQ(raisedFailure([this] { (void)database.ask("SELECT Name FROM MasterTask"); }),
                  Failure::NotAllowed);
        if (number == 2)
            holder->CommitTrans();
        return true;
    };
    write();
    EXPECT_EQ(database.ask("SELECT Name FROM MasterTask"), Value("held!"));
    EXPECT_GE(watcher.questions, 2);
    EXPECT_EQ(watcher.ends, 1);
}

TEST_F(Waiting, AWriteThatIsGivenUpWritesNothing) {
    watcher.answer = [](int number) { return number < 3; };
    EXPECT_EQ(raisedFailure([this] { write(); }), Failure::Cancelled);
    EXPECT_EQ(watcher.ends, 1);
    holder->RollbackTrans();
    EXPECT_EQ(database.ask("SELECT Name FROM MasterTask"), Value("Elm"));
    write();
    EXPECT_EQ(database.ask("SELECT Name FROM MasterTask"), Value("Elm!"));
}

TEST_F(Waiting, TheMessageNamesWhatWaited) {
    const auto hasty = database.secondWorkstation();
    hasty->Close();
    hasty->setBusyTimeout(std::chrono::milliseconds(1));
    hasty->Open();
    EXPECT_EQ(raisedText([&] { hasty->Execute("UPDATE MasterTask SET Name='mine'"); }),
              "The database is locked by another user. Try again in a moment. "
              "(Somebody else is changing master tasks.)");
}

} // namespace

} // namespace tarnwell::test
