#include "runtime/Remembered.h"

#include "runtime/RecentJobs.h"
#include "support/RememberedSettings.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

void put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

/// Another program with the same settings.
void rememberElsewhere(const char* name, const char* text) {
    WriteRegistryValue(RegistryRoot::CurrentUser, gRegistryKey + "\\Remembered", name, RegistryType::Text,
                       text);
}

} // namespace

TEST(Remembered, HoldsAtOnceAndReachesTheFileAtTheEndBesideWhatOthersWrote) {
    const RememberedSettings settings;
    const QByteArray before = contentOf(settings.path());
    remember("Window frmJobs", "here");
    remember("Columns frmJobs.jgTasks", "Name=200");
    EXPECT_EQ(remembered("Window frmJobs"), "here");
    EXPECT_EQ(contentOf(settings.path()), before) << "no window waits for the disk";
    rememberElsewhere("Window frmBuilder", "there");
    RememberedSettings::endProgram();
    EXPECT_EQ(remembered("window FRMJOBS"), "here");
    EXPECT_EQ(remembered("Window frmBuilder"), "there");
    EXPECT_EQ(ReadRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, "Provider").toText(),
              "Microsoft.Jet.OLEDB.4.0");
    remember("Window frmJobs", {});
    RememberedSettings::endProgram();
    EXPECT_EQ(remembered("Window frmJobs"), "");
}

TEST(Remembered, LeavesSettingsThatAreMissingOrDamagedToTheNextStart) {
    const RememberedSettings settings;
    for (const QByteArray bytes : {"no settings", "{\"HKEY_CURRENT_USER\": 3}", ""}) {
        put(settings.path(), bytes);
        EXPECT_EQ(remembered("Window frmJobs"), "");
        remember("Window frmJobs", "here");
        RememberedSettings::endProgram();
        EXPECT_EQ(contentOf(settings.path()), bytes);
        remember("Window frmJobs", {});
    }
    QFile::remove(settings.path());
    remember("Window frmJobs", "here");
    RememberedSettings::endProgram();
    EXPECT_EQ(contentOf(settings.path()), "missing");
}

TEST(Remembered, IsNothingBeforeTheSettingsWereRead) {
    remember("Window frmJobs", "here");
    EXPECT_EQ(remembered("Window frmJobs"), "");
}

TEST(RecentJobs, AreTheLastThreeOfEachDatabase) {
    const RememberedSettings settings;
    gConnectionString = "Provider=x;Data Source=/one.mdb";
    for (const qint64 job : {4, 7, 0, 9, 7, 12})
        rememberJob(job);
    RememberedSettings::endProgram();
    EXPECT_EQ(rememberedJobs(), (std::vector<qint64>{12, 7, 9}));
    gConnectionString = "Provider=x;Data Source=/two.mdb";
    EXPECT_TRUE(rememberedJobs().empty());
    remember("Jobs of /two.mdb", "a 5 -3 99999999999999999999  8");
    EXPECT_EQ(rememberedJobs(), (std::vector<qint64>{5, 8}));
    gConnectionString.clear();
}

} // namespace tarnwell::test
