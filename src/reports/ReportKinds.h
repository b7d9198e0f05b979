#pragma once

#include "base/DateRange.h"
#include "data/Business.h"
#include "reports/ReportData.h"

#include <optional>
#include <span>

namespace quillary::reports {

/// What a report may be asked for. Each report says which of these it reads.
struct ReportCriteria {
  DateRange days = {};
  std::vector<Id<Client>> clients = {};       // none: all
  std::optional<Id<Employee>> employee = {};  // none: all
  std::optional<qint64> record = {};          // the quote, deposit or client it is about
  QString sort = {};                          // a name of the report's sorts; else the first
  QString option = {};                        // a name of the report's options; else the first
};

enum class Asks {
  Nothing,
  Days,
  FromDay,
  DaysAndClients,
  DaysAndEmployee,
  Quote,
  Deposit,
  Client,
};

struct ReportChoice {
  const char* name;   // for scripts
  const char* words;  // for people
};

/// A report as it is declared: what it is called and asks for, and who collects its rows.
struct ReportKind {
  const char* name;  // for scripts
  const char* title;
  const char* file;  // its name in the folder of reports
  Asks asks;
  ReportData (*collect)(Business& business, const ReportCriteria& criteria);
  std::vector<ReportChoice> sorts = {};
  std::vector<ReportChoice> options = {};
};

/// All reports, in the order in which they are listed.
std::span<const ReportKind> ReportKinds();
/// Of the report's file in the folder of reports, without the folder.
QString FileNameOf(const ReportKind& kind, const ReportData& data);
/// Null when there is none of that name.
const ReportKind* FindReportKind(const QString& name);

/// Collects the report. Reports of balances compute all of them anew first, as does one less tax
/// with the tax of exempt records; otherwise nothing is written. Throws std::invalid_argument, with
/// words for the user, for a range that runs backwards, for a sort or option that the report does
/// not have, and for a record that is not there.
ReportData CollectReport(Business& business, const ReportKind& kind, ReportCriteria criteria);
/// The same, with the rest of a long report still to be read.
ReportData BeginReport(Business& business, const ReportKind& kind, ReportCriteria criteria);

// The reports of each area.
std::vector<ReportKind> ClientReportKinds();
std::vector<ReportKind> JobReportKinds();
std::vector<ReportKind> MoneyReportKinds();
std::vector<ReportKind> BookReportKinds();
std::vector<ReportKind> SheetKinds();

}  // namespace quillary::reports
