#include "sample/SampleWords.h"

#include <array>

namespace tarnwell::sample::words {

namespace {

using Offers = TaskOffer;

constexpr auto framing = std::to_array<Offers>({{"Frame first floor walls", 185000},
                                                {"Frame second floor walls", 142000},
                                                {"Set floor joists", 96000},
                                                {"Set roof trusses", 118000},
                                                {"Sheath roof deck", 74000},
                                                {"Frame garage", 62000},
                                                {"Frame stairs", 28500},
                                                {"Back framing and blocking", 17500}});
constexpr auto roofingTrim = std::to_array<Offers>({{"Fascia and soffit", 58000},
                                                    {"Drip edge", 12500},
                                                    {"Gable vents", 9500},
                                                    {"Gutters", 41000},
                                                    {"Chimney flashing", 16500},
                                                    {"Ridge vent", 14000}});
constexpr auto siding = std::to_array<Offers>({{"Lap siding, front", 46000},
                                               {"Lap siding, sides and rear", 98000},
                                               {"House wrap", 22000},
                                               {"Shutters", 8500},
                                               {"Corner boards", 15000},
                                               {"Stone veneer, front entry", 87500}});
constexpr auto openings = std::to_array<Offers>({{"Set windows", 52000},
                                                 {"Set exterior doors", 24500},
                                                 {"Set sliding door", 13000},
                                                 {"Garage door opening trim", 11000},
                                                 {"Weatherstrip", 6500}});
constexpr auto insulation = std::to_array<Offers>({{"Wall batts", 38000},
                                                   {"Attic blow-in", 44000},
                                                   {"Sill seal and foam", 9000},
                                                   {"Vapor barrier", 12000}});
constexpr auto drywall = std::to_array<Offers>({{"Hang drywall", 124000},
                                                {"Tape and bed", 98000},
                                                {"Texture walls", 46000},
                                                {"Texture ceilings", 39000},
                                                {"Garage drywall", 33000},
                                                {"Arches and niches", 18500},
                                                {"Drywall scrap-out", 0}});
constexpr auto painting = std::to_array<Offers>({{"Prime interior", 42000},
                                                 {"Paint walls", 88000},
                                                 {"Paint ceilings", 36000},
                                                 {"Paint trim and doors", 57000},
                                                 {"Paint exterior body", 94000},
                                                 {"Paint exterior trim", 38000},
                                                 {"Stain front door", 9500},
                                                 {"Paint garage interior", 27500}});
constexpr auto interiorTrim =
    std::to_array<Offers>({{"Hang interior doors", 48000},
                           {"Base and casing", 76000},
                           {"Crown molding", 52500},
                           {"Closet shelving", 21000},
                           {"Stair rail and balusters", 67000},
                           {"Window sills", 19000},
                           {"Built-in bookcases with adjustable shelf and doors", 84500}});
constexpr auto cabinets = std::to_array<Offers>({{"Set kitchen cabinets", 72000},
                                                 {"Set bath vanities", 31000},
                                                 {"Kitchen counter tops", 54000},
                                                 {"Cabinet hardware", 8500},
                                                 {"Laundry cabinets", 16500},
                                                 {"Kitchen island", 29500}});
constexpr auto flooring = std::to_array<Offers>({{"Tile entry", 26000},
                                                 {"Tile baths", 58000},
                                                 {"Tile kitchen backsplash", 34500},
                                                 {"Hardwood, living areas", 112000},
                                                 {"Carpet bedrooms", 41000},
                                                 {"Vinyl laundry", 9500},
                                                 {"Transitions and thresholds", 4500}});
constexpr auto decks = std::to_array<Offers>({{"Front porch", 47000},
                                              {"Rear deck", 83000},
                                              {"Deck rail", 36500},
                                              {"Porch columns", 22000},
                                              {"Pergola", 61000}});
constexpr auto touchUp = std::to_array<Offers>({{"Final walk-through touch-up", 15000},
                                                {"Construction clean", 18500},
                                                {"Window wash", 9000},
                                                {"Punch list", 0},
                                                {"Warranty visit, first year", 12500}});

constexpr auto all = std::to_array<Trade>({{"Framing", framing},
                                           {"Roofing Trim", roofingTrim},
                                           {"Siding", siding},
                                           {"Windows and Doors", openings},
                                           {"Insulation", insulation},
                                           {"Drywall", drywall},
                                           {"Painting", painting},
                                           {"Interior Trim", interiorTrim},
                                           {"Cabinets", cabinets},
                                           {"Flooring", flooring},
                                           {"Decks and Porches", decks},
                                           {"Touch-Up", touchUp}});

constexpr auto after = std::to_array<Dependency>(
    {{1, 0}, {2, 0}, {3, 0}, {4, 3}, {5, 4}, {6, 5}, {7, 5}, {8, 6}, {9, 6}, {9, 8}, {11, 8}, {11, 9}});

constexpr auto kitchenTrades = std::to_array({8, 9});
constexpr auto patioTrades = std::to_array({0, 10});
constexpr auto trimTrades = std::to_array({7});
constexpr auto roomTrades = std::to_array({5, 6, 9});
constexpr auto garageTrades = std::to_array({0, 3, 5});
constexpr auto groups = std::to_array<GroupOffer>({{"Deluxe Kitchen", kitchenTrades},
                                                   {"Covered Patio", patioTrades},
                                                   {"Upgrade Trim", trimTrades},
                                                   {"Bonus Room", roomTrades},
                                                   {"Third Car Garage", garageTrades}});

} // namespace

std::span<const GroupOffer> optionGroups() {
    return groups;
}

std::span<const Trade> trades() {
    return all;
}
std::span<const Dependency> dependencies() {
    return after;
}

} // namespace tarnwell::sample::words
