#include "kit/Theme.h"
#include "session/ProgramFolder.h"
#include "shell/MainMenuMDI.h"

#include <QApplication>
#include <QMenuBar>

/// The commands that the main window does itself.
namespace quillary::shell {

void MainMenuMDI::RunOwn(const QString& name) {
  const std::map<QString, std::function<void()>> commands = {
      {"cmdReconnectToInternet", [this] { ReconnectToInternet(); }},
      {"mnuRegisterComponents", [this] { RegisterComponents(); }},
      {"mnuFunctionsDebugTest1", [this] { DebugTest1(); }},
      {"mnuExit", [this] { close(); }},
      {"mnuAppearanceSystem", [&] { UseTheme(name); }},
      {"mnuAppearanceLight", [&] { UseTheme(name); }},
      {"mnuAppearanceDark", [&] { UseTheme(name); }},
  };
  commands.at(name)();
}

void MainMenuMDI::ReconnectToInternet() {
  HeadOffice& headOffice = business_.World().headOffice;
  Prompter& prompter = business_.World().prompter;
  const auto enable = [this](const char* name, bool on) {
    for (const MenuCommand& command : commands_)
      if (QLatin1StringView(command.entry->name) == QLatin1StringView(name))
        command.action->setEnabled(on && command.entry->action.canOpen(navigator_));
  };
  if (!headOffice.IsConnected()) {
    enable("mnuSetupServices", !business_.values.enableOstrel4WebServices);
    enable("mnuUploadDatabase", false);
    enable("mnuCopyFromOstrel", false);
    prompter.Tell(Tone::Stop,
                  QStringLiteral("Internet connection unavailable. Please try again later "));
  } else if (headOffice.LogIn()) {
    enable("mnuSetupServices", true);
    enable("mnuUploadDatabase", true);
    enable("mnuCopyFromOstrel", true);
    prompter.Tell(Tone::Information,
                  QStringLiteral("Internet connection and Session established "));
  } else {
    enable("mnuSetupServices", true);
    prompter.Tell(Tone::Information, QStringLiteral("Unable to establish Session"));
  }
  RefreshStatus();
}

void MainMenuMDI::RegisterComponents() {
  const QString program = QStringLiteral("RegisterComponents.exe");
  if (business_.World().desktop.StartProgram(program)) return;
  business_.World().prompter.Tell(
      Tone::Exclamation, QStringLiteral("The RegisterComponents.exe cannot be found in %1.")
                             .arg(session::ToolsFolder()));
}

void MainMenuMDI::DebugTest1() {
  // The file is held against a second opener for as long as it is open, so the first connection
  // gives it up for the length of the test; its next statement takes it back.
  business_.CloseConnection();
  {
    Business second(business_.World(), business_.DatabaseFile());
    second.RunSQL(QStringLiteral("SELECT * FROM lstFrequencies; "));
    second.CloseConnection();
  }
  business_.ConnectToDatabase();
  business_.World().prompter.Tell(Tone::Information, QStringLiteral("Test completed!"));
}

void MainMenuMDI::UseTheme(const QString& name) {
  const ThemeChoice choice = name.endsWith(u"Dark")    ? ThemeChoice::Dark
                             : name.endsWith(u"Light") ? ThemeChoice::Light
                                                       : ThemeChoice::System;
  WriteThemeChoice(business_.World().settings, choice);
  ApplyTheme(*qApp, choice);
  for (const MenuCommand& command : commands_)
    if (QLatin1StringView(command.entry->name).startsWith(QLatin1StringView("mnuAppearance")))
      command.action->setChecked(QLatin1StringView(command.entry->name) == name);
}

}  // namespace quillary::shell
