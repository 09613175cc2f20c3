#include "SourceFiles.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

using namespace tarnwell::test;

/// Who may know the embedded engine's library: the engine itself, what makes, checks and copies its files,
/// and the reports' pages, which are kept in a scratch file of its format whichever engine holds the data.
constexpr std::array<std::string_view, 3> maySeeTheLibrary = {"data/sqlite/", "data/file/", "reports/pages/"};
/// The one place that knows which engines there are; it sees no client library.
constexpr std::string_view factory = "data/recordset/EngineFactory.cpp";

} // namespace

// An engine can only stand beside another one where nobody above the seam knows either.
TEST(EngineSeam, OnlyTheEngineKnowsItsClientLibrary) {
    int seen = 0;
    for (const Include& include : includes()) {
        const bool isLibrary = include.target == "sqlite3.h";
        if (!isLibrary && !include.target.starts_with("data/sqlite/"))
            continue;
        ++seen;
        const std::string file = include.file.generic_string();
        const bool maySee = std::ranges::any_of(
            maySeeTheLibrary, [&](std::string_view folder) { return file.starts_with(folder); });
        EXPECT_TRUE(maySee || (file == factory && !isLibrary)) << file << " includes " << include.target;
    }
    EXPECT_GT(seen, 10) << "the include lines were not found";
}

TEST(EngineSeam, OnlyTheServersEngineKnowsTheDriverManager) {
    int seen = 0;
    for (const Include& include : includes()) {
        const bool isLibrary = include.target == "sql.h" || include.target == "sqlext.h";
        if (!isLibrary && !include.target.starts_with("data/odbc/"))
            continue;
        ++seen;
        const std::string file = include.file.generic_string();
        EXPECT_TRUE(file.starts_with("data/odbc/") || (file == factory && !isLibrary))
            << file << " includes " << include.target;
    }
    EXPECT_GT(seen, 10) << "the include lines were not found";
}

TEST(EngineSeam, TheInterfaceNamesNoClientLibrary) {
    for (const std::filesystem::path& file : sourceFiles())
        if (file.generic_string().find("data/engine/") != std::string::npos) {
            EXPECT_EQ(readFile(std::filesystem::path("src") / file).find("sqlite"), std::string::npos)
                << file;
        }
}
