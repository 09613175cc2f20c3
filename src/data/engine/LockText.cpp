#include "data/engine/LockText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tarnwell::data {

namespace {

using std::string_view_literals::operator""sv;

constexpr std::array<std::pair<std::string_view, const char*>, 13> rowsOfTables{{
    {"CategoryDependency"sv, "dependencies"},
    {"Code"sv, "categories and groups"},
    {"Contractor"sv, "builders"},
    {"ContractorOptionGroup"sv, "option groups"},
    {"ContractorPlan"sv, "plans"},
    {"ContractorPlanTask"sv, "the tasks of plans"},
    {"Employee"sv, "employees"},
    {"EmployeeLog"sv, "the log of employees"},
    {"Job"sv, "jobs"},
    {"JobLot"sv, "lots"},
    {"JobLotTask"sv, "the tasks of lots"},
    {"JobTaskEmployee"sv, "payments"},
    {"MasterTask"sv, "master tasks"},
}};

/// The first quoted name: of the table that is written, or read to be written.
std::string_view firstTable(const QByteArray& sql) {
    const std::string_view text(sql.constData(), static_cast<std::size_t>(sql.size()));
    for (const std::string_view word : {"INTO "sv, "UPDATE "sv, "FROM "sv}) {
        const std::size_t found = text.find(word);
        if (found == std::string_view::npos)
            continue;
        const std::size_t begin = text.find_first_not_of("\"[", found + word.size());
        if (begin != std::string_view::npos)
            return text.substr(begin, text.find_first_of("\"] (", begin) - begin);
    }
    return {};
}

} // namespace

QString lockText(const QByteArray& sql) {
    const auto* const entry =
        std::ranges::find(rowsOfTables, firstTable(sql), &std::pair<std::string_view, const char*>::first);
    return entry == rowsOfTables.end()
               ? QStringLiteral("Somebody else is writing.")
               : QStringLiteral("Somebody else is changing %1.").arg(QLatin1String(entry->second));
}

} // namespace tarnwell::data
