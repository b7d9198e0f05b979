#pragma once

#include "data/Changes.h"
#include "documents/reports/Report.h"

#include <QObject>

class QWidget;

namespace quillary::documents {

/// A report that can be made again while it is shown: for other days, or because the business has
/// changed. The viewer owns it.
class LiveReport : public QObject {
  Q_OBJECT

 public:
  /// Collects and lays out. A long report is returned with its first pages.
  virtual ReportDocument Make() = 0;
  /// Whether more pages are to come.
  virtual bool IsGrowing() const { return false; }
  /// Makes more pages for about so long: those that Make() returned grow by them. Returns the
  /// document as it stands then.
  virtual ReportDocument Grow(int milliseconds) = 0;
  /// What stands above the pages to choose days and forms with; null for nothing.
  virtual QWidget* MakeBar() = 0;
  /// Opens what the row of that link is made of.
  virtual void OpenLink(int link) = 0;
  /// The rows for a spreadsheet: one file, or several for a report of several parts.
  struct CsvTable {
    QString fileName;
    QByteArray content;
  };
  virtual std::vector<CsvTable> Csv() const = 0;
  /// After a commit that wrote one of these it is made again.
  virtual Tables Shows() const = 0;

 signals:
  /// The user chose something else to be shown.
  void changed();
};

}  // namespace quillary::documents
