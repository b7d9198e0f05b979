#pragma once

#include "clients/screens/ClientDesk.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::clients {

/// What one wants to see whatever one edits: the next jobs and the notes. It stands at the right of
/// the pages that leave room for it.
class ClientSidePanel : public QWidget {
  Q_OBJECT

 public:
  explicit ClientSidePanel(ClientDesk& desk);

  /// It is read after the page beside it, and so entered after that page's last control.
  void FollowInTabOrder(QWidget* last);
  void ShowJobs(const std::vector<ClientJob>& futureJobs);

 signals:
  void jobOpened(quillary::Id<quillary::Entry> entry);

 private:
  QLabel* lblNextJobs;
  Grid* grdNextJobs;
  QPlainTextEdit* txtGeneralNotes;
  QPlainTextEdit* txtPrivateNotes;
};

}  // namespace quillary::clients
