#include "lists/screens/frmHoliday.h"

#include "data/Holidays.h"
#include "kit/Combos.h"
#include "kit/Layouts.h"
#include "lists/HolidayUpkeep.h"

#include <QHBoxLayout>

namespace quillary::lists {

namespace {

enum HolidayColumn { kHolidayDayMonth, kHolidayHolId, kHolidayYear, kHoliday, kHolidayRecurring };

HolidayForm HolidayFormOf(const RecordFields& fields) {
  return {fields.Text("txtDayMonth"), fields.Text("txtYear"), fields.Text("txtHoliday"),
          fields.IsTicked("chkRecurring")};
}

std::vector<GridRow> HolidayRows(Business& business, int year) {
  std::vector<GridRow> rows;
  for (const ListedHoliday& holiday : ListHolidays(business, year)) {
    const GridCell yearCell = holiday.recurring ? GridCell(Value(), QObject::tr("Every year"))
                                                : GridCell(QString::number(holiday.year));
    rows.push_back(
        {{holiday.dayMonth, holiday.id, yearCell, holiday.description, holiday.recurring}});
  }
  return rows;
}

QWidget* MakeYearChoice() {
  auto* cboYear = Named(new QComboBox, "cboYear");
  auto* year = new QWidget;
  auto* line = new QHBoxLayout(year);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(8);
  line->addWidget(MakeLabelFor(cboYear, QObject::tr("Holidays of &the year")));
  line->addWidget(cboYear);
  return year;
}

}  // namespace

RecordList frmHoliday::HolidayList(Business& business, const std::shared_ptr<Shown>& shown) {
  return {
      .name = "frmHoliday",
      .title = QObject::tr("Holidays"),
      .gridName = QStringLiteral("fgHoliday"),
      .about = QStringLiteral(
          "Please note that jobs will not be scheduled on the date listed below but will be "
          "scheduled on the next available date that is not a holiday."),
      .hint = QStringLiteral(
          "The program needs to reschedule jobs to effect the changes you made here. Please go to "
          "Functions -> Reschedule..."),
      .emptyWhat = QObject::tr("No holidays are listed for this year."),
      .emptyNext = QObject::tr("Fill in day and month, and add the holiday."),
      .columns = {{QObject::tr("Day/month"), ColumnKind::Text, 104},
                  {{}, ColumnKind::HiddenId},
                  {QObject::tr("Year"), ColumnKind::Text, 104},
                  {QObject::tr("Holiday"), ColumnKind::StrongText, 256},
                  {QObject::tr("Recurs"), ColumnKind::Tick, 80}},
      .fields = {{"txtDayMonth", "dayMonth", QObject::tr("Day/&month, such as 25/12"),
                  FieldKind::DayAndMonth, kHolidayDayMonth, 5},
                 {"txtYear", "year", QObject::tr("&Year"), FieldKind::Digits, kHolidayYear, 4},
                 {"txtHoliday", "description", QObject::tr("Hol&iday"), FieldKind::Text, kHoliday,
                  50},
                 {"chkRecurring", "recurring", QStringLiteral("Occurs on this date e&very year"),
                  FieldKind::Tick, kHolidayRecurring}},
      .load =
          [&business, shown] {
            // The roll shall see a change at once, also while this screen stays open.
            LoadHolidaysIntoArray(business);
            return HolidayRows(business, shown->year);
          },
      .insert =
          [&business](const RecordFields& fields) {
            return InsertHoliday(business, HolidayFormOf(fields));
          },
      .update =
          [&business](std::optional<qint64> key, const RecordFields& fields) {
            return UpdateHoliday(business, IdFrom<Holiday>(key), HolidayFormOf(fields));
          },
      .remove =
          [&business](std::optional<qint64> key) {
            return DeleteHoliday(business, IdFrom<Holiday>(key));
          },
      .overList = MakeYearChoice,
      .settle =
          [](const RecordFields& fields) {
            fields.Enable("txtYear", !fields.IsTicked("chkRecurring"));
          },
  };
}

frmHoliday::frmHoliday(Business& business, const ScreenTools& tools)
    : frmHoliday(business, tools, std::make_shared<Shown>(Shown{business.Today().year()})) {}

frmHoliday::frmHoliday(Business& business, const ScreenTools& tools, std::shared_ptr<Shown> shown)
    : RecordListScreen(HolidayList(business, shown), tools, business.World()),
      business_(business),
      shown_(std::move(shown)) {
  cboYear = findChild<QComboBox*>(QStringLiteral("cboYear"));
  connect(cboYear, &QComboBox::activated, this, [this] {
    shown_->year = cboYear->currentText().toInt();
    ShowOthers();
  });
  connect(this, &RecordListScreen::loaded, this, &frmHoliday::FillYears);
  Reload();
}

void frmHoliday::FillYears() {
  EmptyCombo(cboYear);
  for (const int year : ListHolidayYears(business_)) cboYear->addItem(QString::number(year), year);
  SelectComboItem(cboYear, shown_->year);
}

}  // namespace quillary::lists
