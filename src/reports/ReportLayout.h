#pragma once

#include "documents/reports/Report.h"
#include "reports/ReportKinds.h"

#include <memory>

namespace quillary::reports {

/// Where and how a report is laid out.
struct ReportTarget {
  documents::ReportPlaces places;
  QString file;            // a full path, or a name in the folder of reports
  bool writesFile = true;  // the word processor's form, beside the pages
};

/// Lays a report out: its headings or letterhead, its tables with repeated headings, groups and
/// totals, notes and chart. A row's number in `links` is what its texts on the pages carry.
struct LaidReport {
  documents::ReportDocument document;
  std::vector<ReportLink> links;
};
LaidReport LayOutReport(Business& business, const ReportTarget& target, const ReportData& data);

/// Lays out a report whose rest is still to be read, some pages at a time, so that it can be shown
/// meanwhile. Throws NoRecordset for rows that the store refuses.
class GrowingReport {
 public:
  GrowingReport(Business& business, const ReportTarget& target, ReportData data);
  ~GrowingReport();

  /// The pages so far; those that come later come to them too.
  const documents::ReportDocument& Document() const { return document_; }
  const std::vector<ReportLink>& Links() const { return links_; }
  bool IsDone() const { return isDone_; }
  /// Goes on for about so long. In the end it writes the file.
  void Grow(int milliseconds);

 private:
  void AddPortion();
  void Finish();

  Business& business_;
  ReportData data_;
  bool writesFile_;
  std::unique_ptr<documents::Report> report_;
  documents::ReportDocument document_;
  std::vector<ReportLink> links_;
  bool isDone_ = false;
};

/// Adds the report to pages that are being made, such as those of a pack of reports.
void AddReport(Business& business, documents::Report& pages, const ReportData& data,
               std::vector<ReportLink>& links);

}  // namespace quillary::reports
