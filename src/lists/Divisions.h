#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The group's lines of business. The owner's own one is infPersonalDetails.Division_ID.
namespace quillary::lists {

struct Division {
  qint64 divisionId = 0;
  QString divisionName;
  QString natureOfBusiness;
};

struct DivisionForm {
  QString divisionName;
  QString natureOfBusiness;
};

std::vector<Division> ListDivisions(Business& business);  // by name
/// The owner's own; empty when none is chosen.
QString OwnDivisionName(Business& business);

/// Each refuses a blank name. A new division gets the number after the highest.
std::optional<Refusal> InsertDivision(Business& business, const DivisionForm& form);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdateDivision(Business& business, std::optional<qint64> divisionId,
                                      const DivisionForm& form);
std::optional<Refusal> DeleteDivision(Business& business, std::optional<qint64> divisionId);

}  // namespace quillary::lists
