#include "gui/Sweep.h"

#include "gui/Hand.h"
#include "kit/CurrencyField.h"
#include "kit/DateField.h"

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>

namespace quillary {

namespace {

constexpr int kMostMilliseconds = 20'000;
constexpr int kPatience = 50;  // with Esc
constexpr qsizetype kDeepest = 5;
const QString kOpenRow = QStringLiteral("the first row");

/// What leads back, chooses what is shown, or turns the pages of a document.
bool IsHarmless(const QString& window, const QString& button) {
  static const std::set<QString> kWaysBack = {"cmdClose", "cmdCancel", "btnClose", "cmdExit"};
  static const std::set<QString> kViewers = {"frmReportViewer", "wndReportPreview"};
  return kWaysBack.contains(button) || kViewers.contains(window) || button.startsWith("chk") ||
         button.startsWith("opt") || button.startsWith("qt_") || button == "CloseButton";
}

bool IsFilter(const QString& field) {
  return field.startsWith(QLatin1StringView("txtFilter")) ||
         field.startsWith(QLatin1StringView("txtFind")) ||
         field.startsWith(QLatin1StringView("txtSearch")) ||
         field.endsWith(QLatin1StringView("Filter")) || field.startsWith(QLatin1StringView("qt_"));
}

void MarkFirstRow(QTableView* list) {
  if (list->model()->rowCount() == 0) return;
  for (int column = 0; column < list->model()->columnCount(); ++column) {
    if (list->isColumnHidden(column)) continue;
    const QModelIndex cell = list->model()->index(0, column);
    if (cell.flags().testFlag(Qt::ItemIsUserCheckable)) {
      if (cell.data(Qt::CheckStateRole).toInt() == Qt::Unchecked)
        list->model()->setData(cell, Qt::Checked, Qt::CheckStateRole);
      continue;
    }
    return list->setCurrentIndex(cell);
  }
}

}  // namespace

Answer YesSayer::Ask(const QString& text, const QString&) {
  return text.contains(QLatin1StringView("exit from the system")) ? Answer::No : Answer::Yes;
}

void YesSayer::Tell(Tone, const QString& text, const QString&) {
  if (qEnvironmentVariableIsSet("SWEEP_TALKS"))
    fprintf(stderr, "    told: %s\n", text.toUtf8().constData());
}

std::optional<QString> YesSayer::AskText(const QString&, const QString&, const QString& current) {
  return current.isEmpty() ? QStringLiteral("12") : current;
}

Sweep::Sweep(shell::Program& program, CollectedErrors& errors)
    : program_(program), window_(*program.MainMenu()), errors_(errors) {}

void Sweep::Go(const QString& command) {
  CloseTabs();
  before_ = ContentsOf(program_.OpenBusiness());
  ways_ = {Way()};
  seen_ = wrote_;
  while (!ways_.empty()) {
    const Way way = ways_.front();
    ways_.pop_front();
    GoOne(command, way);
  }
}

void Sweep::GoOne(const QString& command, const Way& way) {
  name_ = (QStringList(command) + way).join(QStringLiteral(" > "));
  if (qEnvironmentVariableIsSet("SWEEP_TALKS"))
    fprintf(stderr, "  %s\n", name_.toUtf8().constData());
  way_ = way;
  pressed_ = command;
  wroteOnTheWay_.clear();
  at_ = 0;
  drives_ = 0;
  began_.start();
  used_.clear();
  program_.OpenBusiness().PastCommands().End();
  const Subscription steps =
      program_.OpenBusiness().PastCommands().OnChanged([this] { wroteOnTheWay_.insert(pressed_); });
  driving_ = true;
  Drive();
  window_.menuBar()->findChild<QAction*>(command)->trigger();
  Settle();
  UseScreen();
  CloseTabs();
  driving_ = false;
  const std::set<QString> wrote = wroteOnTheWay_;
  Judge(wrote);
}

void Sweep::UseScreen() {
  QWidget* used = nullptr;
  // A button may lead to another tab, where the way goes on.
  for (QWidget* screen = CurrentScreen(); screen && screen != used; screen = CurrentScreen()) {
    used = screen;
    const bool isEnd = at_ >= way_.size();
    UseFront(screen, false);
    Settle();
    if (isEnd) return;
  }
}

void Sweep::Judge(const std::set<QString>& wrote) {
  for (const QString& report : errors_.TakeReports())
    ADD_FAILURE() << name_.toStdString() << " reported: " << report.toStdString();
  Business& business = program_.OpenBusiness();
  const QStringList done = business.PastCommands().ToUndo();
  const auto commands = static_cast<int>(done.size());
  if (commands == 0) return Compare(before_, QStringLiteral("wrote what cannot be taken back"));
  const Contents after = ContentsOf(business);
  if (Difference(before_, after).empty()) return;
  wrote_.insert(wrote.begin(), wrote.end());
  Replay(false, commands);
  Compare(before_, QStringLiteral("taken back"));
  Replay(true, commands);
  Compare(after, QStringLiteral("done again"));
  Replay(false, commands);
  Compare(before_, QStringLiteral("taken back again"));
  before_ = ContentsOf(business);
}

void Sweep::Replay(bool again, int commands) {
  History& past = program_.OpenBusiness().PastCommands();
  for (int command = 0; command < commands; ++command) {
    const auto refusal = again ? past.Redo() : past.Undo();
    if (refusal) ADD_FAILURE() << name_.toStdString() << ": " << refusal->message.toStdString();
  }
}

void Sweep::Compare(const Contents& wanted, const QString& when) {
  const Contents is = ContentsOf(program_.OpenBusiness());
  const std::string difference = Difference(wanted, is);
  if (difference.empty()) return;
  ADD_FAILURE() << name_.toStdString() << ", " << when.toStdString() << ":\n"
                << difference.substr(0, 2000);
  before_ = is;
}

void Sweep::Drive() {
  if (!driving_) return;
  QTimer::singleShot(0, &window_, [this] { Drive(); });
  QWidget* front = Hand::Front(&window_);
  if (front == &window_) return;
  if (!Hand::IsActive(front) && drives_ % 20 != 19) {
    ++drives_;
    return front->activateWindow();
  }
  ++drives_;
  if (began_.hasExpired(kMostMilliseconds)) {
    driving_ = false;
    ADD_FAILURE() << name_.toStdString() << ": no way out of " << Hand::NameOf(front).toStdString();
    _exit(1);  // its loop would never come back
  }
  UseDialog(front);
}

void Sweep::UseDialog(QWidget* front) {
  const bool isSystems = front->windowType() == Qt::Popup || qobject_cast<QFileDialog*>(front) ||
                         front->inherits("QAbstractPrintDialog");
  const bool isUsed = std::ranges::find(used_, QPointer<QWidget>(front)) != used_.end();
  if (isUsed && drives_ > kPatience && drives_ % 2 == 0) {
    // It holds its user until something is put right, such as lines that do not match; what stores
    // without asking leads out of it.
    for (QAbstractButton* button : Hand::Buttons(front))
      if (button->objectName() == QLatin1StringView("cmdSaveOnly"))
        return QTest::mouseClick(button, Qt::LeftButton);
  }
  if (isSystems || isUsed) return Hand::Press(front, Qt::Key_Escape);
  const QString form = window_.Tools().runner.RunningForm();
  if (form == front->objectName()) return;  // at work
  used_.emplace_back(front);
  UseFront(front, true);
}

void Sweep::UseFront(QWidget* front, bool isDialog) {
  Prepare(front);
  while (at_ < way_.size()) {
    const QString next = way_[at_++];
    if (next.startsWith(u'#')) {
      if (!ShowPage(front, next.mid(1))) return;
      Prepare(front);
      continue;
    }
    for (QAbstractButton* button : Hand::Buttons(front)) {
      if (button->objectName() == next) return PressButton(front, button);
    }
    if (next == kOpenRow && !Hand::Lists(front).isEmpty()) {
      QTableView* list = Hand::Lists(front).first();
      list->setFocus();
      return Hand::Press(front, Qt::Key_Return);
    }
    return;  // it is gone, or cannot be pressed with what was filled in this time
  }
  LookAround(front);
  if (isDialog) PressMain(front);
}

void Sweep::PressButton(const QWidget* front, QAbstractButton* button) {
  pressed_ = front->objectName() + u'/' + button->objectName();
  QTest::mouseClick(button, Qt::LeftButton);
}

void Sweep::LookAround(QWidget* front) {
  if (way_.size() >= kDeepest) return;
  const auto add = [&](const QString& step) {
    if (seen_.insert(front->objectName() + u'/' + step).second)
      ways_.push_back(way_ + QStringList(step));
  };
  if (!Hand::Lists(front).isEmpty()) add(kOpenRow);
  for (const QAbstractButton* button : Hand::Buttons(front)) {
    const QString name = button->objectName();
    if (name.isEmpty() || IsHarmless(front->objectName(), name)) continue;
    add(name);
  }
  for (const QTabBar* bar : Hand::TabBars(front)) {
    for (int tab = 0; tab < bar->count(); ++tab) {
      // Counts stand behind the titles of pages.
      const QString title = bar->tabText(tab).section(QStringLiteral(" ("), 0, 0);
      if (!bar->isTabEnabled(tab) || tab == bar->currentIndex()) continue;
      add(u'#' + title);
    }
  }
}

bool Sweep::ShowPage(QWidget* front, const QString& title) {
  for (QTabBar* bar : Hand::TabBars(front)) {
    for (int tab = 0; tab < bar->count(); ++tab) {
      if (!bar->tabText(tab).startsWith(title)) continue;
      bar->setCurrentIndex(tab);
      Settle();
      return true;
    }
  }
  return false;
}

void Sweep::Prepare(QWidget* front) {
  for (QAbstractButton* button : Hand::Buttons(front)) {
    const bool isList = button->objectName() == QLatin1StringView("cmdList");
    const bool isTick = button->objectName().contains(QLatin1StringView("TickUntickAll"));
    if (isList || (isTick && !button->isChecked())) QTest::mouseClick(button, Qt::LeftButton);
  }
  for (QTableView* list : Hand::Lists(front)) MarkFirstRow(list);
  const auto combos = front->findChildren<QComboBox*>();
  for (QComboBox* combo : combos) {
    if (!combo->isVisible() || !combo->isEnabled() || combo->count() == 0) continue;
    if (combo->currentIndex() >= 0 && !combo->currentText().isEmpty()) continue;
    combo->setCurrentIndex(0);
    emit combo->activated(0);
  }
  bool isChanged = false;
  for (QLineEdit* field : Hand::Fields(front)) {
    if (IsFilter(field->objectName())) continue;
    if (auto* amount = qobject_cast<CurrencyField*>(field)) {
      if (amount->Amount() == Money()) {
        amount->setText(QStringLiteral("45"));
        emit amount->editingFinished();
      }
    } else if (!qobject_cast<DateField*>(field) && (field->text().isEmpty() || !isChanged)) {
      field->setFocus();
      field->end(false);
      Hand::Type(front, QStringLiteral("12"));
      isChanged = true;
    }
  }
}

void Sweep::PressMain(QWidget* front) {
  for (QAbstractButton* button : Hand::Buttons(front)) {
    if (button->property("kind").toString() != QLatin1StringView("main")) continue;
    return PressButton(front, button);
  }
  Hand::Press(front, Qt::Key_Escape);
}

QWidget* Sweep::CurrentScreen() const {
  const QWidget* page = Find<QTabWidget>(&window_, "tabs")->currentWidget();
  return page ? page->findChild<Screen*>() : nullptr;
}

void Sweep::CloseTabs() {
  auto* tabs = Find<QTabWidget>(&window_, "tabs");
  for (int left = tabs->count(); left > 0; --left) {
    emit tabs->tabCloseRequested(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

void Sweep::Settle() {
  for (int round = 0; round < 4; ++round) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
  }
}

}  // namespace quillary
