#include "ToolRun.h"
#include "support/TemporaryDatabase.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

TEST(CommandLine, WrongArgumentsAreReportedOnOneLineWithExitCodeTwo) {
    const std::pair<QString, const char*> cases[] = {
        {"", "no command given"},
        {"repair a.mdb", "unknown command 'repair'"},
        {"create", "create needs DATABASE"},
        {"create a b", "create needs DATABASE"},
        {"copy a", "copy needs FROM TO"},
        {"backup a", "backup needs DATABASE FILE"},
        {"restore a", "restore needs FILE DATABASE"},
        {"migrate a", "migrate needs DATABASE FILE"},
        {"backup a postgresql://office/jobs",
         "backup needs DATABASE FILE; copy works between servers as well"},
        {"restore postgresql://office/jobs a",
         "restore needs FILE DATABASE; copy works between servers as well"},
        {"check mysql://office/jobs", "'mysql' is no kind of server; known are postgresql and sqlserver"},
        {"create postgresql://office/jobs --overwrite", "a catalog on a server is never overwritten"},
        {"create a --user ann", "--user is for a catalog on a server"},
        {"sample postgresql://office/jobs --user ann", "sample takes no --user"},
        {"copy a b --overwrite", "copy takes no --overwrite"},
        {"check a --overwrite", "check takes no --overwrite"},
        {"create a --seed 3", "create takes no --scale and no --seed"},
        {"sample a --scale huge", "unknown scale 'huge'"},
        {"sample a --seed x", "the seed 'x' is not a number"},
        {"create a --quick", "Unknown option 'quick'."}};
    for (const auto& [arguments, says] : cases) {
        const ToolResult result = runToolWith(arguments.split(' ', Qt::SkipEmptyParts));
        EXPECT_EQ(result.code, 2);
        EXPECT_TRUE(result.out.isEmpty());
        EXPECT_EQ(result.err, QString("tarnwell-db: %1\nTry 'tarnwell-db --help'.\n").arg(says));
    }
}

TEST(CommandLine, HelpNamesEveryCommandAndScale) {
    const ToolResult result = runToolWith({"--help"});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.err.isEmpty());
    for (const char* word :
         {"create", "sample", "check", "copy", "backup", "restore", "migrate", "small", "office", "large",
          "--overwrite", "--scale", "--seed", "--user", "2026-11-01", "postgresql://host/catalog"})
        EXPECT_TRUE(result.out.contains(QLatin1String(word))) << word;
}

class ExistingTarget : public testing::TestWithParam<const char*> {};

TEST_P(ExistingTarget, IsKeptWithoutTheOverwriteOption) {
    TemporaryDatabase source;
    const QString target = QDir(source.folder()).filePath(QStringLiteral("target.mdb"));
    const QByteArray precious("not to be lost");
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(precious);
    file.close();

    QStringList arguments{QString::fromLatin1(GetParam())};
    if (arguments.front() == QLatin1String("backup") || arguments.front() == QLatin1String("restore"))
        arguments << source.path();
    arguments << target;
    const ToolResult refused = runToolWith(arguments);
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.err.count(QLatin1Char('\n')), 1);
    EXPECT_TRUE(refused.err.contains(target));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), precious);
    file.close();

    const ToolResult done = runToolWith(arguments << "--overwrite");
    EXPECT_EQ(done.code, 0) << done.err.toStdString();
    EXPECT_EQ(runToolWith({"check", target}).code, 0);
    const QStringList leftovers = QDir(source.folder()).entryList({"target.mdb?*"});
    EXPECT_TRUE(leftovers.isEmpty()) << leftovers.join(' ').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Commands, ExistingTarget, testing::Values("create", "sample", "backup", "restore"));

TEST(CommandLine, AMissingFileIsReportedOnOneLine) {
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("none.mdb"));
    const QStringList commands[] = {{"check", missing},
                                    {"backup", missing, folder.filePath("copy.mdb")},
                                    {"restore", missing, folder.filePath("copy.mdb")},
                                    {"create", folder.filePath("no folder/new.mdb")}};
    for (const QStringList& command : commands) {
        const ToolResult result = runToolWith(command);
        EXPECT_EQ(result.code, 1) << command.front().toStdString();
        EXPECT_EQ(result.err.count(QLatin1Char('\n')), 1) << result.err.toStdString();
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

} // namespace
} // namespace tarnwell::test
