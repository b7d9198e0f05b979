#pragma once

#include "documents/reports/Report.h"
#include "reports/ReportKinds.h"

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

/// Adds the report to pages that are being made, such as those of a pack of reports.
void AddReport(Business& business, documents::Report& pages, const ReportData& data,
               std::vector<ReportLink>& links);

}  // namespace quillary::reports
