#include "runtime/RunTime.h"

#include <QDateTime>

#include <utility>

namespace tarnwell {

namespace {

Clock& replacedClock() {
    static Clock clock;
    return clock;
}

} // namespace

bool IsDate(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Date:
        return true;
    case Value::Kind::Text:
        return dateFromText(value.toText()).isValid();
    default:
        return false;
    }
}

DateTime CDate(const Value& value) {
    return value.toDate();
}

DateTime Now() {
    if (replacedClock())
        return replacedClock()();
    // Stored moments know whole seconds only; a fraction would never compare equal again.
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date(), QTime(now.time().hour(), now.time().minute(), now.time().second())};
}

DateTime Today() {
    return {Now().date, QTime(0, 0)};
}

Clock setClock(Clock clock) {
    return std::exchange(replacedClock(), std::move(clock));
}

} // namespace tarnwell
