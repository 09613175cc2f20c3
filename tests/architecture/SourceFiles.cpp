#include "SourceFiles.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace tarnwell::test {

namespace fs = std::filesystem;

std::vector<fs::path> sourceFiles() {
    const fs::path root = fs::path(TARNWELL_SOURCE_DIR) / "src";
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (const auto extension = entry.path().extension(); extension == ".h" || extension == ".cpp")
            files.push_back(fs::relative(entry.path(), root));
    return files;
}

std::string readFile(const fs::path& file) {
    std::ifstream text(fs::path(TARNWELL_SOURCE_DIR) / file);
    return {std::istreambuf_iterator<char>(text), {}};
}

const std::vector<Include>& includes() {
    static const std::vector<Include> all = [] {
        constexpr std::string_view directive = "#include ";
        std::vector<Include> found;
        for (const fs::path& file : sourceFiles()) {
            std::istringstream text(readFile("src" / file));
            for (std::string line; std::getline(text, line);)
                if (line.starts_with(directive) && line.size() > directive.size() + 2)
                    found.push_back(
                        {file,
                         line.substr(directive.size() + 1, line.find_last_of("\">") - directive.size() - 1),
                         line[directive.size()] == '"'});
        }
        return found;
    }();
    return all;
}

} // namespace tarnwell::test
