#include "gui/DeskTest.h"

#include <QTimer>

namespace quillary {

void DeskTest::SetUp() {
  ProgramTest::SetUp();
  Start();
  if (auto* splash = Window().findChild<QWidget*>("MainMenuMDI_Splash")) splash->close();
  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
}

void DeskTest::Key(int key) {
  QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
}

void DeskTest::Keys(const QString& words) {
  QTest::keyClicks(QApplication::focusWidget(), words);
}

void DeskTest::TypeInto(const char* field, const QString& words) {
  On<QLineEdit>(field)->setFocus(Qt::TabFocusReason);
  QTest::qWait(20);
  Keys(words);
}

void DeskTest::Pick(const char* combo, const QString& words) {
  auto* control = On<QComboBox>(combo);
  control->setFocus(Qt::TabFocusReason);
  QTest::qWait(20);
  // One letter is enough for a short list, and a slow machine would take more for two searches.
  if (control->isEditable()) control->lineEdit()->selectAll();
  Keys(control->isEditable() ? words : words.left(1));
  EXPECT_EQ(control->currentText(), words) << combo;
}

void DeskTest::ShowPage(const QString& title) {
  auto* pages = On<QTabWidget>("pages");
  for (int at = 0; at < pages->count(); ++at)
    if (pages->tabText(at).startsWith(title))
      QTest::mouseClick(pages->tabBar(), Qt::LeftButton, {}, pages->tabBar()->tabRect(at).center());
  EXPECT_TRUE(pages->tabText(pages->currentIndex()).startsWith(title)) << title.toStdString();
}

void DeskTest::Then(const char* name, const std::function<void(QDialog&)>& use) {
  // A button that a key presses opens its dialog a moment later.
  auto* wait = new QTimer(qApp);
  wait->setInterval(20);
  QObject::connect(wait, &QTimer::timeout, qApp, [wait, name, use, left = 250]() mutable {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    const bool isThere = dialog && dialog->objectName() == QLatin1StringView(name);
    if (!isThere && --left > 0) return;
    wait->stop();
    wait->deleteLater();
    if (!isThere) {
      ADD_FAILURE() << name << " has not opened";
      if (dialog) dialog->done(QDialog::Rejected);
      return;
    }
    // A window counts as active while the one that it stands over is, which is too early for keys.
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == dialog; }));
    try {
      use(*dialog);
    } catch (const std::exception& failure) {
      ADD_FAILURE() << name << ": " << failure.what();
    }
    if (dialog->isVisible()) dialog->done(QDialog::Rejected);
  });
  wait->start();
}

qint64 DeskTest::CountJobs(const char* status) {
  return Run(Sql("SELECT COUNT(*) FROM Diary WHERE Client_ID = {} AND Status = {}", Number(),
                 status))
      .Field(size_t{0})
      .ToLong();
}

void DeskTest::NewClientByKeyboard() {
  Command("mnuClientsAddClient")->trigger();
  client = Find<Screen>(&Window(), "frmClients");
  ASSERT_EQ(QApplication::focusWidget(), On<QLineEdit>("txtFirstname"));
  EXPECT_FALSE(On<QTabWidget>("pages")->isTabEnabled(1)) << "services need a stored client";
  Keys("Zelda");
  Key(Qt::Key_Tab);
  Keys("Zimmer");
  Key(Qt::Key_Tab);
  Keys("A");
  PressAlt(client, Qt::Key_P);
  EXPECT_EQ(On<QLineEdit>("txtDisplayName")->text(), "Zelda Zimmer");
  TypeInto("txtStreetNumber", "7");
  Key(Qt::Key_Tab);
  Keys("Correa Ct");
  Key(Qt::Key_Tab);
  const Recordset known =
      Run(Sql("SELECT Suburb, Post_Code FROM Clients WHERE Post_Code = '3101' ORDER BY Client_ID"));
  ASSERT_TRUE(known.HasRows());
  Keys(known.Field(u"Suburb").ToText().toLower());
  Key(Qt::Key_Tab);
  EXPECT_EQ(On<QComboBox>("cmbSuburb")->currentText(), known.Field(u"Suburb").ToText());
  EXPECT_EQ(On<QComboBox>("cmbPostcode")->currentText(), "3101") << "the suburb brings its code";
  QTest::keyClick(client, Qt::Key_S, Qt::ControlModifier);
  ASSERT_GT(Number(), 0);
  EXPECT_EQ(client->windowTitle(), "Client: Zelda Zimmer");
}

}  // namespace quillary
