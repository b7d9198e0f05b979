#include "shell/FirstDoors.h"

#include "base/OwnFiles.h"
#include "data/schema/Schema.h"
#include "data/store/FileInTheMaking.h"
#include "session/AccessConversion.h"
#include "session/ProgramFolder.h"
#include "session/StartUp.h"
#include "setup/demo/DemoBusiness.h"
#include "setup/firstday/FirstDay.h"
#include "setup/firstday/NewBusiness.h"
#include "setup/screens/frmNewBusiness.h"
#include "shell/RecentFiles.h"
#include "shell/frmSelectDatabaseToAccess.h"
#include "shell/frmWelcome.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace quillary::shell {
namespace {

QString DocumentsFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void MakeDemo(const Outside& outside, const QString& path) {
  MakeOwnFolder(QFileInfo(path).absolutePath());
  FileInTheMaking file(path);
  CreateEmptyBusiness(file.Path());
  Business business(outside, file.Path());
  business.ConnectToDatabase();
  setup::WriteDemoBusiness(business);
  business.CloseConnection();
  file.TakeItsPlace();
}

}  // namespace

FirstDoors::FirstDoors(const Outside& outside, LocalSettings& settings, CommandRunner& runner)
    : outside_(outside), settings_(settings), runner_(runner) {}

bool FirstDoors::ComesWithNothing() const {
  const QString last =
      outside_.settings.Read(QStringLiteral("LastAccessedFile"), QStringLiteral("File")).trimmed();
  return last.isEmpty() && !QFileInfo(setup::FileOfNewBusiness(settings_.Folder())).isFile();
}

std::unique_ptr<Business> FirstDoors::Choose() {
  if (!ComesWithNothing() && !frmWelcome::IsWanted(outside_.settings)) return SelectAFile();
  bool left = false;
  while (!left)
    if (auto business = GoThroughADoor(left)) return business;
  return nullptr;
}

std::unique_ptr<Business> FirstDoors::GoThroughADoor(bool& left) {
  frmWelcome doors(outside_.settings);
  switch (doors.Choose()) {
    case frmWelcome::Door::NewBusiness:
      return MakeNew();
    case frmWelcome::Door::OpenFile:
      return SelectAFile();
    case frmWelcome::Door::Demo:
      return OpenDemo();
    case frmWelcome::Door::RecentFile:
      return Open(doors.RecentFile());
    case frmWelcome::Door::Leave:
      break;
  }
  left = true;
  return nullptr;
}

std::unique_ptr<Business> FirstDoors::SelectAFile() {
  try {
    return frmSelectDatabaseToAccess(outside_, settings_.Folder()).Choose();
  } catch (const StorageFailure&) {
    // The failure ends this start. Without this the next one would open the same file unasked.
    outside_.settings.Write(QStringLiteral("Form"), QStringLiteral("Show DB Selection"),
                            QStringLiteral("1"));
    throw;
  }
}

std::unique_ptr<Business> FirstDoors::MakeNew() {
  const QString file = setup::frmNewBusiness(outside_, runner_, DocumentsFolder()).Make();
  if (file.isEmpty()) return nullptr;
  setup::SetSetUpDue(settings_, true);
  return Open(file);
}

std::unique_ptr<Business> FirstDoors::OpenDemo() {
  const QString file = setup::FileOfNewBusiness(
      setup::FolderForBusiness(DocumentsFolder(), QStringLiteral("Quillary demo")));
  const BusyWhile busy(outside_.busy);
  if (!QFileInfo(file).isFile()) MakeDemo(outside_, file);
  setup::SetSetUpDue(settings_, false);  // it is set up already
  return Open(file);
}

std::unique_ptr<Business> FirstDoors::Open(const QString& file) {
  const QString opened =
      session::ConvertIfAccessFile(outside_, file, session::ArchiveUnder(settings_.Folder()));
  if (opened.isEmpty()) return nullptr;
  const BusyWhile busy(outside_.busy);
  RecentFiles recent(outside_.settings);
  recent.PutInFront(opened);
  recent.Save();
  return session::OpenDatabase(outside_, opened, settings_.Folder());
}

}  // namespace quillary::shell
