#pragma once

#include <span>

/// The words that sample data is made of. ASCII except where a real office would not be.
namespace tarnwell::sample::words {

struct TaskOffer {
    const char* name;
    int cents;
};

/// A category with its tasks, in the order in which a house is built.
struct Trade {
    const char* name;
    std::span<const TaskOffer> tasks;
};

/// What a builder offers as one choice, and the positions in `trades()` that it takes.
struct GroupOffer {
    const char* name;
    std::span<const int> trades;
};

/// Positions in `trades()`: tasks of `trade` are paid after those of `after`.
struct Dependency {
    int trade;
    int after;
};

[[nodiscard]] std::span<const Trade> trades();
[[nodiscard]] std::span<const Dependency> dependencies();
[[nodiscard]] std::span<const GroupOffer> optionGroups();
/// Its position in the last trade's tasks: the task that every lot ends with.
inline constexpr int finalTask = 0;

[[nodiscard]] std::span<const char* const> firstNames();
[[nodiscard]] std::span<const char* const> lastNames();
[[nodiscard]] std::span<const char* const> streets();
[[nodiscard]] std::span<const char* const> cities();
[[nodiscard]] std::span<const char* const> subdivisions();
[[nodiscard]] std::span<const char* const> builders();
[[nodiscard]] std::span<const char* const> plans();
[[nodiscard]] std::span<const char* const> paymentNotes();
[[nodiscard]] std::span<const char* const> employeeNotes();
/// Service calls are named by what is done, to what, and where.
[[nodiscard]] std::span<const char* const> serviceActions();
[[nodiscard]] std::span<const char* const> serviceItems();
[[nodiscard]] std::span<const char* const> serviceRooms();

} // namespace tarnwell::sample::words
