#pragma once

#include <functional>

namespace tarnwell {

/// The hourglass while a long operation runs; the default pointer again when the last one ends.
class HourGlass {
public:
    HourGlass();
    ~HourGlass();
    HourGlass(const HourGlass&) = delete;
    HourGlass& operator=(const HourGlass&) = delete;
};

/// The program installs what changes the pointer: called with true for the hourglass, false for the default.
void setMousePointerPresenter(std::function<void(bool)> presenter);

} // namespace tarnwell
