#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "data/settings/PerUserSettings.h"
#include "session/ProgramFolder.h"
#include "setup/settings/Employees.h"
#include "setup/settings/StoredSettings.h"

#include <limits>

/// What the business is told about itself.
namespace quillary::cli {
namespace {

void AddSetting(ResultTable& table, Business& business, const LocalSettings& local,
                const setup::StoredSetting& setting) {
  table.AddRow(
      {QString::fromLatin1(setting.name), setup::ReadStoredSetting(business, local, setting)});
}

void RunSettings(const Call& call) {
  const QStringList& words = call.arguments.positional;
  const setup::StoredSetting* asked = nullptr;
  if (words.size() > 1) {
    asked = setup::FindStoredSetting(words.at(1));
    if (asked == nullptr)
      throw CommandFailure(QStringLiteral("there is no setting \"%1\"").arg(words.at(1)));
  }
  // Here the settings of the user are what is asked for, so they are the real ones.
  PerUserSettings user;
  const Outside ports = call.world.Ports();
  Business business({ports.clock, ports.prompter, ports.errors, ports.busy, user, ports.headOffice,
                     ports.desktop},
                    call.File());
  business.ConnectToDatabase();
  LocalSettings local(session::ProgramFolder(), call.world.prompter);
  if (words.size() > 2) ThrowIf(setup::WriteStoredSetting(business, local, *asked, words.at(2)));
  ResultTable table({"Setting", "Value"});
  for (const setup::StoredSetting& setting : setup::StoredSettings())
    if (asked == nullptr || asked == &setting) AddSetting(table, business, local, setting);
  business.CloseConnection();
  PrintTable(call, table);
}

void RunEmployee(const Call& call) {
  const bool adds = call.arguments.Has("add");
  const auto removed = call.arguments.Number("remove", 1, std::numeric_limits<qint32>::max());
  if (adds == removed.has_value())
    throw WrongUsage(QStringLiteral("employee needs either --add or --remove"));
  const auto business = OpenCurrentBusiness(call);
  if (adds) {
    const QString name = call.arguments.options.value(QStringLiteral("add")).trimmed();
    ThrowIf(setup::CheckNewEmployee(name));
    setup::AddEmployee(*business, name);
  } else {
    const setup::EmployeeRemoval removal =
        setup::RemoveEmployee(*business, call.world.prompter, Id<Employee>(*removed));
    ThrowIf(removal.refusal);
    if (!removal.removed)
      throw CommandFailure(QStringLiteral("nobody was removed; --yes allows it"));
  }
  ResultTable table({"Employee_ID", "Employee_Name"});
  for (const setup::EmployeeRow& employee : setup::ListEmployees(*business))
    table.AddRow({employee.id, employee.name});
  business->CloseConnection();
  PrintTable(call, table);
}

}  // namespace

std::vector<Command> SettingsCommands() {
  return {
      {"settings",
       "FILE [KEY [VALUE]]",
       "Lists the settings under their stored names, shows one, or stores one after the checks of "
       "its screen.",
       {},
       1,
       3,
       RunSettings},
      {"employee",
       "FILE --add NAME | --remove ID --yes",
       "Adds or removes an employee and lists those that there are.",
       {{"add", "NAME", "the name of a new one"}, {"remove", "ID", "the number of one who goes"}},
       1,
       1,
       RunEmployee},
  };
}

}  // namespace quillary::cli
