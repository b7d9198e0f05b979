#include "monkey/Monkey.h"

#include "domain/EntryStatus.h"
#include "gui/Hand.h"
#include "maintenance/CheckBusiness.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace quillary::monkey {

namespace {

constexpr int kStepsOfARound = 100;
/// Well below what the history keeps.
constexpr int kCommandsOfARound = 30;
constexpr int kStepsToTheWayOut = 200;

using Sums = std::map<qint64, Money>;

Sums SumsOf(Business& business, const Sql& statement) {
  Sums sums;
  for (const Record row : business.RunSQL(statement))
    sums[row[size_t{0}].ToLong()] = row[size_t{1}].ToMoney().Rounded(2);
  return sums;
}

/// Balances that are neither of the two that jobs and payments may come to: those of payments that
/// are recorded under a client who is billed to another count or not, by who was touched last.
std::set<QString> WrongBalances(Business& business) {
  const Sums jobs = SumsOf(
      business, Sql("SELECT Billing_Client_ID, SUM(Total_Price) FROM Diary INNER JOIN Clients "
                    "ON Diary.Client_ID = Clients.Client_ID WHERE ") +
                    IsInGroup("Diary.Status", EntryGroup::WorkDone) +
                    Sql(" GROUP BY Billing_Client_ID"));
  const Sums own =
      SumsOf(business, Sql("SELECT Client_ID, SUM(Amount) FROM Payments GROUP BY Client_ID"));
  const Sums ofGroup =
      SumsOf(business, Sql("SELECT Billing_Client_ID, SUM(Amount) FROM Payments INNER JOIN Clients "
                           "ON Payments.Client_ID = Clients.Client_ID GROUP BY Billing_Client_ID"));
  const auto at = [](const Sums& sums, qint64 client) {
    const auto found = sums.find(client);
    return found == sums.end() ? Money() : found->second;
  };
  std::set<QString> wrong;
  for (const auto& [client, kept] :
       SumsOf(business, Sql("SELECT Client_ID, Account_Balance FROM Clients "
                            "WHERE Billing_Client_ID = Client_ID"))) {
    const Money byOwn = at(own, client) - at(jobs, client);
    const Money byGroup = at(ofGroup, client) - at(jobs, client);
    if (kept == byOwn || kept == byGroup) continue;
    wrong.insert(QStringLiteral("The balance of client %1 is %2, jobs and payments come to %3")
                     .arg(client)
                     .arg(kept.ToCurrencyText(), byOwn.ToCurrencyText()));
  }
  return wrong;
}

std::set<QString> Findings(Business& business) {
  std::set<QString> words = WrongBalances(business);
  for (const maintenance::Finding& finding : maintenance::CheckTables(business))
    // What a deleted word leaves behind is told, and in order.
    if (!finding.isNote) words.insert(finding.table + QStringLiteral(": ") + finding.what);
  return words;
}

}  // namespace

Monkey::Monkey(unsigned seed, shell::Program& program, Steps& steps)
    : random_(seed), program_(program), window_(*program.MainMenu()), steps_(steps) {
  connect(&window_, &shell::MainMenuMDI::left, this,
          [this] { steps_.Find(QStringLiteral("The program was left")); });
  LeaveAlone();
}

void Monkey::Run(int seconds) {
  Business& business = program_.OpenBusiness();
  business.PastCommands().End();
  knownFindings_ = Findings(business);
  before_ = ContentsOf(business);
  history_ = business.PastCommands().OnChanged([this, &business] {
    steps_.AddSaid(QStringLiteral("    = ") + business.PastCommands().ToUndo().value(0));
  });
  milliseconds_ = qint64{1000} * seconds;
  clock_.start();
  Schedule();
  QApplication::exec();
}

void Monkey::Schedule() {
  // A timer for each step: one that is under way, deep in a dialog that it opened, would hold back
  // the next tick of a lasting one.
  QTimer::singleShot(Random(20) == 0 ? 30 : 0, this, [this] { Step(); });
}

bool Monkey::IsWorkUnderWay(const QWidget* front) {
  const QString form = window_.Tools().runner.RunningForm();
  return !form.isEmpty() && (front == &window_ || front->objectName() == form);
}

void Monkey::Step() {
  if (over_) return;
  Schedule();
  QWidget* front = Hand::Front(&window_);
  if (IsWorkUnderWay(front)) return;
  if (!Hand::IsActive(front) && ++waits_ < 20) return front->activateWindow();
  waits_ = 0;
  if (goingBack_ > 0) return GoBack(front);
  const auto commands = program_.OpenBusiness().PastCommands().ToUndo().size();
  if (clock_.hasExpired(milliseconds_) || commands >= kCommandsOfARound ||
      steps_.Count() - lastRound_ >= kStepsOfARound) {
    goingBack_ = 1;
    return;
  }
  Move(front);
}

void Monkey::GoBack(QWidget* front) {
  if (front == &window_) {
    goingBack_ = 0;
    Round();
    lastRound_ = steps_.Count();
    if (!clock_.hasExpired(milliseconds_)) return;
    over_ = true;
    return QCoreApplication::exit();  // quit() would ask before the window closes
  }
  if (++goingBack_ > kStepsToTheWayOut) {
    return steps_.Find(
        QStringLiteral("A dead end: neither Esc nor Enter nor a button leads out of %1 (%2)")
            .arg(Hand::NameOf(front), front->windowTitle()));
  }
  if (qobject_cast<QMessageBox*>(front)) return AnswerBox(front);
  // A payment that lacks its jobs holds its screen until it is told which; that is a button's
  // doing.
  if (goingBack_ > kStepsToTheWayOut / 8 && Random(3) == 0) return PutRight(front);
  const bool isEnter = Random(4) == 0 && !IsOfTheSystem(front);
  steps_.Add((isEnter ? QStringLiteral("Enter out of ") : QStringLiteral("Esc out of ")) +
             Hand::NameOf(front));
  Hand::Press(front, isEnter ? Qt::Key_Return : Qt::Key_Escape);
}

void Monkey::Round() {
  steps_.Add(QStringLiteral("-- check, take everything back, do it again"));
  CheckFile();
  Business& business = program_.OpenBusiness();
  History& past = business.PastCommands();
  const auto commands = static_cast<int>(past.ToUndo().size());
  const Contents after = ContentsOf(business);
  // A command that writes many steps of its own may have pushed the first ones out.
  const bool isWhole = commands < static_cast<int>(History::kKept);
  if (isWhole) {
    Replay(false, commands);
    Compare(before_, QStringLiteral("Taking everything back left:\n"));
    Replay(true, commands);
    Compare(after, QStringLiteral("Doing it again gave:\n"));
    replayed_ += commands;
  }
  past.End();
  before_ = after;
}

void Monkey::Compare(const Contents& wanted, const QString& what) {
  const std::string difference = Difference(wanted, ContentsOf(program_.OpenBusiness()));
  constexpr size_t kEnough = 4000;
  if (!difference.empty())
    steps_.Find(what + QString::fromStdString(difference.substr(0, kEnough)));
}

void Monkey::Replay(bool again, int commands) {
  History& past = program_.OpenBusiness().PastCommands();
  for (int command = 0; command < commands; ++command) {
    const auto refusal = again ? past.Redo() : past.Undo();
    if (refusal) steps_.Find(refusal->message);
  }
}

void Monkey::CheckFile() {
  for (const QString& finding : Findings(program_.OpenBusiness()))
    if (!knownFindings_.contains(finding)) steps_.Find(finding);
}

}  // namespace quillary::monkey
