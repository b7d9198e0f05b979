#include "base/ports/requests/Screens.h"
#include "gui/GuiTest.h"
#include "kit/DateField.h"

#include <QPointer>
#include <QRegularExpression>
#include <QTimer>

/// docs/keystrokes.md, typed row by row.
namespace quillary {
namespace {

struct Task {
  QString what;
  QStringList keys;
  int presses = 0;
  QString endsAt;
};

std::vector<Task> ReadTasks() {
  QFile file(QUILLARY_KEYSTROKES);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  static const QRegularExpression token("`([^`]+)`");
  std::vector<Task> tasks;
  for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
    const QStringList cells = line.split('|');
    if (cells.size() != 6 || !cells[2].contains('`')) continue;
    Task task{cells[1].trimmed(), {}, cells[3].toInt(), token.match(cells[4]).captured(1)};
    for (auto match = token.globalMatch(cells[2]); match.hasNext();)
      task.keys += match.next().captured(1);
    tasks.push_back(task);
  }
  return tasks;
}

/// A key with its modifiers; nothing for letters to type.
std::optional<QKeyCombination> AsKey(const QString& token) {
  static const QRegularExpression key("^((Ctrl|Alt|Shift)\\+.+|Enter|Tab|Esc|Down|Up|F\\d+)$");
  if (!token.contains(key)) return std::nullopt;
  const QKeySequence keys(token == "Enter" ? "Return" : token);
  return keys[0];
}

class KeystrokesTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    Start();
    Business& business = program->OpenBusiness();
    business.RunSQL(
        Sql("UPDATE Diary SET Status = 'J', Payment_ID = NULL, Invoice_ID = NULL WHERE "
            "Schedule_Date = {}",
            Today()));
    business.RunSQL(
        Sql("INSERT INTO Clients (Display_Name, Status) VALUES ('Zelda Zimmer', 'Active')"));
    if (auto* splash = Window().findChild<QWidget*>("MainMenuMDI_Splash")) splash->close();
  }

  QDate Today() { return outside.clock.Today(); }
  qint64 CountDone() {
    return program->OpenBusiness()
        .FirstField(
            Sql("SELECT COUNT(*) FROM Diary WHERE Status <> 'J' AND Schedule_Date = {}", Today()))
        .ToLong();
  }
  QDate DayShown() {
    return Find<DateField>(Find<Screen>(&Window(), "frmDiary"), "dtFrom")->Date();
  }

  /// From the diary as it stands on its day, with the keys in its list. The name of the dialog that
  /// the last key opened, and of the screen in front when it opened none.
  QString Type(const Task& task) {
    QString dialog;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
      auto* open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!open || !open->isVisible()) return;
      dialog = open->objectName();
      open->done(QDialog::Rejected);
    });
    watch.start(100);
    int presses = 0;
    for (const QString& token : task.keys) {
      const auto key = AsKey(token);
      presses += key ? 1 : int(token.size());
      // What the search offers takes the keys while it shows.
      QWidget* offers = QApplication::activePopupWidget();
      if (key)
        QTest::keyClick(offers ? offers : QApplication::focusWidget(), key->key(),
                        key->keyboardModifiers());
      else
        TypeKeys(token);
      QTest::qWait(250);  // a button pressed by its letter clicks a moment later
    }
    EXPECT_EQ(presses, task.presses) << task.what.toStdString();
    return dialog.isEmpty() ? Window().CurrentScreen()->objectName() : dialog;
  }
};

TEST_F(KeystrokesTest, EveryTaskTakesTheKeysThatAreWrittenDown) {
  const std::vector<Task> tasks = ReadTasks();
  ASSERT_EQ(tasks.size(), 10U);
  qint64 done = CountDone();
  for (const Task& task : tasks) {
    navigator.Open(OpenDiary{});
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    QTest::qWait(20);
    const QString at = Type(task);
    if (task.endsAt == "one more done") {
      EXPECT_EQ(CountDone(), done + 1) << task.what.toStdString();
    } else if (task.endsAt == "one less done") {
      EXPECT_EQ(CountDone(), done - 1) << task.what.toStdString();
    } else if (task.endsAt == "the next day") {
      EXPECT_GT(DayShown(), Today()) << task.what.toStdString();
      PressKey(Qt::Key_Home, Qt::AltModifier);
    } else {
      EXPECT_EQ(at, task.endsAt) << task.what.toStdString();
    }
    done = CountDone();
  }
}

}  // namespace
}  // namespace quillary
