#include "diary/screens/DiaryGrid.h"

#include <QObject>

namespace quillary::diary {

namespace {

QString PaidMeaning() {
  return QStringLiteral("Paid (meaning the job has been added to a payment)");
}

}  // namespace

std::vector<GridColumn> DiaryColumns(bool rowCommands) {
  std::vector<GridColumn> columns = {
      {{}, ColumnKind::Mark, 36},
      {QStringLiteral("#"), ColumnKind::Number, 48, true},
      {{}, ColumnKind::HiddenId},
      {QObject::tr("Client"), ColumnKind::StrongText, 168},
      {QObject::tr("Address"), ColumnKind::Text, 208},
      {QObject::tr("Phone"), ColumnKind::Text, 176},
      {QObject::tr("Date"), ColumnKind::Date, 96},
      {QObject::tr("Services"), ColumnKind::Text, 104},
      {QObject::tr("Price"), ColumnKind::Money, 88},
      {QObject::tr("Status"), ColumnKind::Chip, 150, true},
      {QObject::tr("Employee"), ColumnKind::Choice, 120, true},
  };
  if (rowCommands) columns.push_back({{}, ColumnKind::Text, 312});
  return columns;
}

std::vector<GridChoice> DiaryStatusChoices(std::optional<EntryKind> kind) {
  using enum EntryStatus;
  std::vector<GridChoice> choices;
  for (const EntryStatus status :
       {JobOpen, JobDone, JobCancelled, VisitOpen, VisitDone, VisitCancelled, JobInvoiced}) {
    if (!kind || FactsOf(status).kind == kind) choices.push_back({status, ListedWordsOf(status)});
  }
  return choices;
}

std::vector<GridChoice> EmployeeChoices(const std::vector<lists::Choice<Employee>>& employees) {
  std::vector<GridChoice> choices;
  for (const auto& employee : employees) choices.push_back({employee.id, employee.words});
  return choices;
}

GridRow DiaryGridRow(const DiaryRow& row) {
  const bool paid = row.payment.has_value();
  QString status = ListedWordsOf(Folded(row.status));
  if (paid) status += QObject::tr(" · paid");
  const bool priceless = IsVisit(row.status) && row.totalPrice == Money();
  const QString nobody = row.employee ? QString() : QStringLiteral("—");
  Value price;
  if (!priceless) price = row.totalPrice;
  GridRow shown;
  shown.cells = {Value(),
                 row.sequence,
                 row.entry,
                 row.displayName,
                 row.address.simplified(),
                 row.phones,
                 row.scheduleDate,
                 row.description,
                 price,
                 GridCell(Folded(row.status), status),
                 GridCell(NumberOrZero(row.employee), nobody)};
  shown.hue = row.RowHue();
  if (paid) shown.note = PaidMeaning();
  return shown;
}

std::vector<DiaryLegend> DiaryLegends() {
  return {{Hue::Neutral, QObject::tr("Not done")},
          {Hue::Green, QObject::tr("Done")},
          {Hue::Yellow, QObject::tr("Visit")},
          {Hue::Red, QObject::tr("Cancelled")},
          {Hue::Blue, PaidMeaning()}};
}

}  // namespace quillary::diary
