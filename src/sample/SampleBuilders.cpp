#include "sample/SampleBuilders.h"

#include "sample/SampleWords.h"

#include <algorithm>

namespace tarnwell::sample {

namespace {

constexpr int groupList = 5;
/// Master tasks of 50 characters leave no space for an option's text behind them.
constexpr int longestBaseName = 35;

/// A price of its own: a builder pays some percent more or less, to the half dollar.
int haggled(SampleRandom& random, int cents) {
    return cents * random.between(85, 125) / 100 / 50 * 50;
}

QString builderName(SampleRandom& random, int index) {
    const auto names = words::builders();
    if (index < static_cast<int>(names.size()))
        return QString::fromUtf8(names[static_cast<std::size_t>(index)]);
    static constexpr const char* kinds[] = {"Homes", "Construction", "Custom Builders", "Development"};
    QString name = QString::fromUtf8(random.pick(words::lastNames()));
    name += QStringLiteral(" & ") + QString::fromUtf8(random.pick(words::lastNames()));
    return name + QLatin1Char(' ') + QString::fromLatin1(random.pick(kinds));
}

qint64 writeBuilder(SampleTables& tables, SampleRandom& random, int index) {
    // A second address line is rare; both ways of having none occur in a grown database.
    const Value second = index % 4 == 1   ? Value(QStringLiteral("Suite %1").arg(random.between(100, 480)))
                         : index % 4 == 2 ? Value::null()
                                          : Value("");
    return tables.builder.add({builderName(random, index),
                               QStringLiteral("%1 %2")
                                   .arg(random.between(100, 9900))
                                   .arg(QLatin1String(random.pick(words::streets()))),
                               second, QString::fromLatin1(random.pick(words::cities())), "TX",
                               QStringLiteral("7%1").arg(random.between(5000, 9998)),
                               index % 5 == 3
                                   ? Value::null()
                                   : Value(QStringLiteral("BLD-%1").arg(random.between(100000, 999999)))});
}

Plan writePlan(SampleTables& tables, SampleRandom& random, const Catalogue& catalogue, qint64 builderKey,
               const char* name) {
    Plan plan{.name = QString::fromLatin1(name), .tasks = {}};
    plan.key = tables.plan.add({builderKey, plan.name});
    for (const MasterTask& master : catalogue.tasks) {
        if (random.chance(30))
            continue;
        PlanTask task{.master = &master, .cents = haggled(random, master.cents)};
        task.key = tables.planTask.add({plan.key, master.key, master.codeKey, master.name, money(task.cents),
                                        master.custom, master.excluded});
        plan.tasks.push_back(task);
        if (plan.tasks.size() % 17 == 0)
            tables.taskOption.add({task.key, "oversize", money(task.cents / 4)});
    }
    return plan;
}

OptionGroup writeGroup(SampleTables& tables, SampleRandom& random, const Catalogue& catalogue,
                       qint64 builderKey, const words::GroupOffer& offer) {
    OptionGroup group{.name = QString::fromLatin1(offer.name), .rows = {}};
    const qint64 codeKey = tables.code.add({groupList, builderKey, group.name, false});
    std::vector<const MasterTask*> fitting;
    for (const MasterTask& master : catalogue.tasks)
        if (std::ranges::find(offer.trades, master.trade) != offer.trades.end() &&
            master.name.size() <= longestBaseName)
            fitting.push_back(&master);
    for (int wanted = random.between(2, 4); wanted > 0; --wanted) {
        const auto chosen = fitting.begin() + random.below(static_cast<int>(fitting.size()));
        const MasterTask& master = **chosen;
        fitting.erase(chosen);
        group.rows.push_back({.master = &master, .cents = haggled(random, 4000 + master.cents / 5)});
        tables.optionGroup.add(
            {builderKey, codeKey, master.key, money(group.rows.back().cents), master.excluded});
    }
    return group;
}

} // namespace

std::vector<Builder> writeBuilders(SampleTables& tables, SampleRandom& random, const Scale& scale,
                                   const Catalogue& catalogue) {
    std::vector<Builder> builders;
    const auto planNames = words::plans();
    const auto offers = words::optionGroups();
    for (int i = 0; i < scale.builders; ++i) {
        Builder builder{.key = writeBuilder(tables, random, i), .plans = {}, .groups = {}};
        const int first = random.below(static_cast<int>(planNames.size()));
        for (int p = 0; p < scale.plansPerBuilder; ++p)
            builder.plans.push_back(
                writePlan(tables, random, catalogue, builder.key,
                          planNames[static_cast<std::size_t>(first + p) % planNames.size()]));
        for (int g = 0; g < 3; ++g)
            builder.groups.push_back(writeGroup(tables, random, catalogue, builder.key,
                                                offers[static_cast<std::size_t>(i + g) % offers.size()]));
        builders.push_back(std::move(builder));
    }
    return builders;
}

} // namespace tarnwell::sample
