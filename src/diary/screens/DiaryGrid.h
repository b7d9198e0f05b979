#pragma once

#include "diary/DiaryDay.h"
#include "kit/GridColumns.h"
#include "lists/Choices.h"

/// How the diary's entries stand in its table.
namespace quillary::diary {

enum DiaryColumn {
  kMark,
  kSequence,
  kEntry,
  kDisplayName,
  kAddress,
  kPhones,
  kDate,
  kServices,
  kPrice,
  kStatus,
  kEmployee,
  kRowCommands,
};

/// `rowCommands` keeps room at the right for the buttons of each row.
std::vector<GridColumn> DiaryColumns(bool rowCommands);
/// The statuses that may be given by hand, of all kinds of entry or of one.
std::vector<GridChoice> DiaryStatusChoices(std::optional<EntryKind> kind = {});
std::vector<GridChoice> EmployeeChoices(const std::vector<lists::Choice<Employee>>& employees);
GridRow DiaryGridRow(const DiaryRow& row);

/// What the hues mean, for the legend.
struct DiaryLegend {
  Hue hue;
  QString meaning;
};
std::vector<DiaryLegend> DiaryLegends();

}  // namespace quillary::diary
