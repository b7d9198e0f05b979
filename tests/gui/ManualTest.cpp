#include "base/ports/requests/Help.h"
#include "gui/GuiTest.h"
#include "help/Manual.h"
#include "kit/Controls.h"
#include "kit/Shortcuts.h"
#include "shell/MenuTree.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QTextBrowser>
#include <QTimer>
#include <QWindow>

namespace quillary {
namespace {

using Kind = shell::MenuAction::Kind;

// Windows that a user never meets by name: the frame, and what belongs to it.
const QSet<QString> kUnexplained = {"frmManual"};

// How the sources give a window its name.
const char* const kNaming =
    R"re((?:setObjectName\(QStringLiteral\(|\bDialog\(|Screen\(|Screen\(QStringLiteral\(|)re"
    R"re(\.name = )"((?:frm|dlg)\w+)")re";

QString ReadAll(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

QSet<QString> AllMatches(const QString& text, const char* pattern) {
  const QRegularExpression expression{QString::fromLatin1(pattern)};
  QSet<QString> found;
  for (auto match = expression.globalMatch(text); match.hasNext();)
    found += match.next().captured(1);
  return found;
}

/// All sources of the manual, as written.
QString Written() {
  QString all;
  for (QDirIterator at(QUILLARY_MANUAL_SOURCE, {"*.md"}); at.hasNext();) all += ReadAll(at.next());
  return all;
}

/// The names that windows are given in the sources of the screens.
QSet<QString> NamesOfScreens() {
  QSet<QString> names;
  for (QDirIterator at(QUILLARY_SOURCE, {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
       at.hasNext();) {
    const QString path = at.next();
    if (!path.contains("/screens/") && !path.contains("/shell/")) continue;
    names += AllMatches(ReadAll(path), kNaming);
  }
  return names;
}

struct Listed {
  const shell::MenuEntry* entry;
  QString path;  // "Setup > Employees"
};

void CollectCommands(const std::vector<shell::MenuEntry>& entries, const QString& above,
                     std::vector<Listed>& commands, QSet<QString>& menus) {
  for (const shell::MenuEntry& entry : entries) {
    if (entry.action.kind == Kind::Separator) continue;
    const QString path = (above.isEmpty() ? "" : above + " > ") + PlainCaption(entry.caption);
    if (entry.action.kind == Kind::Submenu) {
      menus += path;
      CollectCommands(entry.entries, path, commands, menus);
    } else {
      commands.push_back({&entry, path});
    }
  }
}

class ManualTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    CollectCommands(shell::MenuTree(), {}, commands, menus);
  }

  QString ShownPlace() {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "frmManual" && window->isVisible())
        return Find<QTextBrowser>(window, "txtManual")->source().toString().section('/', -1);
    return {};
  }
  void BringForward() {
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  }

  const help::Manual manual{help::ManualFolder(QUILLARY_BIN)};
  std::vector<Listed> commands;
  QSet<QString> menus;
};

TEST_F(ManualTest, ExplainsEveryScreenAndCommandAndNothingElse) {
  QSet<QString> known = NamesOfScreens() - kUnexplained;
  ASSERT_GT(known.size(), 40) << "the names of the screens are not found any more";
  known += "frmClients";  // is given its name by the header that its pages share
  for (const Listed& command : commands) {
    known += command.entry->name;
    if (*command.entry->screen) known += command.entry->screen;
  }
  for (const QString& name : known)
    EXPECT_FALSE(manual.PlaceOf(name).isEmpty())
        << name.toStdString() << " is not explained. Write in a page of docs/manual what an owner "
        << "does with it and when, and put <a name=\"" << name.toStdString()
        << "\"></a> before it.";
  static const QRegularExpression ours("^(frm|dlg|mnu|mmu|cmd)");
  for (const QString& name : manual.Names())
    if (name.contains(ours)) {
      EXPECT_TRUE(known.contains(name) || kUnexplained.contains(name))
          << "docs/manual explains " << name.toStdString() << ", which the program does not have.";
    }
}

TEST_F(ManualTest, NamesCommandsAsTheMenuDoes) {
  const QString written = Written();
  const QSet<QString> told = AllMatches(written, R"re(\*\*([^*\n]+)\*\*)re");
  QSet<QString> paths = menus;
  for (const Listed& command : commands) {
    paths += command.path;
    EXPECT_TRUE(told.contains(command.path))
        << "No page of docs/manual holds **" << command.path.toStdString() << "**.";
  }
  for (const QString& path : told)
    if (path.contains(" > ")) {
      EXPECT_TRUE(paths.contains(path))
          << "docs/manual leads to " << path.toStdString() << ", which is not in the menu.";
    }
}

TEST_F(ManualTest, LinksLeadSomewhereAndEveryPageIsReached) {
  ASSERT_GT(manual.Passages().size(), 40U) << "the manual was not built";
  QSet<QString> places;
  for (const QString& name : manual.Names()) places += manual.PlaceOf(name);
  for (const help::Passage& passage : manual.Passages()) {
    EXPECT_TRUE(passage.place.contains('#'))
        << "The heading \"" << passage.title.toStdString() << "\" has no <a name=…></a>.";
    places += passage.place.section('#', 0, 0);
  }
  const QDir built(manual.Folder());
  for (const QString& page : built.entryList({"*.html"})) {
    EXPECT_TRUE(places.contains(page)) << "index.md does not lead to " << page.toStdString();
    for (const QString& link : AllMatches(ReadAll(built.filePath(page)), "href=\"([^\"]+)\""))
      EXPECT_TRUE(places.contains(link) || link.startsWith("http") || link == "manual.css")
          << page.toStdString() << " leads to " << link.toStdString() << ", which is nowhere.";
  }
}

TEST_F(ManualTest, ListsEveryKeyOnItsPageAndNoOther) {
  Start();
  outside.headOffice.letsIn = true;
  QSet<QString> live;
  const auto take = [&](const std::vector<ShortcutLine>& lines) {
    static const QRegularExpression mnemonic("^Alt\\+.$");
    for (const ShortcutLine& line : lines)
      if (!line.keys.contains(mnemonic)) live += line.keys;
  };
  take(Window().OwnShortcuts());
  take(ShortcutsEverywhere());
  for (const char* name : {"mnuClientsAddClient", "mnuReportsAssets"}) Command(name)->trigger();
  for (const auto& command : commands)
    if (*command.entry->screen && Command(command.entry->name)->isEnabled() &&
        QLatin1StringView(command.entry->screen).startsWith(QLatin1StringView("frm"))) {
      // What opens as a dialog is closed again at once.
      QTimer close;
      QObject::connect(&close, &QTimer::timeout, [] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
          dialog->done(QDialog::Rejected);
      });
      close.start(50);
      Command(command.entry->name)->trigger();
    }
  for (const Screen* screen : Window().findChildren<Screen*>()) take(ShortcutsOf(screen));
  Command("mnuHelpManual")->trigger();
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == "frmManual") take(ShortcutsOf(window));
  const QSet<QString> told =
      AllMatches(ReadAll(QUILLARY_MANUAL_SOURCE "/keys.md").section("## ", 1), "`([^`]+)`");
  for (const QString& keys : live)
    EXPECT_TRUE(told.contains(keys)) << "docs/manual/keys.md does not list " << keys.toStdString();
  for (const QString& keys : told)
    EXPECT_TRUE(live.contains(keys))
        << "docs/manual/keys.md lists " << keys.toStdString() << ", which does nothing.";
}

