#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Include {
    fs::path file;      // Relative to src/.
    std::string target; // As written: "data/Value.h" or <QWidget>.
    bool ours;
};

std::vector<Include> readIncludes() {
    static const std::regex pattern(R"rx(^\s*#include\s+(["<])([^">]+)[">])rx");
    const fs::path root = fs::path(TARNWELL_SOURCE_DIR) / "src";
    std::vector<Include> includes;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const auto extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        std::ifstream text(entry.path());
        for (std::string line; std::getline(text, line);)
            if (std::smatch match; std::regex_search(line, match, pattern))
                includes.push_back({fs::relative(entry.path(), root), match[2], match[1] == "\""});
    }
    return includes;
}

std::string roomOf(const fs::path& file) {
    return file.has_parent_path() ? file.begin()->string() : std::string("main");
}

/// The files of a library are those that its rooms' CMake files name for it.
std::set<std::string> sourcesOf(const std::string& library) {
    std::set<std::string> files;
    const fs::path root = fs::path(TARNWELL_SOURCE_DIR) / "src";
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().filename() != "CMakeLists.txt")
            continue;
        std::ifstream text(entry.path());
        bool inside = false;
        for (std::string line; std::getline(text, line);) {
            if (line.find("target_sources(") != std::string::npos)
                inside = line.find(library) != std::string::npos;
            if (const auto end = line.find(".cpp"); inside && end != std::string::npos) {
                const auto begin = line.find_first_not_of(' ');
                const fs::path file = entry.path().parent_path() / line.substr(begin, end - begin);
                files.insert(fs::relative(file, root).replace_extension().string());
            }
        }
    }
    return files;
}

// Whose headers a room may include besides its own. The frame is two floors: its widget-free helpers stand
// below the controls, the screens' base above them, so frame and controls name each other here; the split
// between the two libraries keeps the circle open.
const std::map<std::string, std::set<std::string>> allowed = {
    {"data", {}},
    {"frame", {"data", "controls"}},
    {"controls", {"data", "frame"}},
    {"master", {"data", "frame", "controls"}},
    {"builders", {"data", "frame", "controls", "master"}},
    {"jobs", {"data", "frame", "controls", "master", "builders"}},
    {"timecard", {"data", "frame", "controls", "master"}},
    {"reports", {"data", "frame", "controls"}},
    {"main", {"data", "frame", "controls", "master", "builders", "jobs", "timecard", "reports"}},
};

} // namespace

TEST(Arrows, RoomsUseOnlyTheRoomsBelowThem) {
    int seen = 0;
    for (const Include& include : readIncludes()) {
        if (!include.ours || include.target.find('/') == std::string::npos)
            continue;
        const std::string from = roomOf(include.file);
        const std::string to = roomOf(include.target);
        ASSERT_TRUE(allowed.contains(from)) << from << " is no room of the house";
        EXPECT_TRUE(from == to || allowed.at(from).contains(to))
            << include.file << " in " << from << " must not include " << include.target;
        ++seen;
    }
    EXPECT_GT(seen, 20) << "the include lines were not found";
}

TEST(Arrows, TheCoreSeesNoWidgetAndNoScreen) {
    const std::set<std::string> core = sourcesOf("tarnwell_core");
    const std::set<std::string> ui = sourcesOf("tarnwell_ui");
    ASSERT_FALSE(core.empty());
    static const std::set<std::string> widgets = {
        "QWidget",    "QApplication", "QMainWindow", "QDialog",     "QMessageBox", "QLineEdit", "QComboBox",
        "QTableView", "QListWidget",  "QPainter",    "QIcon",       "QPixmap",     "QFont",     "QColor",
        "QLabel",     "QPushButton",  "QCheckBox",   "QToolButton", "QFileDialog", "QPalette",  "QImage"};
    for (const Include& include : readIncludes()) {
        const std::string unit = fs::path(include.file).replace_extension().string();
        if (!core.contains(unit))
            continue;
        EXPECT_FALSE(widgets.contains(include.target))
            << include.file << " includes <" << include.target << ">";
        const std::string target = fs::path(include.target).replace_extension().string();
        EXPECT_FALSE(include.ours && ui.contains(target)) << include.file << " includes " << include.target;
    }
}

TEST(Arrows, AUnitIncludesItsOwnHeaderFirst) {
    std::set<std::string> headers;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TARNWELL_SOURCE_DIR) / "src"))
        if (entry.path().extension() == ".h")
            headers.insert(fs::relative(entry.path(), fs::path(TARNWELL_SOURCE_DIR) / "src").string());
    std::set<std::string> seen;
    for (const Include& include : readIncludes()) {
        const std::string own = fs::path(include.file).replace_extension(".h").string();
        if (include.file.extension() != ".cpp" || !headers.contains(own) || !seen.insert(own).second)
            continue;
        EXPECT_EQ(include.target, own) << "so that the header is known to compile alone";
    }
    EXPECT_GT(seen.size(), 100U) << "the units were not found";
}

TEST(Arrows, ScreensAreNamedForWhatTheyAre) {
    for (const std::string& unit : sourcesOf("tarnwell_core"))
        EXPECT_NE(fs::path(unit).filename().string().substr(0, 3), "frm")
            << unit << " is a screen in the core";
}
