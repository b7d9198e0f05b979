#include "gui/GuiTest.h"

#include "data/schema/Schema.h"
#include "setup/demo/DemoBusiness.h"

#include <QKeyEvent>
#include <QPointer>

#include <algorithm>

namespace quillary {

QApplication& TestApplication() {
  static int count = 1;
  static char name[] = "test_gui";
  static char* arguments[] = {name, nullptr};
  static auto* application = new QApplication(count, arguments);
  return *application;
}

void EnterField(QWidget* field) {
  field->window()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(field->window()));
  field->clearFocus();
  field->setFocus(Qt::TabFocusReason);
  QTest::qWait(1);  // what selects the text waits for the click that may have given the focus
  ASSERT_TRUE(field->hasFocus()) << field->objectName().toStdString();
}

void TypeKeys(const QString& words) {
  for (const QChar letter : words) {
    ASSERT_NE(QApplication::focusWidget(), nullptr) << "nothing has the focus";
    if (letter.unicode() < 0x80) {
      QTest::keyClicks(QApplication::focusWidget(), letter);
      continue;
    }
    // The test library knows no key for it, but a keyboard has one.
    QKeyEvent press(QEvent::KeyPress, 0, {}, letter);
    QApplication::sendEvent(QApplication::focusWidget(), &press);
  }
}

void PressKey(Qt::Key key, Qt::KeyboardModifiers with) {
  ASSERT_NE(QApplication::focusWidget(), nullptr) << "nothing has the focus";
  QTest::keyClick(QApplication::focusWidget(), key, with);
}

void Click(QWidget* control) {
  QTest::mouseClick(control, Qt::LeftButton);
}

void ClickOn(const QObject* in, const char* name) {
  Click(Find<QAbstractButton>(in, name));
}

void PressAlt(QWidget* screen, Qt::Key letter) {
  // The active window takes the mnemonics, and without a window manager none becomes so by itself
  // when another has closed.
  screen->activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == screen->window(); }));
  QTest::keyClick(screen, letter, Qt::AltModifier);
  // A button goes down, and up again a moment later, which is when it clicks.
  const auto buttons = screen->window()->findChildren<QAbstractButton*>();
  const auto down = std::find_if(buttons.begin(), buttons.end(),
                                 [](const QAbstractButton* button) { return button->isDown(); });
  if (down == buttons.end()) return;
  const QPointer<QAbstractButton> pressed(*down);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !pressed || !pressed->isDown(); }, 60'000));
}

void ProgramTest::SetUp() {
  TestApplication();
  CreateEmptyBusiness(File());
}

void ProgramTest::Start() {
  {
    Business business(outside.Ports(), File());
    business.ConnectToDatabase();
    setup::WriteDemoBusiness(business, {.clients = 20, .months = 1});
    business.CloseConnection();
  }
  program = std::make_unique<shell::Program>(outside.Ports(), navigator, folder.path());
  program->UseFile(File());
  ASSERT_TRUE(program->Start({}));
}

void ProgramTest::TearDown() {
  program.reset();
  outside.prompter.CheckAllAsked();
  for (const QString& report : outside.errors.TakeReports())
    ADD_FAILURE() << "Reported: " << report.toStdString();
}

void SingleHost::ShowScreen(Screen* screen) {
  shown.reset(screen);
  screen->resize(1280, 640);
  screen->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(screen));
}

Screen* SingleHost::BringToFront(const QString& name) {
  return shown && shown->objectName() == name ? shown.get() : nullptr;
}

}  // namespace quillary
