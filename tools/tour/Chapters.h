#pragma once

#include "tour/Driver.h"

#include <span>

namespace tarnwell::tour {

/// A piece of the work. It starts and ends with the main window in front and all other windows closed.
struct Chapter {
    const char* title;
    void (*run)(Driver& driver);
};

/// The whole tour, in its order.
[[nodiscard]] std::span<const Chapter> chapters();
/// The manual's pictures: every screen once.
[[nodiscard]] std::span<const Chapter> pictureChapters();
/// Mixed work that stores nothing in the end, to be done over and over.
[[nodiscard]] std::span<const Chapter> soakChapters();

void payWithEveryWarning(Driver& driver);
void correctPayment(Driver& driver);
void raiseMasterPrice(Driver& driver);
void startJob(Driver& driver);
void printEveryReport(Driver& driver);

} // namespace tarnwell::tour
