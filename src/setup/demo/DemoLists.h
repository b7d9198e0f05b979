#pragma once

#include <array>

/// The words of the demo business. All people, streets and firms are invented, and the telephone
/// numbers lie in ranges that nobody has.
namespace quillary::setup::demo {

struct Suburb {
  const char* name;
  const char* postCode;
};
/// In the order in which a day's round visits them.
inline constexpr std::array kSuburbs = {
    Suburb{"KEW", "3101"},          Suburb{"HAWTHORN", "3122"},    Suburb{"CAMBERWELL", "3124"},
    Suburb{"CANTERBURY", "3126"},   Suburb{"BALWYN", "3103"},      Suburb{"BALWYN NORTH", "3104"},
    Suburb{"SURREY HILLS", "3127"}, Suburb{"MONT ALBERT", "3127"}, Suburb{"GLEN IRIS", "3146"},
    Suburb{"ASHBURTON", "3147"},    Suburb{"BURWOOD", "3125"},     Suburb{"BOX HILL", "3128"},
    Suburb{"BLACKBURN", "3130"},    Suburb{"FOREST HILL", "3131"}, Suburb{"NUNAWADING", "3131"},
    Suburb{"MITCHAM", "3132"},      Suburb{"VERMONT", "3133"},     Suburb{"RINGWOOD", "3134"}};

inline constexpr std::array kStreets = {
    "Wattlebird Gr",   "Banksia Rise",   "Old Quarry Rd", "Lorikeet Ave", "Tallowwood St",
    "Fernleigh Cres",  "Correa Ct",      "Hakea St",      "Magpie Lane",  "Silver Birch Dr",
    "Saltbush Pde",    "Creekline Rd",   "Grevillea Ave", "Kestrel Ct",   "Paperbark St",
    "Orchard Hill Rd", "Rosella Cres",   "Boronia Walk",  "Bellbird Tce", "Ironbark Cl",
    "Appleby Rise",    "Quince Tree Ln", "Melaleuca Way", "Currawong St"};

inline constexpr std::array kFirstNames = {
    "Anna",  "Grace",  "Dilip", "Ines",   "Quentin", "Mei",    "Jack",    "Wendy",
    "Zoë",   "Tomas",  "Priya", "Ruth",   "Bjørn",   "Amara",  "Callum",  "Elena",
    "Farid", "Gwen",   "Hugo",  "Imogen", "Jonas",   "Keiko",  "Liam",    "Marta",
    "Nadia", "Oscar",  "Paula", "Renée",  "Stefan",  "Tessa",  "Umberto", "Vera",
    "Will",  "Xanthe", "Yusuf", "José",   "Noëlle",  "Declan", "Bella",   "Frances"};

inline constexpr std::array kSurnames = {
    "O'Brien",  "Nguyen",    "Singh",      "Papadopoulos", "Müller",   "Harris",         "Brown",
    "Lee",      "Martin",    "Walker",     "D'Angelo",     "Kowalski", "Tanaka",         "Fraser",
    "Okafor",   "Jensen",    "McAllister", "Rossi",        "Haddad",   "Whitlock",       "Petrov",
    "Sørensen", "Castillo",  "Bennett",    "Ferreira",     "Chandra",  "Ó Súilleabháin", "Vogel",
    "Larkin",   "Marchetti", "Osborne",    "Yılmaz",       "Dubois",   "Hartigan",       "Quigley",
    "Stavrou",  "Underhill", "van Dijk",   "Abbott",       "Zielinski"};

inline constexpr std::array kCompanyWords = {"Fernhollow", "Tallbrook", "Quince & Daughter",
                                             "Saltgrove",  "Larkfield", "Birchwater",
                                             "Old Mill",   "Wrenfold",  "O'Mara's"};
inline constexpr std::array kCompanyKinds = {"Strata Management", "Body Corporate Services",
                                             "Property Care", "Retirement Village"};

inline constexpr std::array kClientNotes = {"Close the side gate, the dog gets out.",
                                            "Key hangs behind the meter box.",
                                            "Please ring on the way.",
                                            "Park in the lane, not across the drive.",
                                            "Don't mow the wildflower strip.",
                                            "Leave clippings for the compost."};
inline constexpr std::array kServiceNotes = {"Edges along the drive", "Front only",
                                             "Take clippings away", "Mind the sprinklers",
                                             "Catcher on, it's wet in winter"};

inline constexpr std::array kEmployees = {"Casey O'Hara", "Robin Vale", "Sam Tran"};
inline constexpr std::array kFrequencies = {7, 14, 21, 28, 42, 56, 84};
inline constexpr std::array kPaymentMethods = {"CASH",           "CHEQUE", "CREDIT CARD",
                                               "DIRECT DEPOSIT", "EFTPOS", "ADJUSTMENT"};
inline constexpr std::array kBanks = {"Harbourlight Mutual", "Corella Savings",
                                      "Wattlebird Credit Union", "Tallbrook Building Society"};

struct LedgerAccount {
  const char* name;
  const char* number;
  const char* type;
  int budget;  // a year, whole dollars
};
inline constexpr std::array kAccounts = {
    LedgerAccount{"Lawn and garden income", "4-1000", "Revenue", 92000},
    LedgerAccount{"Hedge and tree income", "4-1100", "Revenue", 24000},
    LedgerAccount{"Cleaning income", "4-1200", "Revenue", 18000},
    LedgerAccount{"Fuel and oil", "6-1000", "Expense", 5200},
    LedgerAccount{"Equipment repairs", "6-1100", "Expense", 2400},
    LedgerAccount{"Green waste and tip fees", "6-1200", "Expense", 3000},
    LedgerAccount{"Franchise fees", "6-1300", "Expense", 6600},
    LedgerAccount{"Insurance", "6-1400", "Expense", 1800},
    LedgerAccount{"Telephone and internet", "6-1500", "Expense", 1100},
    LedgerAccount{"Advertising", "6-1600", "Expense", 1500},
    LedgerAccount{"Mowers and equipment", "1-2000", "Asset", 0},
    LedgerAccount{"Vehicles and trailers", "1-2100", "Asset", 0}};

struct CatalogueService {
  const char* name;
  const char* code;
  int account;  // index into kAccounts
  bool regular;
  int lowPrice;  // whole dollars, tax included
  int highPrice;
};
inline constexpr std::array kServices = {
    CatalogueService{"Lawn mowing", "LM", 0, true, 45, 90},
    CatalogueService{"Hedge trimming", "HT", 1, true, 60, 160},
    CatalogueService{"Garden tidy", "GT", 0, true, 40, 95},
    CatalogueService{"Weed control", "WE", 0, true, 35, 70},
    CatalogueService{"Window cleaning", "WC", 2, true, 90, 220},
    CatalogueService{"Gutter cleaning", "GC", 2, false, 120, 240},
    CatalogueService{"Tree pruning", "TP", 1, false, 120, 350},
    CatalogueService{"Mulching", "MU", 0, false, 150, 320}};

struct DemoSupplier {
  const char* name;
  const char* contact;
  int account;  // index into kAccounts
  const char* item;
  int everyDays;
  int lowAmount;  // whole dollars, tax included
  int highAmount;
};
inline constexpr std::array kSuppliers = {
    DemoSupplier{"Pumphouse Fuels Mitcham", "Counter", 3, "Fuel for van and mowers", 7, 70, 135},
    DemoSupplier{"Blade & Bolt Mower Repairs", "Gus Whitby", 4, "Mower service", 42, 60, 240},
    DemoSupplier{"Ridgeline Transfer Station", "Gate", 5, "Green waste", 14, 45, 120},
    DemoSupplier{"Greenleaf Franchise Office", "Accounts", 6, "Monthly franchise fee", 30, 550,
                 550},
    DemoSupplier{"Lanternfish Insurance", "Policy desk", 7, "Public liability, monthly", 30, 148,
                 148},
    DemoSupplier{"Treetop Telecom", "Support", 8, "Mobile and internet", 30, 89, 89},
    DemoSupplier{"Letterbox Lane Printing", "Noor Aziz", 9, "Leaflets", 84, 110, 260}};

}  // namespace quillary::setup::demo
