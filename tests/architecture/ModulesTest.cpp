#include "SourceFiles.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace tarnwell::test;

/// The words between back quotes of a table's cell.
std::set<std::string> namesIn(const std::string& cell) {
    std::set<std::string> names;
    for (auto begin = cell.find('`'); begin != std::string::npos; begin = cell.find('`', begin)) {
        const auto end = cell.find('`', begin + 1);
        if (end == std::string::npos)
            break;
        names.insert(cell.substr(begin + 1, end - begin - 1));
        begin = end + 1;
    }
    return names;
}

/// The table "Module, Holds, May include" of docs/architecture.md: the one place where dependencies are
/// allowed.
std::map<std::string, std::set<std::string>> allowedDependencies() {
    std::map<std::string, std::set<std::string>> allowed;
    std::istringstream text(readFile("docs/architecture.md"));
    bool inside = false;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("| Module | Holds | May include |"))
            inside = true;
        else if (inside && !line.starts_with("|"))
            break;
        else if (inside && line.starts_with("| `")) {
            const auto second = line.find('|', 1);
            const auto third = line.find('|', second + 1);
            allowed[*namesIn(line.substr(0, second)).begin()] = namesIn(line.substr(third));
        }
    }
    return allowed;
}

std::string moduleOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path().generic_string() : std::string("src");
}

/// From another top-level module, a module's name stands for its subfolders too.
bool isAllowed(const std::string& from, const std::string& to, const std::set<std::string>& names) {
    const std::string top = to.substr(0, to.find('/'));
    return names.contains(to) || (top != from.substr(0, from.find('/')) && names.contains(top));
}

/// The units that the modules' CMake files name for a library.
std::set<std::string> unitsOf(const std::string& library) {
    std::set<std::string> units;
    const fs::path root = fs::path(TARNWELL_SOURCE_DIR) / "src";
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().filename() != "CMakeLists.txt")
            continue;
        std::istringstream text(readFile(entry.path()));
        bool inside = false;
        for (std::string line; std::getline(text, line);) {
            if (line.find("target_sources(") != std::string::npos)
                inside = line.find(library) != std::string::npos;
            if (const auto end = line.find(".cpp"); inside && end != std::string::npos) {
                const auto begin = line.find_first_not_of(' ');
                const fs::path unit = entry.path().parent_path() / line.substr(begin, end - begin);
                units.insert(fs::relative(unit, root).generic_string());
            }
        }
    }
    return units;
}

std::string unitOf(fs::path file) {
    return file.replace_extension().generic_string();
}

} // namespace

TEST(Modules, IncludeOnlyWhatTheDocumentedTableAllows) {
    const auto allowed = allowedDependencies();
    ASSERT_GT(allowed.size(), 20U) << "the table of docs/architecture.md was not found";
    std::set<std::string> seen;
    for (const Include& include : includes()) {
        const std::string from = moduleOf(include.file);
        ASSERT_TRUE(allowed.contains(from)) << from << " has no row in the table";
        seen.insert(from);
        if (!include.ours)
            continue;
        const std::string to = moduleOf(include.target);
        EXPECT_TRUE(from == to || isAllowed(from, to, allowed.at(from)))
            << include.file << " must not include " << include.target;
    }
    for (const auto& [module, names] : allowed)
        EXPECT_TRUE(seen.contains(module)) << module << " has a row in the table and no file";
}

// Followed along the table's names, no module comes back to itself.
TEST(Modules, DependOnEachOtherInOneDirection) {
    const auto allowed = allowedDependencies();
    std::set<std::string> placed;
    for (bool progress = true; progress;) {
        progress = false;
        for (const auto& [module, names] : allowed) {
            if (placed.contains(module))
                continue;
            bool ready = true;
            for (const auto& [other, unused] : allowed)
                if (other != module && isAllowed(module, other, names) && !placed.contains(other))
                    ready = false;
            if (ready)
                progress = placed.insert(module).second;
        }
    }
    for (const auto& [module, names] : allowed)
        EXPECT_TRUE(placed.contains(module)) << module << " is part of a circle of dependencies";
}

TEST(Modules, TheCoreSeesNoUnitOfTheUserInterface) {
    const std::set<std::string> core = unitsOf("tarnwell_core");
    const std::set<std::string> ui = unitsOf("tarnwell_ui");
    ASSERT_FALSE(core.empty());
    for (const Include& include : includes())
        EXPECT_FALSE(include.ours && core.contains(unitOf(include.file)) &&
                     ui.contains(unitOf(include.target)))
            << include.file << " includes " << include.target;
    for (const std::string& unit : core)
        EXPECT_FALSE(fs::path(unit).filename().string().starts_with("frm")) << unit << " is a screen";
}

TEST(Modules, AUnitIncludesItsOwnHeaderFirst) {
    std::set<std::string> headers;
    for (const fs::path& file : sourceFiles())
        if (file.extension() == ".h")
            headers.insert(unitOf(file));
    std::set<std::string> seen;
    for (const Include& include : includes())
        if (include.file.extension() == ".cpp" && headers.contains(unitOf(include.file)) &&
            seen.insert(unitOf(include.file)).second) {
            EXPECT_EQ(include.target, unitOf(include.file) + ".h")
                << "so that the header is known to compile alone";
        }
    EXPECT_GT(seen.size(), 100U) << "the units were not found";
}