TEST_F(ManualTest, F1OpensItWhereTheUserIs) {
  Start();
  if (auto* splash = Window().findChild<QWidget*>("MainMenuMDI_Splash")) splash->close();
  for (const char* name :
       {"mnuToday", "mnuDiary", "mnuClientFindClient", "mnuInvoicesList",
        "mnuFinancialPaymentsReceived", "mnuFinancialBanking", "mnuFinancialPurchases",
        "mnuFinancialDebtors", "mnuHoliday", "mnuFinancialChequeReconciliation"}) {
    Command(name)->trigger();
    BringForward();
    const QString screen = Window().CurrentScreen()->objectName();
    PressKey(Qt::Key_F1);
    EXPECT_EQ(ShownPlace(), manual.PlaceOf(screen)) << name;
    EXPECT_TRUE(ShownPlace().endsWith('#' + screen)) << name;
  }
}

TEST_F(ManualTest, F1ExplainsTheMarkedCommandAndADialogThatWaits) {
  Start();
  BringForward();
  auto* menu = Find<QMenu>(&Window(), "mnuReports");
  menu->popup(QPoint(10, 10));
  menu->setActiveAction(Command("mnuReportsAssets"));
  QTest::keyClick(menu, Qt::Key_F1);
  EXPECT_TRUE(ShownPlace().endsWith("#mnuReportsAssets")) << ShownPlace().toStdString();
  EXPECT_FALSE(menu->isVisible());

  QTimer::singleShot(100, qApp, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QTest::keyClick(dialog, Qt::Key_F1);
    EXPECT_TRUE(ShownPlace().endsWith("#frmAbout")) << ShownPlace().toStdString();
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->objectName() == "frmManual") {
        EXPECT_EQ(window->windowHandle()->transientParent(), dialog->windowHandle())
            << "or the dialog would keep it from being used";
      }
    dialog->done(QDialog::Rejected);
  });
  Command("mnuHelpAboutQuillary")->trigger();
  EXPECT_TRUE(ShownPlace().endsWith("#frmAbout")) << "it stays when the dialog has gone";
}

TEST_F(ManualTest, SearchFindsPassagesAndLeadsThere) {
  Start();
  Command("mnuHelpFAQ")->trigger();
  EXPECT_EQ(ShownPlace(), "faq.html#faq");
  QWidget* window = nullptr;
  for (QWidget* top : QApplication::topLevelWidgets())
    if (top->objectName() == "frmManual") window = top;
  auto* find = Find<QLineEdit>(window, "txtFind");
  auto* lines = Find<QListWidget>(window, "lstPassages");
  const int contents = lines->count();
  EnterField(find);
  TypeKeys("coins");
  EXPECT_EQ(lines->count(), 1);
  PressKey(Qt::Key_Return);
  EXPECT_EQ(ShownPlace(), "week.html#frmBanking");
  TypeKeys(" no such thing");
  EXPECT_EQ(lines->count(), 0);
  EXPECT_TRUE(Find<QLabel>(window, "lblFound")->text().startsWith("Nothing found"));
  PressKey(Qt::Key_Escape);
  EXPECT_EQ(lines->count(), contents);
  PressKey(Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(ManualTest, WithoutABrowserTheAddressIsTold) {
  Start();
  outside.desktop.hasViewer = false;
  Command("mnuHelpIndex")->trigger();
  ASSERT_EQ(outside.desktop.opened.size(), 1);
  EXPECT_TRUE(outside.desktop.opened.first().endsWith("/manual/index.html"))
      << "the installed one, where no other is named";
  EXPECT_TRUE(outside.prompter.TakeTold().value(0).contains(outside.desktop.opened.first()));
}

}  // namespace
}  // namespace quillary
