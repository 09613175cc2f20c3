#include "sample/SampleWords.h"

#include <array>

namespace tarnwell::sample::words {

namespace {

constexpr auto firsts = std::to_array<const char*>(
    {"Aaron",  "Alicia", "Andre",    "Angela", "Antonio", "Arturo", "Barry", "Beth",   "Brian",  "Carl",
     "Carlos", "Cesar",  "Curtis",   "Daniel", "Darrell", "Diego",  "Donna", "Dwayne", "Eddie",  "Elena",
     "Ernest", "Felipe", "Frank",    "Gary",   "Glenn",   "Hector", "Irene", "Jaime",  "Jerome", "Jesus",
     "Joel",   "Karen",  "Keith",    "Kevin",  "Larry",   "Leon",   "Luis",  "Manuel", "Marcus", "Marvin",
     "Miguel", "Nathan", "Oscar",    "Pablo",  "Patrick", "Pedro",  "Ramon", "Randy",  "Raul",   "Ricky",
     "Roger",  "Ruben",  "Salvador", "Shawn",  "Stella",  "Teresa", "Tomas", "Travis", "Victor", "Wesley"});

constexpr auto lasts = std::to_array<const char*>(
    {"O'Brien",    "Abbott",  "Acosta",    "Adkins",    "Aguilar",  "Barnes",  "Bauer",    "Beltran",
     "Bishop",     "Boyd",    "Bridges",   "Burke",     "Camacho",  "Carver",  "Castillo", "Chambers",
     "Cisneros",   "Cole",    "Conner",    "Crosby",    "Delgado",  "Dixon",   "Doyle",    "Duarte",
     "Dunn",       "Ellison", "Escobar",   "Estrada",   "Farrell",  "Fields",  "Figueroa", "Fletcher",
     "Frost",      "Fuentes", "Gaines",    "Gallegos",  "Garrett",  "Gibbs",   "Goodwin",  "Guerrero",
     "Hale",       "Hanson",  "Harmon",    "Herrera",   "Hobbs",    "Holt",    "Ibarra",   "Ingram",
     "Jimenez",    "Juarez",  "Keller",    "Kirby",     "Lambert",  "Landry",  "Leal",     "Lindsey",
     "Logan",      "Lozano",  "Maddox",    "Maldonado", "Marsh",    "Medina",  "Mercer",   "Montoya",
     "Mu\u00f1oz", "Naylor",  "Nolan",     "Ochoa",     "Olsen",    "Orozco",  "Osborn",   "Pacheco",
     "Parks",      "Pena",    "Pollard",   "Quintero",  "Ramsey",   "Rangel",  "Reese",    "Rhodes",
     "Robles",     "Rollins", "Rosales",   "Salinas",   "Sandoval", "Schmitt", "Sellers",  "Serrano",
     "Shelton",    "Slater",  "Solis",     "Stokes",    "Tanner",   "Terrell", "Tovar",    "Trevino",
     "Underwood",  "Vance",   "Vasquez",   "Villegas",  "Wagner",   "Walls",   "Weaver",   "Whitaker",
     "Yates",      "Zamora",  "Zimmerman", "Zuniga"});

constexpr auto streetNames = std::to_array<const char*>(
    {"Juniper Ln", "Copper Ridge Dr", "Mill Pond Rd", "Heron Way", "Quail Run", "Sandstone Ct",
     "Old Orchard Rd", "Whispering Pines Blvd", "Canyon View Dr", "Larkspur Ct", "Founders Ave",
     "Saddleback Trl", "Elm St", "Harvest Moon Dr", "Stonegate Pkwy", "Bluebonnet Ln"});

constexpr auto cityNames =
    std::to_array<const char*>({"Fairview", "Oakdale", "Cedar Grove", "Lakeside", "Millbrook", "Red Bluff",
                                "Pleasant Hill", "Riverton"});

constexpr auto subdivisionNames = std::to_array<const char*>(
    {"Willow Creek", "Prairie Crossing", "Harbor Point", "Stone Canyon", "Eagle's Nest", "Meadow Brook",
     "Sunset Ridge", "The Preserve", "Autumn Chase", "Silver Lakes", "Hidden Valley", "Tanglewood"});

constexpr auto builderNames = std::to_array<const char*>(
    {"Cedar Hollow Homes", "O'Brien & Sons Builders", "Maple Ridge Construction", "Northgate Custom Homes",
     "Bluestem Communities", "Harlan Brothers Building Company of Great Fairview", "Keystone Residential",
     "Two Rivers Development", "Summit Built"});

constexpr auto planNames = std::to_array<const char*>(
    {"Aspen 1450", "Birch 1620", "Cypress 1780", "Dogwood 1900", "Elmwood 2050", "Fairmont 2240",
     "Glenwood 2480", "Hawthorne 2700", "Ironwood 3100", "Sycamore Executive Two-Storey"});

constexpr auto notesOfPayments = std::to_array<const char*>(
    {"First half, balance after inspection", "Foreman's OK by phone", "Left side only", "Finished early",
     "Extra trip for missing material\nSee work order", "Helper paid separately", "Redo of damaged corner"});

constexpr auto notesOfEmployees = std::to_array<const char*>(
    {"Own truck and tools.", "W-4: two allowances, extra 20.00 a week.", "Speaks Spanish and English.",
     "No ladder work over 20 feet.", "Call mornings only.\nEmergency contact on file."});

constexpr auto actions = std::to_array<const char*>(
    {"Adjust", "Caulk", "Clean", "Patch", "Realign", "Refinish", "Repair", "Replace", "Reset", "Seal"});
constexpr auto items = std::to_array<const char*>(
    {"baseboard", "cabinet door", "casing", "ceiling",      "closet shelf", "corner bead", "counter edge",
     "door",      "door stop",    "drawer", "drywall seam", "floor board",  "grout",       "handrail",
     "hinge",     "mirror",       "screen", "threshold",    "window sill",  "window trim"});
constexpr auto rooms = std::to_array<const char*>(
    {"basement", "bath", "bedroom", "den", "dining room", "entry", "garage", "hall", "kitchen", "laundry"});

} // namespace

std::span<const char* const> firstNames() {
    return firsts;
}
std::span<const char* const> lastNames() {
    return lasts;
}
std::span<const char* const> streets() {
    return streetNames;
}
std::span<const char* const> cities() {
    return cityNames;
}
std::span<const char* const> subdivisions() {
    return subdivisionNames;
}
std::span<const char* const> builders() {
    return builderNames;
}
std::span<const char* const> plans() {
    return planNames;
}
std::span<const char* const> paymentNotes() {
    return notesOfPayments;
}
std::span<const char* const> employeeNotes() {
    return notesOfEmployees;
}
std::span<const char* const> serviceActions() {
    return actions;
}
std::span<const char* const> serviceItems() {
    return items;
}
std::span<const char* const> serviceRooms() {
    return rooms;
}

} // namespace tarnwell::sample::words
