#include "lists/Choices.h"

#include "domain/BillingWords.h"

namespace quillary::lists {
namespace {

// The first field is the key, the second the words.
template <NumberedRow Row>
std::vector<Choice<Row>> ChoicesOf(Business& business, const Sql& statement) {
  std::vector<Choice<Row>> choices;
  for (const Record row : business.RunSQL(statement)) {
    const auto id = row[size_t{0}].ToId<Row>();
    if (id) choices.push_back({*id, row[size_t{1}].ToText()});
  }
  return choices;
}

// By name.
std::vector<Choice<Account>> AccountChoicesOf(Business& business, AccountType type) {
  return ChoicesOf<Account>(business, Sql("SELECT GL_Account_ID, GL_Account_Name "
                                          "FROM General_Ledger_Accounts WHERE GL_Account_Type = {} "
                                          "ORDER BY GL_Account_Name; ",
                                          type));
}

}  // namespace

std::vector<Choice<Client>> ChoicesOfClients(const Recordset& clients) {
  std::vector<Choice<Client>> choices;
  for (const Record row : clients) {
    const QString street = row[u"Street_Number"].ToText() + u' ' + row[u"Street"].ToText();
    choices.push_back({Id<Client>(row[u"Client_ID"].ToLong()), row[u"Display_Name"].ToText(),
                       (street + u' ' + row[u"Suburb"].ToText()).simplified()});
  }
  return choices;
}

std::vector<Choice<Client>> ListClientChoices(Business& business) {
  return ChoicesOfClients(business.RunSQL(
      Sql("SELECT {} FROM Clients ORDER BY Display_Name; ", Sql(kClientChoiceColumns))));
}

std::vector<Choice<Service>> ListServiceChoices(Business& business) {
  return ChoicesOf<Service>(business,
                            Sql("SELECT Service_ID, Service FROM Services ORDER BY Service; "));
}

std::vector<Choice<Employee>> ListEmployeeChoices(Business& business) {
  return ChoicesOf<Employee>(
      business, Sql("SELECT Employee_ID, Employee_Name FROM Employees ORDER BY Employee_ID; "));
}

std::vector<Choice<Employee>> ListEmployeesByName(Business& business) {
  return ChoicesOf<Employee>(
      business, Sql("SELECT Employee_ID, Employee_Name FROM Employees ORDER BY Employee_Name; "));
}

std::vector<Choice<Account>> ListRevenueAccountChoices(Business& business) {
  return AccountChoicesOf(business, AccountType::Revenue);
}

std::vector<Choice<Account>> ListExpenseAccountChoices(Business& business) {
  return AccountChoicesOf(business, AccountType::Expense);
}

}  // namespace quillary::lists
