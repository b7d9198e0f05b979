#pragma once

#include "shell/Program.h"
#include "support/BusinessTest.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <string>

namespace quillary {

/// The application of a test program: made before the first widget, gone with the process.
QApplication& TestApplication();

/// Finds a control by its name; a missing one fails the test at the place that asked.
template <typename Control>
Control* Find(const QObject* in, const char* name) {
  auto* control = in->findChild<Control*>(QLatin1StringView(name));
  if (!control) throw std::runtime_error(std::string("No control is named ") + name);
  return control;
}

void Click(QWidget* control);
/// Clicks the button of that name.
void ClickOn(const QObject* in, const char* name);

/// Enters a field as Tab does, so that what it holds is selected.
void EnterField(QWidget* field);
/// Keys go to whatever has the focus, as a hand's do, and never to a part of it.
void TypeKeys(const QString& words);
void PressKey(Qt::Key key, Qt::KeyboardModifiers with = {});

/// Presses a button by its mnemonic, and comes back when its command is done.
void PressAlt(QWidget* screen, Qt::Key letter);

/// Runs the program on an invented business, up to its main window.
class ProgramTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Makes the business and starts on it.
  void Start();
  shell::MainMenuMDI& Window() { return *program->MainMenu(); }
  QAction* Command(const char* name) { return Find<QAction>(&Window(), name); }
  QString File() const { return folder.filePath(QStringLiteral("DATA.MDB")); }

  ScriptedOutside outside;
  Navigator navigator;
  QTemporaryDir folder;
  std::unique_ptr<shell::Program> program;
};

/// A place for screens without the main window around them.
class SingleHost : public ScreenHost {
 public:
  void ShowScreen(Screen* screen) override;
  Screen* BringToFront(const QString& name) override;
  std::unique_ptr<Screen> shown;
};

}  // namespace quillary
