#include "setup/screens/frmEmployees.h"

#include "setup/settings/Employees.h"

namespace quillary::setup {

RecordList EmployeesList(Business& business) {
  return {
      .name = "frmEmployees",
      .title = QObject::tr("Employees"),
      .gridName = QStringLiteral("lstEmployees"),
      .about = QObject::tr("Those who do the work. Every job, visit and service is somebody's, so "
                           "an employee who left is better kept than removed."),
      .columns = {{QObject::tr("Employee"), ColumnKind::StrongText, 280},
                  {{}, ColumnKind::HiddenId}},
      .fields = {{"txtNewPerson", "name", QObject::tr("&Name of the person"), FieldKind::Text, 0,
                  50}},
      .load =
          [&business] {
            std::vector<GridRow> rows;
            for (const EmployeeRow& employee : ListEmployees(business))
              rows.push_back({{employee.name, employee.id}});
            return rows;
          },
      .insert = [&business](const RecordFields& fields) -> std::optional<Refusal> {
        const QString name = fields.Text("txtNewPerson").trimmed();
        if (auto refusal = CheckNewEmployee(name)) return refusal;
        AddEmployee(business, name);
        return std::nullopt;
      },
      .remove =
          [&business](std::optional<qint64> key) {
            return RemoveEmployee(business, business.World().prompter, IdFrom<Employee>(key))
                .refusal;
          },
      .insertCommand = {"cmdAdd", QObject::tr("&Add as new")},
      .deleteCommand = {"cmdRemove", QObject::tr("&Remove")},
  };
}

}  // namespace quillary::setup
