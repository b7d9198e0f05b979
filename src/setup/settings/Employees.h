#pragma once

#include "base/Id.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// Those who do the work. There is always one, since every entry of the diary is somebody's.
namespace quillary::setup {

struct EmployeeRow {
  Id<Employee> id;
  QString name;
};
std::vector<EmployeeRow> ListEmployees(Business& business);  // in the order of their numbers

/// Refuses a blank name.
std::optional<Refusal> CheckNewEmployee(const QString& name);
/// Throws WriteFailed.
Id<Employee> AddEmployee(Business& business, const QString& name);

/// Asks twice and takes the employee off the list; his jobs and services stay, and are nobody's.
/// The default employee becomes the first of the list. False when the user declined; refuses when
/// none is chosen and for the last one. Throws WriteFailed.
struct EmployeeRemoval {
  std::optional<Refusal> refusal;
  bool removed = false;
};
EmployeeRemoval RemoveEmployee(Business& business, Prompter& prompter,
                               std::optional<Id<Employee>> employee);

}  // namespace quillary::setup
