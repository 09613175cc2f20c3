#include "tour/Chapters.h"

#include <array>

namespace tarnwell::tour {

std::span<const Chapter> chapters() {
    static constexpr std::array<Chapter, 2> all{{
        {"A payment, with each of its three warnings", payWithEveryWarning},
        {"A payment corrected", correctPayment},
    }};
    return all;
}

} // namespace tarnwell::tour
