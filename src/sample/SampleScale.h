#pragma once

#include <QDate>
#include <QString>

#include <optional>
#include <span>

namespace tarnwell::sample {

/// The day on which all sample data stands, whatever the clock says: a seed gives the same file on any day.
inline const QDate baseDate(2026, 11, 1);
inline constexpr quint64 defaultSeed = 1;

/// How much of everything a sample holds.
struct Scale {
    const char* name;
    const char* use;
    int builders;
    int plansPerBuilder;
    int employees;
    int foremen;
    int inactive;
    int jobs; ///< Including the landmarks.
    int openJobs;
    int months;       ///< From the first job's start to the base date.
    int lotsPerJob;   ///< At most; ignored where totals are exact.
    int tasksPerLot;  ///< At most, options aside; ignored where totals are exact.
    bool exactTotals; ///< Lots, tasks and payments are dealt out to meet `totals`, landmarks included.
};

/// What the large sample holds exactly.
namespace totals {
inline constexpr int lotTasks = 500'000;
inline constexpr int payments = 1'000'000;
/// Unpaid tasks in open jobs that stem from the one master task named in the landmarks.
inline constexpr int finalTasks = 100'000;
/// Lots of completed jobs have this many tasks on average.
inline constexpr int tasksPerClosedLot = 4;
} // namespace totals

[[nodiscard]] std::span<const Scale> scales();
/// By name, nothing when there is none.
[[nodiscard]] std::optional<Scale> findScale(const QString& name);

/// The places of the large sample where one thing stands out; benchmarks look them up by these names.
struct Landmark {
    const char* where;   ///< A job number, or the name of a catalogue row.
    const char* jobName; ///< Null for a catalogue row.
    const char* what;
};

namespace landmark {
inline constexpr int lotsOfBigJob = 500;
inline constexpr int tasksOfBigLot = 5'000;
inline constexpr int tasksOfOptionLot = 200;
inline constexpr int optionsOfOptionLot = 60;
inline constexpr Landmark bigJob{"26-90001", "Prairie Crossing Master", "a job with 500 lots"};
inline constexpr Landmark bigLot{"26-90002", "Harbor Point Tower",
                                 "one lot with 5,000 tasks in one category"};
inline constexpr Landmark optionLot{"26-90003", "Summit Show Home", "one lot with 200 tasks and 60 options"};
inline constexpr Landmark bigCategory{"Service Calls", nullptr,
                                      "a catalogue category with 2,000 master tasks"};
inline constexpr Landmark finalTask{"Final walk-through touch-up", nullptr,
                                    "a master task behind 100,000 unpaid tasks of open jobs"};
} // namespace landmark

[[nodiscard]] std::span<const Landmark> landmarks();

} // namespace tarnwell::sample
