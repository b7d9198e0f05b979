#pragma once

#include "base/ports/Desktop.h"
#include "base/ports/Prompter.h"
#include "base/ports/SettingsStore.h"
#include "help/Manual.h"
#include "help/screens/ManualBrowser.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>

namespace quillary::help {

/// The manual in a window of its own: contents and search at the left, the page at the right. It
/// stays usable beside whatever is open, a dialog that waits for an answer too.
class frmManual : public QWidget {
  Q_OBJECT

 public:
  frmManual(const Manual& manual, Desktop& desktop, Prompter& prompter, SettingsStore& settings);

  /// Shows the place, such as "week.html#frmBanking"; of none, the first page.
  void ShowPlace(const QString& place);
  /// Stands over a dialog for as long as that waits, so that it can be used meanwhile; over none
  /// it is a window like any other.
  void StandOver(QWidget* dialog);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void LayOut();
  void ListContents();
  void ListFound(const QString& words);
  void AddLine(const Passage& passage, bool indented);
  void OpenLine(const QListWidgetItem* line);
  void MarkLine();
  void LeaveFor(const QString& address);

  const Manual& manual_;
  Desktop& desktop_;
  Prompter& prompter_;
  SettingsStore& settings_;

  QLineEdit* txtFind;
  QLabel* lblFound;
  QListWidget* lstPassages;
  ManualBrowser* txtManual;
  QPushButton* cmdBack;
  QPushButton* cmdForward;
  QPushButton* cmdContents;
  QPushButton* cmdClose;
};

}  // namespace quillary::help
