#pragma once

#include "data/Business.h"

#include <QString>

#include <vector>

/// What the combo lists of the screens offer.
namespace quillary::lists {

template <NumberedRow Row>
struct Choice {
  Id<Row> id;
  QString words;
  QString beside = {};  // what tells namesakes apart: of a client the address
};

/// The rows of a statement about Clients that gives Client_ID, Display_Name and the address.
std::vector<Choice<Client>> ChoicesOfClients(const Recordset& clients);
/// The columns that it needs.
inline constexpr char kClientChoiceColumns[] =
    "Client_ID, Display_Name, Street_Number, Street, Suburb";

/// All clients, by display name.
std::vector<Choice<Client>> ListClientChoices(Business& business);
/// The catalogue of services, by name.
std::vector<Choice<Service>> ListServiceChoices(Business& business);
/// All employees in the order of their making, so that the first is the default one.
std::vector<Choice<Employee>> ListEmployeeChoices(Business& business);
/// All employees, by name.
std::vector<Choice<Employee>> ListEmployeesByName(Business& business);
/// The ledger accounts that revenue can go to.
std::vector<Choice<Account>> ListRevenueAccountChoices(Business& business);
/// The ledger accounts that expenses go to.
std::vector<Choice<Account>> ListExpenseAccountChoices(Business& business);

}  // namespace quillary::lists
