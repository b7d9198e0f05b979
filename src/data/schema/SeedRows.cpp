#include "data/schema/SeedRows.h"

namespace quillary {
namespace {

struct CountrySeed {
  const char* name;
  const char* registrationName;  // "" for none
};

constexpr CountrySeed kCountries[] = {
    {"Australia", "ABN:"}, {"New Zealand", "GST:"}, {"UK", ""}, {"Canada", "GST:"}, {"U.S.", ""},
};

struct DivisionSeed {
  int id;
  const char* name;
  const char* nature;
};

// The numbers are shared with head office, gaps included.
constexpr DivisionSeed kDivisions[] = {
    {1, "Gardens", "Garden care"},
    {2, "Lawns", "Lawn mowing"},
    {3, "Windows", "Window cleaning"},
    {4, "Homes", "House cleaning"},
    {5, "Carpets", "Carpet cleaning"},
    {6, "Pools", "Pool care"},
    {7, "Dogs", "Dog washing"},
    {8, "Cars", "Car detailing"},
    {9, "Fences", "Fencing"},
    {10, "Paving", "Paving"},
    {11, "Painting", "Painting"},
    {12, "Tiles", "Tile and grout care"},
    {13, "Roofs", "Roof care"},
    {14, "Gutters", "Gutter cleaning"},
    {15, "Trees", "Tree care"},
    {16, "Handyman", "Repairs around the home"},
    {17, "Plumbing", "Plumbing"},
    {18, "Electrical", "Electrical work"},
    {19, "Antennas", "Antenna installation"},
    {20, "Ovens", "Oven cleaning"},
    {21, "Blinds", "Blind cleaning"},
    {22, "Rubbish", "Rubbish removal"},
    {23, "Pests", "Pest control"},
    {24, "Security", "Home security"},
    {26, "Computers", "Computer help"},
    {27, "Bookkeeping", "Bookkeeping"},
    {28, "Removals", "Removals"},
    {29, "Couriers", "Courier services"},
    {30, "Irrigation", "Irrigation"},
    {31, "Solar panels", "Solar panel cleaning"},
    {33, "Pressure washing", "Pressure washing"},
};

constexpr const char* kHolidays[][2] = {{"01/01", "New Years Day"}, {"25/12", "Christmas Day"}};

}  // namespace

std::vector<Sql> DivisionRows() {
  std::vector<Sql> rows;
  for (const DivisionSeed& division : kDivisions) {
    rows.emplace_back(
        "INSERT INTO Divisions (Division_ID, Division_Name, Nature_Of_Business) "
        "VALUES ({}, {}, {})",
        division.id, division.name, division.nature);
  }
  return rows;
}

QStringList DeliveredNaturesOfBusiness() {
  QStringList natures;
  for (const DivisionSeed& division : kDivisions) natures += QString::fromLatin1(division.nature);
  return natures;
}

std::vector<Sql> CountryRows() {
  std::vector<Sql> rows;
  for (const CountrySeed& country : kCountries) {
    rows.emplace_back("INSERT INTO Countries (Country_Name, Registration_Name) VALUES ({}, {})",
                      country.name, country.registrationName);
  }
  return rows;
}

std::vector<Sql> HolidayRows() {
  std::vector<Sql> rows;
  for (const auto& [date, description] : kHolidays) {
    rows.emplace_back(
        "INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring, Hol_Description) "
        "VALUES ({}, 0, True, {})",
        date, description);
  }
  return rows;
}

QString WindowDivisionName() {
  return QStringLiteral("Windows");
}

QString TermsOfTradeText() {
  return QStringLiteral("Please forward payment of [AMOUNT] within 7 days to:");
}

}  // namespace quillary
