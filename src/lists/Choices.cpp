#include "lists/Choices.h"

namespace quillary::lists {
namespace {

// The first field is the key, the second the words.
std::vector<Choice> ChoicesOf(Business& business, const Sql& statement) {
  std::vector<Choice> choices;
  for (const Record row : business.RunSQL(statement)) {
    choices.push_back({row[size_t{0}].ToLong(), row[size_t{1}].ToText()});
  }
  return choices;
}

}  // namespace

std::vector<Choice> ListClientChoices(Business& business) {
  return ChoicesOf(business,
                   Sql("SELECT Client_ID, Display_Name FROM Clients ORDER BY Display_Name; "));
}

std::vector<Choice> ListServiceChoices(Business& business) {
  return ChoicesOf(business, Sql("SELECT Service_ID, Service FROM Services ORDER BY Service; "));
}

std::vector<Choice> ListEmployeeChoices(Business& business) {
  return ChoicesOf(business,
                   Sql("SELECT Employee_ID, Employee_Name FROM Employees ORDER BY Employee_ID; "));
}

std::vector<Choice> ListRevenueAccountChoices(Business& business) {
  return ChoicesOf(business, Sql("SELECT GL_Account_ID, GL_Account_Name "
                                 "FROM General_Ledger_Accounts WHERE GL_Account_Type = 'Revenue' "
                                 "ORDER BY GL_Account_Name; "));
}

}  // namespace quillary::lists
