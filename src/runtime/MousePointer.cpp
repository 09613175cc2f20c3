#include "runtime/MousePointer.h"

#include <utility>

namespace tarnwell {

namespace {

int running = 0;

std::function<void(bool)>& shownPointer() {
    static std::function<void(bool)> installed;
    return installed;
}

void show(bool hourGlass) {
    if (shownPointer())
        shownPointer()(hourGlass);
}

} // namespace

HourGlass::HourGlass() {
    if (running++ == 0)
        show(true);
}

HourGlass::~HourGlass() {
    if (--running == 0)
        show(false);
}

void setMousePointerPresenter(std::function<void(bool)> installed) {
    shownPointer() = std::move(installed);
}

} // namespace tarnwell
