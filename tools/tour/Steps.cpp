#include "tour/Steps.h"

#include <algorithm>
#include <array>

namespace tarnwell::tour {

namespace {

int lineWith(Driver& driver, const QString& list, const QString& text) {
    const QStringList lines = driver.textOf(list).split(u'\n');
    const auto found =
        std::ranges::find_if(lines, [&text](const QString& line) { return line.contains(text); });
    if (found == lines.end())
        throw StepFailed(QStringLiteral("%1 does not show \"%2\"").arg(list, text));
    return static_cast<int>(found - lines.begin());
}

/// A step's texts, ready for use.
struct Words {
    QString what, text, column;
};

using Action = void (*)(Driver& driver, const Words& words);

/// In the order of `Do`.
constexpr std::array<Action, 13> actions{
    [](Driver& driver, const Words& words) { driver.seeWindow(words.what); },
    [](Driver& driver, const Words& words) { driver.seeText(words.what, words.text); },
    [](Driver& driver, const Words& words) { driver.press(QKeySequence(words.what)); },
    [](Driver& driver, const Words& words) { driver.type(words.what); },
    [](Driver& driver, const Words& words) { driver.click(words.what); },
    [](Driver& driver, const Words& words) { driver.clickToolbar(words.what); },
    [](Driver& driver, const Words& words) {
        driver.clickLine(words.what, lineWith(driver, words.what, words.text));
    },
    [](Driver& driver, const Words& words) {
        driver.doubleClickLine(words.what, lineWith(driver, words.what, words.text));
    },
    [](Driver& driver, const Words& words) {
        driver.clickCell(words.what, driver.rowOf(words.what, words.column, words.text), words.column);
    },
    [](Driver& driver, const Words& words) { driver.choose(words.what, words.text); },
    [](Driver& driver, const Words& words) {
        const QStringList size = words.what.split(u'x');
        driver.resizeFront({size.value(0).toInt(), size.value(1).toInt()});
    },
    [](Driver& driver, const Words& words) { driver.windowPicture(words.what); },
    [](Driver& driver, const Words& words) { driver.controlPicture(words.what, words.text); },
};

} // namespace

void take(Driver& driver, std::span<const Step> steps) {
    for (const Step& step : steps)
        actions.at(static_cast<std::size_t>(step.action))(driver, {.what = QLatin1String(step.what),
                                                                   .text = QLatin1String(step.text),
                                                                   .column = QLatin1String(step.column)});
}

} // namespace tarnwell::tour
