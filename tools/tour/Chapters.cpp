#include "tour/Chapters.h"

#include <array>

namespace tarnwell::tour {

std::span<const Chapter> chapters() {
    static constexpr std::array<Chapter, 3> all{{
        {"A payment, with each of its three warnings", payWithEveryWarning},
        {"A payment corrected", correctPayment},
        {"A new price in the catalogue, carried into plans and open jobs", raiseMasterPrice},
    }};
    return all;
}

} // namespace tarnwell::tour
