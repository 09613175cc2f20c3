#include "sample/SampleScale.h"

#include <algorithm>
#include <array>

namespace tarnwell::sample {

std::span<const Scale> scales() {
    static constexpr auto all = std::to_array<Scale>({
        {"small", "a dozen jobs to explore", 4, 3, 16, 3, 2, 12, 8, 14, 4, 30, false},
        {"office", "five years of a contractor with 40 workers", 9, 5, 52, 6, 12, 600, 60, 60, 3, 30, false},
        {"large", "100,000 jobs and a million payments", 250, 4, 20'000, 200, 2'000, 100'000, 40'000, 120, 0,
         0, true},
    });
    return all;
}

std::optional<Scale> findScale(const QString& name) {
    const auto all = scales();
    const auto found =
        std::ranges::find_if(all, [&](const Scale& scale) { return name == QLatin1String(scale.name); });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::span<const Landmark> landmarks() {
    static constexpr auto all =
        std::to_array<Landmark>({landmark::bigJob, landmark::bigLot, landmark::optionLot,
                                 landmark::bigCategory, landmark::finalTask});
    return all;
}

} // namespace tarnwell::sample
