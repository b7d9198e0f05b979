#include "shell/shots/Shots.h"

#include "data/schema/Schema.h"
#include "diary/screens/DiaryGrid.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "session/ProgramFolder.h"
#include "setup/demo/DemoBusiness.h"
#include "shell/ErrorDump.h"
#include "shell/Hands.h"
#include "shell/MainMenuMDI_Splash.h"
#include "shell/frmAbout.h"
#include "shell/frmODBCConnection.h"
#include "shell/frmSelectDatabaseToAccess.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

namespace quillary::shell {

namespace {

QString MakeDemo(const QString& folder, const Outside& outside) {
  const QString file = QDir(folder).filePath(QStringLiteral("DATA.MDB"));
  QFile::remove(file);
  CreateEmptyBusiness(file);
  Business business(outside, file);
  business.ConnectToDatabase();
  setup::WriteDemoBusiness(business);
  business.CloseConnection();
  return file;
}

}  // namespace

Shots::Shots(const QString& folder)
    : folder_(folder), program_(ports_.All(), ports_.navigator, session::ProgramFolder()) {}

void Shots::Store(const QPixmap& picture, const QString& name) {
  ++number_;
  if (!wanted_.isEmpty() && !wanted_.contains(name)) return;
  made_ += name;
  const QString file =
      wanted_.isEmpty()
          ? QStringLiteral("%1-%2.png").arg(number_, 2, 10, QLatin1Char('0')).arg(name)
          : name + QStringLiteral(".png");
  picture.save(QDir(folder_).filePath(file));
}

void Shots::Save(QWidget* widget, const QString& name) {
  Hands::Settle();
  Store(widget->grab(), name);
}

void Shots::SaveWithOverlays(const QString& name) {
  Hands::Settle();
  QWidget* window = program_.MainMenu();
  QPixmap picture = window->grab();
  QPainter painter(&picture);
  for (QWidget* over : QApplication::topLevelWidgets()) {
    if (over == window || !over->isVisible()) continue;
    painter.drawPixmap(window->mapFromGlobal(over->mapToGlobal(QPoint(0, 0))), over->grab());
  }
  painter.end();
  Store(picture, name);
}

void Shots::Run(const QString& only) {
  const QString file = MakeDemo(session::ProgramFolder(), ports_.All());
  if (only.isEmpty()) StartUpScreens();
  program_.UseFile(file);
  if (!program_.Start({})) throw std::runtime_error("the start-up ended early");
  program_.MainMenu()->move(0, 0);
  program_.MainMenu()->resize(1280, 720);
  const std::pair<const char*, void (Shots::*)()> groups[] = {
      {"diary", &Shots::Diary},
      {"today", &Shots::Today},
      {"clients", &Shots::Clients},
      {"lists", &Shots::ScheduleLists},
      {"schedule", &Shots::ScheduleDialogs},
      {"invoices", &Shots::Invoices},
      {"payments", &Shots::Payments},
      {"documents", &Shots::Documents},
      {"reports", &Shots::Reports},
      {"accounts", &Shots::Accounts},
      {"quotes", &Shots::Quotes},
      {"setup", &Shots::SetupDialogs},
      {"menus", &Shots::Menus},
      {"dialogs", &Shots::Dialogs},
      {"boxes", &Shots::Boxes},
      {"mail", &Shots::Mails},
      {"help", &Shots::Help},
  };
  for (const auto& [name, shoot] : groups)
    if (only.isEmpty() || only == QLatin1StringView(name)) (this->*shoot)();
  for (const QString& name : wanted_)
    if (!made_.contains(name))
      throw std::runtime_error("no picture is named " + name.toStdString());
}

void Shots::SaveDialog(const std::function<void()>& open) {
  // Opening comes back when the dialog has closed, so that the picture is taken from within it.
  QTimer::singleShot(50, program_.MainMenu(), [this] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    if (auto* grid = dialog->findChild<Grid*>()) grid->SelectFirst();
    auto* pages = dialog->findChild<QTabWidget*>();
    for (int page = 0; page < (pages ? pages->count() : 1); ++page) {
      if (pages) pages->setCurrentIndex(page);
      Save(dialog,
           dialog->objectName() + (page > 0 ? QStringLiteral("-%1").arg(page + 1) : QString()));
    }
    dialog->done(QDialog::Rejected);
  });
  open();
}

void Shots::StartUpScreens() {
  frmSelectDatabaseToAccess select(ports_.All(), session::ProgramFolder());
  select.show();
  Save(&select, QStringLiteral("frmSelectDatabaseToAccess"));
  select.close();
  frmStartUp progress;
  progress.Start();
  for (int step = 0; step < 7; ++step) progress.Advance();
  Save(&progress, QStringLiteral("frmStartUp"));
  progress.close();
}

