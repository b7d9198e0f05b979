#pragma once

#include "base/ports/SettingsStore.h"

#include <QDialog>

class QBoxLayout;
class QCheckBox;
class QPushButton;

namespace quillary::shell {

/// The three doors of the program for whoever comes with nothing, and below them the files opened
/// before.
class frmWelcome : public QDialog {
  Q_OBJECT

 public:
  enum class Door { Leave, NewBusiness, OpenFile, Demo, RecentFile };

  explicit frmWelcome(SettingsStore& settings);

  /// Whether the user wants these doors at every start.
  static bool IsWanted(const SettingsStore& settings);

  Door Choose();
  /// The file of Door::RecentFile.
  const QString& RecentFile() const { return recentFile_; }

 private:
  QWidget* DoorCard(const char* name, const QString& title, const QString& about,
                    QPushButton* command, Door door);
  QWidget* RecentCard();
  void LayOut();
  void Take(Door door);

  SettingsStore& settings_;
  Door chosen_ = Door::Leave;
  QString recentFile_;
  QCheckBox* chkShowAtStart;
};

}  // namespace quillary::shell
