#pragma once

#include "reports/ReportData.h"

#include <QByteArray>

/// A report for other programs, and for a terminal.
namespace quillary::reports {

/// Comma-separated values (RFC 4180) in UTF-8 behind the byte order mark: a line of headings and
/// the rows, typed, so that a spreadsheet takes them as they are: amounts as plain digits, days as
/// "2026-11-02". Rows of groups begin with the key of theirs. Without totals, which a spreadsheet
/// would count among the rows. An empty line between two tables.
QByteArray WriteReportCsv(const ReportData& data);
/// The same for the report and for each of its parts, under names of files without folder.
struct CsvFile {
  QString name;
  QByteArray content;
};
std::vector<CsvFile> WriteReportCsvFiles(const ReportData& data, const QString& fileName);

/// {"title", "columns", "groups": [{"key", "rows", "totals"}], "totals"}: rows and totals have a
/// value for each column, null where there is none. Groups of further tables bring columns of their
/// own, and those tables with a total a group "Total". Parts follow as "parts", "troubles" where
/// there are some.
QByteArray WriteReportJson(const ReportData& data);

/// Lines of text, columns aligned.
QString WriteReportText(const ReportData& data);

}  // namespace quillary::reports
