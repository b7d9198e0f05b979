#include "documents/billing/PrintedInvoices.h"
#include "gui/Sweep.h"
#include "setup/demo/DemoBusiness.h"
#include "shell/MenuTree.h"

namespace quillary {
namespace {

// The buttons that are seen to write. One that writes from now on is a line more.
const std::set<QString> kWriting = {
    // LIST
};

/// Left out is what leads to another file, or ends the history.
bool IsLeftAlone(const shell::MenuEntry& entry) {
  static const std::set<QString> kNames = {
      "mnuFunctionsRestoreBackup", "mnuCreateDBOfAllTransferredClients", "mnuSetupTechnicalODBC"};
  return entry.action.kind != shell::MenuAction::Kind::Screen || kNames.contains(entry.name);
}

void AddCommands(const std::vector<shell::MenuEntry>& entries, QStringList& commands) {
  for (const shell::MenuEntry& entry : entries) {
    if (!IsLeftAlone(entry)) commands += QString::fromLatin1(entry.name);
    AddCommands(entry.entries, commands);
  }
}

class UndoSweepTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    Outside world = outside.Ports();
    Business business(world, File());
    business.ConnectToDatabase();
    setup::WriteDemoBusiness(business, {.clients = 20, .months = 1});
    // Their table comes with the first document, and a change of the schema ends the history.
    documents::NotePrinted(business, {});
    business.CloseConnection();
  }
  YesSayer yes;
};

TEST_F(UndoSweepTest, WhatEachButtonWroteIsTakenBackAndMadeAgain) {
  const Outside world{
      outside.clock,  yes, outside.errors, outside.busy, outside.settings, outside.headOffice,
      outside.desktop};
  QDir::setCurrent(folder.path());
  program = std::make_unique<shell::Program>(world, navigator, folder.path());
  program->UseFile(File());
  ASSERT_TRUE(program->Start({}));
  Sweep sweep(*program, outside.errors);
  QStringList commands;
  AddCommands(shell::MenuTree(), commands);
  for (const QString& command : commands) sweep.Go(command);
  for (const QString& button : sweep.Wrote())
    EXPECT_TRUE(kWriting.contains(button)) << button.toStdString() << " writes";
  for (const QString& button : kWriting)
    EXPECT_TRUE(sweep.Wrote().contains(button)) << button.toStdString() << " wrote nothing";
}

}  // namespace
}  // namespace quillary
