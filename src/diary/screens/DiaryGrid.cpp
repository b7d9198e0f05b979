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

std::vector<GridChoice> DiaryStatusChoices() {
  std::vector<GridChoice> choices;
  for (const char* code : {"J", "JD", "JC", "V", "VD", "VC", "JI"})
    choices.push_back({Value(code), DiaryStatusWords(QString::fromLatin1(code))});
  return choices;
}

std::vector<GridChoice> EmployeeChoices(const std::vector<lists::Choice<Employee>>& employees) {
  std::vector<GridChoice> choices;
  for (const auto& employee : employees) choices.push_back({employee.id, employee.words});
  return choices;
}

Hue HueOf(DiaryRowColour colour) {
  switch (colour) {
    case DiaryRowColour::Visit:
      return Hue::Yellow;
    case DiaryRowColour::Cancelled:
      return Hue::Red;
    case DiaryRowColour::Done:
      return Hue::Green;
    case DiaryRowColour::Paid:
      return Hue::Blue;
    default:
      return Hue::Neutral;
  }
}

GridRow DiaryGridRow(const DiaryRow& row) {
  const bool paid = row.Colour() == DiaryRowColour::Paid;
  QString status = DiaryStatusWords(row.ShownStatus());
  if (paid) status += QObject::tr(" · paid");
  const bool priceless = row.status.startsWith(u'V') && row.totalPrice == Money();
  const QString nobody = row.employeeId == 0 ? QStringLiteral("—") : QString();
  Value price;
  if (!priceless) price = row.totalPrice;
  GridRow shown;
  shown.cells = {row.sequence,
                 row.diaryId,
                 row.displayName,
                 row.address.simplified(),
                 row.phones,
                 row.scheduleDate,
                 row.description,
                 price,
                 GridCell(row.ShownStatus(), status),
                 GridCell(row.employeeId, nobody)};
  shown.hue = HueOf(row.Colour());
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
