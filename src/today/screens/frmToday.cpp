#include "today/screens/frmToday.h"

#include "base/Text.h"
#include "kit/Roles.h"
#include "today/screens/AgeBar.h"
#include "today/screens/Cards.h"
#include "today/screens/MonthChart.h"

#include <QLocale>
#include <QStyle>

/// What the figures of the screen say.
namespace quillary::today {

namespace {

/// Until nobody has written anything for a moment: the look at the schedule takes longer than all
/// other figures together.
constexpr int kCalm = 400;

size_t Size(int count) {
  return static_cast<size_t>(count);
}

QString WordsOf(const CountedMoney& counted, const char* one, const QString& more) {
  if (counted.count == 0) return {};
  return QStringLiteral("%1 %2 · %3")
      .arg(Counted(Size(counted.count), one), more, counted.amount.ToCurrencyText());
}

/// "yesterday 17:42", "3 days ago", "12 Sep 2026".
QString AgoWords(const DateTime& moment, QDate today) {
  const auto days = moment.date.daysTo(today);
  const QString time = moment.time.toString(QStringLiteral("HH:mm"));
  if (days <= 0) return QObject::tr("today %1").arg(time);
  if (days == 1) return QObject::tr("yesterday %1").arg(time);
  if (days < 14) return QObject::tr("%1 days ago").arg(days);
  return ToShortDateText(moment.date);
}

QString Takings(const accounts::UndepositedPayments& toBank) {
  const auto& [cash, cheques, cards] = toBank;
  QStringList parts;
  if (cash.total != Money()) parts += QObject::tr("%1 cash").arg(cash.total.ToCurrencyText());
  if (cheques.count > 0)
    parts += QStringLiteral("%1, %2").arg(Counted(Size(cheques.count), "cheque"),
                                          cheques.total.ToCurrencyText());
  if (cards.total != Money()) parts += QObject::tr("%1 by card").arg(cards.total.ToCurrencyText());
  return parts.join(QStringLiteral(" · "));
}

}  // namespace

frmToday::frmToday(Business& business, const ScreenTools& tools, const AttentionPlaces& places)
    : Screen(QStringLiteral("frmToday"), tr("Today")),
      business_(business),
      tools_(tools),
      places_(places) {
  MakeControls();
  LayOut();
  TakeColours();
  ConnectFigures();
  ConnectAttention();
  ConnectRun();
  setFocusProxy(cmdOpenDay);
  load_.setSingleShot(true);
  lookForProblems_.setSingleShot(true);
  connect(&load_, &QTimer::timeout, this, &frmToday::Load);
  connect(&lookForProblems_, &QTimer::timeout, this, &frmToday::LookForSchedulingProblems);
}

Tables frmToday::Shows() const {
  return {"Diary",     "Clients",         "Payments",  "Invoices",         "Bankings", "Purchases",
          "Suppliers", "Client_Services", "infSystem", "Printed_Invoices", "(outbox)"};
}

void frmToday::Reload() {
  isDue_ = true;
  load_.start(0);
}

void frmToday::showEvent(QShowEvent* event) {
  Screen::showEvent(event);
  if (isDue_) load_.start(0);
}

void frmToday::Load() {
  if (!isDue_ || !isVisible()) return;
  isDue_ = false;
  tools_.runner.Run(objectName(), QStringLiteral("LoadToday"), [this] {
    attention_ = LoadAttention(business_, places_);
    run_ = LoadFridayRun(business_, attention_, places_.mail);
    const JobsFigures day = LoadJobsFigures(business_, DateRange::Of(business_.Today()));
    ShowDay(day);
    ShowOwed(LoadOwed(business_));
    ShowYear(LoadYear(business_));
    ShowAttention();
    ShowRun();
  });
  lookForProblems_.start(kCalm);
}

void frmToday::LookForSchedulingProblems() {
  if (!isVisible()) return;
  tools_.runner.Run(objectName(), QStringLiteral("LookForSchedulingProblems"), [this] {
    problems_ = CountClientsWithSchedulingProblem(business_);
    ShowAttention();
  });
}

void frmToday::ShowDay(const JobsFigures& day) {
  lblToday->setText(tr("Today, %1 %2")
                        .arg(QLocale::c().dayName(day.days.from.dayOfWeek(), QLocale::ShortFormat),
                             ToShortDateText(day.days.from)));
  cmdDay->setText(day.jobs == 0 ? tr("No jobs today")
                                : QStringLiteral("%1   %2").arg(Counted(Size(day.jobs), "job"),
                                                                day.amount.ToCurrencyText()));
  QStringList parts;
  if (day.done > 0) parts += tr("%1 done").arg(day.done);
  if (day.invoiced > 0) parts += tr("%1 invoiced").arg(day.invoiced);
  if (day.open > 0) parts += tr("%1 to do").arg(day.open);
  lblDayParts->setText(parts.join(QStringLiteral(" · ")));
  lblDayParts->setVisible(!parts.isEmpty());
  rowNoEmployee->ShowWords(
      day.withoutEmployee == 0
          ? QString()
          : tr("%1 today without an employee").arg(Counted(Size(day.withoutEmployee), "job")));
}

void frmToday::ShowOwed(const OwedFigures& owed) {
  cmdOwed->setText(owed.total.ToCurrencyText());
  QString words =
      owed.clients == 0 ? tr("Nobody owes anything") : Counted(Size(owed.clients), "client");
  if (owed.since) words += tr(" · oldest since %1").arg(ToShortDateText(*owed.since));
  lblOwedBy->setText(words);
  barAges->ShowAges(owed.ages);
  for (size_t age = 0; age < owed.ages.size(); ++age)
    cmdAges_[age]->setText(WholeMoneyText(owed.ages[age]));
}

void frmToday::ShowYear(const YearFigures& year) {
  cmdMonth->setText(year.soFar.ToCurrencyText());
  const auto growth = year.Growth();
  const QDate before = business_.Today().addYears(-1);
  lblGrowth->setVisible(growth.has_value());
  lblGrowth->setProperty("tone",
                         growth && *growth < 0 ? QStringLiteral("down") : QStringLiteral("accent"));
  lblGrowth->style()->polish(lblGrowth);
  if (growth)
    lblGrowth->setText(tr("%1%2 % on %3 %4")
                           .arg(*growth > 0 ? QStringLiteral("+") : QString())
                           .arg(*growth)
                           .arg(QLocale::c().monthName(before.month(), QLocale::ShortFormat))
                           .arg(before.year()));
  lblGrowth->setToolTip(tr("%1 by that day a year ago").arg(year.soFarLastYear.ToCurrencyText()));
  cmdInvoiced->setText(tr("&invoiced %1").arg(year.ThisMonth().invoiced.ToCurrencyText()));
  cmdReceived->setText(tr("&received %1").arg(year.ThisMonth().received.ToCurrencyText()));
  chart->ShowMonths(year.months);
}

void frmToday::ShowAttention() {
  const AttentionFigures& of = attention_;
  const int problems = problems_.value_or(0);
  rowProblems->ShowWords(
      problems == 0 ? QString()
                    : tr("%1 with a scheduling problem").arg(Counted(Size(problems), "client")));
  rowDue->ShowWords(WordsOf(of.dueForInvoice, "job", tr("done, the invoice is due")));
  rowOverdue->ShowWords(WordsOf(of.overdue, "invoice", tr("unpaid over 30 days")));
  const QString takings = Takings(of.toBank);
  rowToBank->ShowWords(takings.isEmpty() ? QString() : tr("%1 not banked").arg(takings));
  rowCheques->ShowWords(WordsOf(of.chequesWritten, "cheque", tr("to suppliers not cleared")));
  rowMail->ShowWords(of.mailsInDoubt == 0 ? QString()
                                          : tr("%1 of which nobody knows whether it has left")
                                                .arg(Counted(Size(of.mailsInDoubt), "mail")));
  QString backup = tr("There is no backup yet.");
  if (of.lastBackup) {
    const QString ago = AgoWords(*of.lastBackup, business_.Today());
    backup = of.backupIsOld ? tr("Last backup: %1, which is more than a week ago").arg(ago)
                            : tr("Last backup: %1").arg(ago);
  }
  rowBackup->ShowWords(backup);
  const bool isQuiet = !of.backupIsOld && std::ranges::none_of(
                                              std::initializer_list<const QWidget*>{
                                                  rowProblems, rowNoEmployee, rowDue, rowOverdue,
                                                  rowToBank, rowCheques, rowMail},
                                              [](const QWidget* row) { return !row->isHidden(); });
  lblNothing->setVisible(isQuiet);
}

void frmToday::ShowRun() {
  struct Shown {
    StepRow* step;
    size_t left;
    QString words;
    bool waits = false;  // for the step before it
  };
  const JobsFigures& week = run_.week;
  const int marked = week.jobs - week.open;
  QString sent = run_.toMail.empty() ? QString() : tr("%1 by mail").arg(run_.toMail.size());
  if (run_.onPaper > 0)
    sent +=
        (sent.isEmpty() ? QString() : QStringLiteral(", ")) + tr("%1 on paper").arg(run_.onPaper);
  const bool isUnprinted = !run_.toPrint.empty();
  const Shown steps[] = {
      {stepDone, Size(week.open),
       week.jobs == 0 ? tr("no jobs in 7 days") : tr("%1 of %2 marked").arg(marked).arg(week.jobs)},
      {stepInvoice, Size(run_.waiting.jobs),
       run_.waiting.jobs == 0
           ? tr("all are billed")
           : QStringLiteral("%1, %2").arg(Counted(Size(run_.waiting.jobs), "job"),
                                          Counted(Size(run_.waiting.clients), "client"))},
      {stepDocuments, run_.toPrint.size(),
       run_.toPrint.empty() ? tr("all are made") : Counted(run_.toPrint.size(), "invoice")},
      {stepSend, run_.toMail.size(),
       !sent.isEmpty() ? sent
       : isUnprinted   ? tr("waits for documents")
                       : tr("all are sent"),
       isUnprinted && run_.toMail.empty()},
      {stepBank, Size(run_.ToBank()),
       run_.ToBank() == 0 ? tr("all is banked") : Takings(run_.toBank)}};
  bool isFirst = true;
  for (const Shown& shown : steps) {
    const bool isLeft = shown.left > 0;
    shown.step->ShowState(shown.waits ? StepRow::State::Waits
                          : !isLeft   ? StepRow::State::Done
                          : isFirst   ? StepRow::State::Next
                                      : StepRow::State::Open,
                          shown.words);
    if (isLeft) isFirst = false;
  }
}

}  // namespace quillary::today
