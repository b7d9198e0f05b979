#include "setup/settings/Employees.h"

namespace quillary::setup {

std::vector<EmployeeRow> ListEmployees(Business& business) {
  std::vector<EmployeeRow> employees;
  for (const Record row :
       business.RunSQL(Sql("SELECT Employee_ID, Employee_Name FROM Employees; ")))
    if (const auto id = row[u"Employee_ID"].ToId<Employee>())
      employees.push_back({*id, row[u"Employee_Name"].ToText()});
  return employees;
}

std::optional<Refusal> CheckNewEmployee(const QString& name) {
  if (!name.trimmed().isEmpty()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter the name of the person!"), QStringLiteral("name")};
}

Id<Employee> AddEmployee(Business& business, const QString& name) {
  return business.InsertReturningKey<Employee>(
      Sql("INSERT INTO Employees (Employee_Name) VALUES ({}); ", name));
}

EmployeeRemoval RemoveEmployee(Business& business, Prompter& prompter,
                               std::optional<Id<Employee>> employee) {
  if (!employee)
    return {Refusal{QStringLiteral("Please select an employee to remove."), {}}, false};
  if (ListEmployees(business).size() <= 1)
    return {Refusal{QStringLiteral("You cannot remove the last employee on the list."), {}}, false};
  for (const char* question :
       {"Removing an employee can have serious effects, like orphan jobs or services. It is "
        "recommended that you leave employees in the system. Continue?",
        "Are you REALLY sure you want to remove this employee?"})
    if (prompter.AskBeforeLosing(QString::fromLatin1(question)) != Answer::Yes) return {};
  business.Write(Sql("DELETE FROM Employees WHERE Employee_ID = {}; ", *employee),
                 Rows::Exactly(1));
  business.values.defaultEmployee =
      business.FirstField(Sql("SELECT MIN(Employee_ID) FROM Employees; ")).ToId<Employee>();
  return {std::nullopt, true};
}

}  // namespace quillary::setup
