#include "lists/Divisions.h"

namespace quillary::lists {
namespace {

std::optional<Refusal> CheckDivision(const DivisionForm& form) {
  if (!form.name.trimmed().isEmpty()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter the division name."), QStringLiteral("name")};
}

}  // namespace

std::vector<ListedDivision> ListDivisions(Business& business) {
  std::vector<ListedDivision> divisions;
  for (const Record row : business.RunSQL(Sql("SELECT * FROM Divisions ORDER BY Division_Name;"))) {
    divisions.push_back({Id<Division>(row[u"Division_ID"].ToLong()), row[u"Division_Name"].ToText(),
                         row[u"Nature_Of_Business"].ToText()});
  }
  return divisions;
}

std::optional<Refusal> InsertDivision(Business& business, const DivisionForm& form) {
  if (std::optional<Refusal> refusal = CheckDivision(form)) return refusal;
  Transaction insertion(business);
  const qint64 next =
      business.FirstField(Sql("SELECT MAX(Division_ID) + 1 FROM Divisions;")).ToLong(1);
  business.Write(
      Sql("INSERT INTO Divisions (Division_ID, Division_Name, Nature_Of_Business) "
          "VALUES ({}, {}, {})",
          next, form.name, form.natureOfBusiness));
  insertion.Commit();
  return std::nullopt;
}

std::optional<Refusal> UpdateDivision(Business& business, std::optional<Id<Division>> division,
                                      const DivisionForm& form) {
  if (std::optional<Refusal> refusal = CheckDivision(form)) return refusal;
  if (!division) return Refusal{QStringLiteral("Please choose a record to update."), {}};
  business.Write(Sql("UPDATE Divisions SET Division_Name = {}, Nature_Of_Business = {} "
                     "WHERE Division_ID = {}",
                     form.name, form.natureOfBusiness, division),
                 Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeleteDivision(Business& business, std::optional<Id<Division>> division) {
  if (!division) return Refusal{QStringLiteral("Please choose a record to delete."), {}};
  business.Write(Sql("DELETE FROM Divisions WHERE Division_ID = {}", division), Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::lists
