#pragma once

#include "clients/screens/ClientDesk.h"

#include <QWidget>

class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::clients {

enum class JobsWhen { Future, Past };

/// The jobs of a client on one side of today.
class ClientJobsPage : public QWidget {
  Q_OBJECT

 public:
  ClientJobsPage(ClientDesk& desk, JobsWhen when);

  void LoadJobs();
  const std::vector<ClientJob>& Jobs() const { return jobs_; }
  /// Opens the entry on the screen that its status asks for.
  void OpenJob(Id<Entry> entry);

 signals:
  void addWanted();

 private:
  void MakeControls();
  void LayOut();
  void EnableCommands();
  void EditSelected();
  void DeleteSelected();

  ClientDesk& desk_;
  JobsWhen when_;
  std::vector<ClientJob> jobs_;

  QLineEdit* txtFilter;
  Grid* grid_;
  QPushButton* cmdEdit_;
  QPushButton* cmdDelete_;
  QPushButton* cmdAdd_;
};

}  // namespace quillary::clients