void Shots::Diary() {
  QWidget* window = program_.MainMenu();
  if (auto* splash = window->findChild<QWidget*>(QStringLiteral("MainMenuMDI_Splash"))) {
    SaveWithOverlays(QStringLiteral("MainMenuMDI_Splash"));
    splash->close();
    Hands::Settle();
  }
  auto* grid = window->findChild<Grid*>(QStringLiteral("grdSchedule"));
  Save(window, QStringLiteral("frmDiary"));

  grid->setCurrentIndex(grid->model()->index(3, diary::kStatus));
  grid->edit(grid->currentIndex());
  Save(window, QStringLiteral("frmDiary-editing-status"));
  Hands::Press(grid->viewport()->findChild<QComboBox*>(), Qt::Key_Escape);

  auto* filter = window->findChild<QLineEdit*>(QStringLiteral("txtFilter"));
  filter->setText(QStringLiteral("no such client"));
  Save(window, QStringLiteral("frmDiary-filtered-empty"));
  filter->clear();

  auto* from = window->findChild<DateField*>(QStringLiteral("dtFrom"));
  window->findChild<DateField*>(QStringLiteral("dtTo"))->SetDate(from->Date().addDays(6));
  window->findChild<QRadioButton*>(QStringLiteral("optShowJobsBetween"))->click();
  Save(window, QStringLiteral("frmDiary-week"));

  Hands::Press(from, Qt::Key_F4);
  SaveWithOverlays(QStringLiteral("frmDiary-calendar"));
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  window->findChild<QRadioButton*>(QStringLiteral("optShowJobsOn"))->click();

  window->resize(853, 480);
  Save(window, QStringLiteral("frmDiary-at-150-percent"));
  window->resize(1280, 720);
}

void Shots::Menus() {
  MainMenuMDI* window = program_.MainMenu();
  const auto shoot = [&](auto& self, QMenu* menu, const QPoint& place) -> void {
    menu->popup(place);
    SaveWithOverlays(QStringLiteral("menu-") + menu->objectName());
    for (QAction* action : menu->actions()) {
      if (!action->menu()) continue;
      const QRect entry = menu->actionGeometry(action);
      self(self, action->menu(), menu->mapToGlobal(entry.topRight()));
    }
    menu->close();
  };
  for (QAction* action : window->menuBar()->actions()) {
    if (!action->menu()) continue;
    const QRect entry = window->menuBar()->actionGeometry(action);
    shoot(shoot, action->menu(), window->menuBar()->mapToGlobal(entry.bottomLeft()));
  }
  auto* find = window->findChild<QLineEdit*>(QStringLiteral("txtFind"));
  window->activateWindow();
  Hands::Settle();
  find->setFocus();
  for (const int key : {Qt::Key_R, Qt::Key_E}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(key)).toLower());
    QApplication::sendEvent(find, &press);
  }
  SaveWithOverlays(QStringLiteral("command-search"));
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  find->clear();
}

void Shots::Dialogs() {
  frmAbout about;
  about.show();
  Save(&about, QStringLiteral("frmAbout"));
  frmODBCConnection connection(ports_.All(), session::ProgramFolder());
  connection.show();
  Save(&connection, QStringLiteral("frmODBCConnection"));

  ErrorReport report;
  report.errorLine = QStringLiteral("Error: 3021 - No current record for the field Client_ID");
  report.form = QStringLiteral("frmDiary");
  report.procedure = QStringLiteral("LoadScheduleGrid");
  report.activeForm = QStringLiteral("frmDiary");
  report.activeControl = QStringLiteral("grdSchedule");
  report.time = DateTime(QDate(2026, 11, 2), QTime(9, 30));
  frmErrorHandler errors(ports_.prompter, ports_.desktop, ports_.settings, ports_.navigator,
                         {"support@example.org", {}, {}, "https://www.example.org/"});
  errors.ShowDump(QStringLiteral("No current record for the field Client_ID"),
                  BuildErrorDump(report));
  errors.show();
  Save(&errors, QStringLiteral("frmErrorHandler"));
  errors.findChild<QPushButton*>(QStringLiteral("cmdErrorDetails"))->click();
  Save(&errors, QStringLiteral("frmErrorHandler-details"));
}

void Shots::Boxes() {
  const auto shoot = [this](const QString& name) {
    QTimer::singleShot(0, qApp, [this, name] {
      QWidget* box = QApplication::activeModalWidget();
      Save(box, name);
      box->close();
    });
  };
  shoot(QStringLiteral("box-question"));
  ports_.prompter.Ask(QStringLiteral("Are you sure you want to exit from the system?"),
                      SystemTitle());
  shoot(QStringLiteral("box-exclamation"));
  ports_.prompter.Tell(Tone::Exclamation, QStringLiteral("Please enter a valid date range."),
                       SystemTitle());

  // With every tab closed the frame says what to do next.
  MainMenuMDI* window = program_.MainMenu();
  window->findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
  Save(window, QStringLiteral("MainMenuMDI-no-screen"));
}

}  // namespace quillary::shell
