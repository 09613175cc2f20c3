#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarnwell::test {

/// An include line of a file below src/.
struct Include {
    std::filesystem::path file; ///< Relative to src/.
    std::string target;         ///< As written, without its quotes or angle brackets.
    bool ours;                  ///< Written in quotes.
};

/// The headers and units below src/, relative to it.
[[nodiscard]] std::vector<std::filesystem::path> sourceFiles();
/// Every include line below src/.
[[nodiscard]] const std::vector<Include>& includes();
/// The whole text of a file, named relative to the project's folder; empty when it can't be read.
[[nodiscard]] std::string readFile(const std::filesystem::path& file);

} // namespace tarnwell::test
