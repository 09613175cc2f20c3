#include "tour/Chapters.h"

#include <array>

namespace tarnwell::tour {

std::span<const Chapter> chapters() {
    static constexpr std::array<Chapter, 5> all{{
        {"A payment, with each of its three warnings", payWithEveryWarning},
        {"A payment corrected", correctPayment},
        {"A job of a new lot, filled from a plan and with an option group", startJob},
        {"A new price in the catalogue, carried into plans and open jobs", raiseMasterPrice},
        {"Every report, saved as a PDF", printEveryReport},
    }};
    return all;
}

} // namespace tarnwell::tour
