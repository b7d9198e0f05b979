#pragma once

#include <QTabWidget>

namespace quillary {

/// The pages of one screen, apart from the tabs of the main window: quiet words over a line, the
/// page in view underlined. A page is scrolled where the window is too small for it, and may show
/// how many rows it lists.
///
///   pages_ = new PageTabs("pages", tr("Parts of the client"));
///   pages_->AddPage(detailsPage_, tr("Details"));
///   pages_->SetCount(pastJobs_, jobs.size());      // "Past jobs 31"
class PageTabs : public QTabWidget {
  Q_OBJECT

 public:
  PageTabs(const char* name, const QString& heardAs);

  void AddPage(QWidget* page, const QString& title);
  void SetCount(const QWidget* page, size_t count);
  void EnablePage(const QWidget* page, bool on);
  bool IsShown(const QWidget* page) const;
  void ShowPage(const QWidget* page);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int IndexOf(const QWidget* page) const;
};

}  // namespace quillary
