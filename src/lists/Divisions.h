#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The group's lines of business. The owner's own one is infPersonalDetails.Division_ID.
namespace quillary::lists {

struct ListedDivision {
  Id<Division> id;
  QString name;
  QString natureOfBusiness;
};

struct DivisionForm {
  QString name;
  QString natureOfBusiness;
};

std::vector<ListedDivision> ListDivisions(Business& business);  // by name

/// Each refuses a blank name. A new division gets the number after the highest.
std::optional<Refusal> InsertDivision(Business& business, const DivisionForm& form);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdateDivision(Business& business, std::optional<Id<Division>> division,
                                      const DivisionForm& form);
std::optional<Refusal> DeleteDivision(Business& business, std::optional<Id<Division>> division);

}  // namespace quillary::lists
