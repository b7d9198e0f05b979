#include "diary/screens/dlgMoveTo.h"

#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <QRadioButton>

#include <algorithm>

namespace quillary::diary {

namespace {

constexpr int kDaysShown = 14;

Entries Movable(const Entries& entries) {
  Entries movable;
  std::ranges::copy_if(entries, std::back_inserter(movable), CanMove);
  return movable;
}

Entries On(const Entries& entries, QDate day) {
  Entries on;
  std::ranges::copy_if(entries, std::back_inserter(on),
                       [day](const DiaryRow& entry) { return entry.scheduleDate == day; });
  return on;
}

/// "2 h 30 min"; nothing where no time was estimated.
QString DurationWords(int minutes) {
  if (minutes <= 0) return {};
  const int hours = minutes / 60;
  const int rest = minutes % 60;
  if (hours == 0) return QObject::tr("%1 min").arg(rest);
  return rest == 0 ? QObject::tr("%1 h").arg(hours)
                   : QObject::tr("%1 h %2 min").arg(hours).arg(rest);
}

}  // namespace

dlgMoveTo::dlgMoveTo(Business& business, const ScreenTools& tools, const Entries& marked,
                     const Entries& shown)
    : Dialog("dlgMoveTo", tr("Move to another day"), business.World().prompter),
      business_(business),
      marked_(Movable(marked)),
      undone_(Movable(On(shown, business.Today()))) {
  if (!HasSomethingToMove()) {
    if (!marked.empty())
      business_.World().prompter.Tell(Tone::Exclamation,
                                      tr("What is done, invoiced or cancelled stays on its day."));
    return;
  }
  MakeControls();
  LayOut();
  LoadDays();
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(grdDays, &Grid::rowOpened, cmdMove, &QPushButton::click);
  tools.runner.OnClick(cmdMove, objectName(), [this] { Move(); });
  grdDays->setFocus();
}

void dlgMoveTo::MakeControls() {
  optMarked = Named(new QRadioButton(tr("The &marked: %1").arg(CountedEntries(marked_))),
                    "optMarked", tr("The marked entries"));
  optUndone = Named(
      new QRadioButton(tr("&All of today that are not done: %1").arg(CountedEntries(undone_))),
      "optUndone", tr("All entries of today that are not done"));
  optUndone->setEnabled(!undone_.empty());
  optMarked->setChecked(true);
  grdDays = new Grid(QStringLiteral("grdDays"));
  grdDays->setAccessibleName(tr("Days to move to"));
  grdDays->SetColumns({{tr("Day"), ColumnKind::StrongText, 176},
                       {tr("Jobs there"), ColumnKind::Number, 88},
                       {tr("Estimated"), ColumnKind::Text, 104},
                       {tr("Holiday"), ColumnKind::Text, 160}});
  grdDays->setSortingEnabled(false);
  grdDays->setMinimumHeight(31 + 8 * 35);
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdMove = MakeButton("cmdMove", tr("M&ove"), ButtonKind::Main);
}

void dlgMoveTo::LayOut() {
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  column->addWidget(optMarked);
  column->addWidget(optUndone);
  column->addWidget(grdDays, 1);
  column->addWidget(
      MakeParagraph("lblRhythm", tr("Only these entries move; the services keep their rhythm.")));
  SetContent(column);
  SetRoom({600, 560});
  AddActions({cmdCancel, cmdMove});
}

void dlgMoveTo::LoadDays() {
  days_ = LoadNextDays(business_, business_.Today(), kDaysShown);
  std::vector<GridRow> rows;
  std::optional<int> firstFree;
  for (const DayLoad& load : days_) {
    GridRow row;
    row.cells = {load.day.toString(QStringLiteral("ddd d MMM yyyy")), static_cast<int>(load.jobs),
                 DurationWords(load.minutes), load.holiday};
    row.hue = load.holiday.isEmpty() ? Hue::None : Hue::Red;
    if (!firstFree && load.holiday.isEmpty()) firstFree = static_cast<int>(rows.size());
    rows.push_back(std::move(row));
  }
  grdDays->SetRows(std::move(rows));
  grdDays->SelectKey(firstFree.value_or(0));
}

void dlgMoveTo::Move() {
  const auto row = grdDays->SelectedRow();
  if (!row) return;
  const DayLoad& to = days_[static_cast<size_t>(*row)];
  if (!to.holiday.isEmpty() &&
      business_.World().prompter.Ask(tr("%1 is a holiday (%2). Move there all the same?")
                                         .arg(ToShortDateText(to.day), to.holiday)) != Answer::Yes)
    return;
  std::vector<Id<Entry>> entries;
  for (const DiaryRow& entry : optUndone->isChecked() ? undone_ : marked_)
    entries.push_back(entry.entry);
  MoveEntriesTo(business_, entries, to.day);
  Close(Accepted);
}

}  // namespace quillary::diary
