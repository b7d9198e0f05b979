#pragma once

#include "data/Business.h"

#include <QString>

#include <vector>

/// What the combo lists of the scheduling screens offer.
namespace quillary::lists {

struct Choice {
  qint64 id = 0;
  QString words;
};

/// All clients, by display name.
std::vector<Choice> ListClientChoices(Business& business);
/// The catalogue of services, by name.
std::vector<Choice> ListServiceChoices(Business& business);
/// All employees in the order of their making, so that the first is the default one.
std::vector<Choice> ListEmployeeChoices(Business& business);
/// The ledger accounts that revenue can go to.
std::vector<Choice> ListRevenueAccountChoices(Business& business);

}  // namespace quillary::lists
