#include "monkey/Monkey.h"

#include "gui/Hand.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace quillary::monkey {

namespace {

constexpr int kStepsOfARound = 100;
/// Well below what the history keeps.
constexpr int kCommandsOfARound = 30;
constexpr int kStepsToTheWayOut = 200;

std::set<QString> InWords(const std::vector<maintenance::Finding>& findings) {
  std::set<QString> words;
  for (const maintenance::Finding& finding : findings) {
    // Which references a deleted word leaves behind is told, and in order; a balance never is.
    if (finding.isNote && !finding.what.startsWith(QLatin1StringView("Account_Balance"))) continue;
    words.insert(finding.table + QStringLiteral(": ") + finding.what);
  }
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
  knownFindings_ = InWords(maintenance::CheckTables(business));
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
  if (goingBack_ > kStepsToTheWayOut / 8 && goingBack_ % 3 == 0) return ClickButton(front);
  const bool isEnter = goingBack_ % 4 == 3 && !IsOfTheSystem(front);
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
  for (const QString& finding : InWords(maintenance::CheckTables(program_.OpenBusiness())))
    if (!knownFindings_.contains(finding)) steps_.Find(finding);
}

}  // namespace quillary::monkey
