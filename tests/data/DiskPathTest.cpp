#include "data/DiskPath.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

class DiskPathTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir(m_folder.path()).mkpath("Data/Layouts"));
        QFile file(m_folder.filePath("Data/Layouts/MasterCodes.lyt"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    [[nodiscard]] QString at(const char* path) const { return m_folder.path() + '/' + path; }

    QTemporaryDir m_folder;
};

TEST_F(DiskPathTest, FindsFoldersAndFilesInAnyCaseAndWithEitherSeparator) {
    const QString file = at("Data/Layouts/MasterCodes.lyt");
    EXPECT_EQ(pathOnDisk(m_folder.path() + "\\data\\LAYOUTS\\mastercodes.LYT"), file);
    EXPECT_EQ(pathOnDisk(at("DATA/layouts/MasterCodes.lyt")), file);
    EXPECT_EQ(pathOnDisk(file), file);
}

TEST_F(DiskPathTest, KeepsATrailingSeparatorSoThatNamesCanBeAppended) {
    EXPECT_EQ(pathOnDisk(at("data\\layouts\\")), at("Data/Layouts/"));
}

TEST_F(DiskPathTest, WhatIsNotThereKeepsItsSpelling) {
    EXPECT_EQ(pathOnDisk("C:\\Nowhere\\New.mdb"), "C:/Nowhere/New.mdb");
    EXPECT_EQ(pathOnDisk(at("data\\New Folder\\ErrorLog.txt")), at("Data/New Folder/ErrorLog.txt"));
    EXPECT_EQ(pathOnDisk(QString()), QString());
}

// Where both spellings stand, the one that was asked for must win over the first one found.
TEST_F(DiskPathTest, AnExactNameWinsOverOneThatDiffersInCase) {
    QFile other(at("Data/Layouts/MASTERCODES.lyt"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    EXPECT_EQ(pathOnDisk(at("data/Layouts/MasterCodes.lyt")), at("Data/Layouts/MasterCodes.lyt"));
}

} // namespace
} // namespace tarnwell
