#include "documents/reports/Report.h"
#include "domain/EntryStatus.h"
#include "reports/ClientSelection.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ReportKinds.h"

/// The reports that list jobs: what is to do, overdue and done.
namespace quillary::reports {
namespace {

Value StatusWords(const Record& row) {
  return WordsOf(StoredEntryStatus(row[u"Status"].ToText()));
}

GroupKey DayOfJob(const Record& row) {
  const QDate day = row[u"Schedule_Date"].ToDate();
  return {documents::PrintDateText(day), day.toJulianDay()};
}

Sql JobsOfClients(const Sql& where) {
  return Sql("SELECT Diary.Diary_ID, Schedule_Date, Display_Name, Street_Number, Street, Suburb, "
             "Post_Code, Phone_1, Diary.Status, Diary.Description, Diary.Total_Price "
             "FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID WHERE ") +
         where + Sql(" ORDER BY Diary.Schedule_Date, Clients.Display_Name, Diary.Diary_ID;");
}

ListReport JobList(std::vector<ListColumn> columns) {
  ListReport list{.columns = std::move(columns)};
  list.group = DayOfJob;
  list.link = LinkTo(ReportLink::To::Entry, "Diary_ID");
  return list;
}

/// Jobs from a day on whose own day has passed without their being done.
ReportData CollectOverdue(Business& business, const ReportCriteria& criteria) {
  const ListReport list = JobList({
      FieldColumn("Client", "<+2in", CellKind::Text, "Display_Name", Total::Word),
      CellColumn("Address", "<+2in", CellKind::Text, AddressLines),
      FieldColumn("Phone", "<+1in", CellKind::Text, "Phone_1"),
      FieldColumn("Job Description", "<+1.25in", CellKind::Text, "Description", Total::Count),
      FieldColumn("Price", ">+1in", CellKind::Money, "Total_Price", Total::Sum),
  });
  ReportData data{.title = QStringLiteral("List Of Overdue Jobs")};
  data.scope = {QStringLiteral("From ") + documents::ReportDateText(criteria.days.from)};
  data.sections = {
      CollectList(list, business.RunSQL(JobsOfClients(
                            Sql("Schedule_Date >= {} AND Schedule_Date < {} AND Diary.Status = {}",
                                criteria.days.from, business.Today(), EntryStatus::JobOpen))))};
  return data;
}

ReportData CollectJobs(Business& business, const ReportCriteria& criteria) {
  const ListReport list = JobList({
      FieldColumn("Client", "<+1.5in", CellKind::Text, "Display_Name", Total::Word),
      CellColumn("Address", "<+1.75in", CellKind::Text, AddressLines),
      FieldColumn("Phone", "<+1in", CellKind::Text, "Phone_1"),
      CellColumn("Job status", "<+1in", CellKind::Text, StatusWords),
      FieldColumn("Job Description", "<+1in", CellKind::Text, "Description", Total::Count),
      FieldColumn("Price", ">+1in", CellKind::Money, "Total_Price", Total::Sum),
  });
  ReportData data{.title = QStringLiteral("List Of Jobs")};
  data.scope = {FromTo(criteria.days)};
  data.sections = {CollectList(
      list, business.RunSQL(JobsOfClients(Within("Schedule_Date", criteria.days) + Sql(" AND ") +
                                          IsOfKind("Diary.Status", EntryKind::Job))))};
  return data;
}

// Work done. An entry without lines stands for itself.

Value LineOr(const Record& row, const char16_t* line, const char16_t* entry) {
  return row[u"Diary_Service_ID"].IsNull() ? row[entry] : row[line];
}

/// The lines of done jobs; `from` is what they are joined to, in the places of both brackets.
Sql LinesOfDoneJobs(const Sql& fields, const Sql& from, const Sql& where) {
  return Sql("SELECT ") + fields +
         Sql("Diary.Diary_ID, Diary.Schedule_Date, Diary.Status, Diary.Description, "
             "Diary.Total_Price, Diary.Total_GST, Diary_Services.Diary_Service_ID, "
             "Diary_Services.Price, Diary_Services.GST, Services.Service FROM (") +
         from +
         Sql("LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) "
             "LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID WHERE ") +
         where + Sql(" AND Diary.Status IN {} ", CodesOf(EntryGroup::WorkDone));
}

Value PriceOfLine(const Record& row) {
  return LineOr(row, u"Price", u"Total_Price");
}
Value TaxOfLine(const Record& row) {
  return LineOr(row, u"GST", u"Total_GST");
}
Value ServiceOfLine(const Record& row) {
  return LineOr(row, u"Service", u"Description");
}

ReportData CollectWorkDone(Business& business, const ReportCriteria& criteria) {
  ListReport list;
  list.columns = {
      FieldColumn("Client", "<+1.5in", CellKind::Text, "Display_Name", Total::Word),
      FieldColumn("Schedule date", "<+1in", CellKind::Day, "Schedule_Date"),
      CellColumn("Job Description", "<+1.5in", CellKind::Text, ServiceOfLine),
      CellColumn("Status", "<+1.25in", CellKind::Text, StatusWords, Total::Count),
      CellColumn("Price", ">+1.25in", CellKind::Money, PriceOfLine, Total::Sum),
      CellColumn(TaxHeading(business), ">+.75in", CellKind::Money, TaxOfLine, Total::Sum),
  };
  list.group = ClientOfRow;
  list.link = LinkTo(ReportLink::To::Entry, "Diary_ID");
  list.summaryOnly = criteria.option == u"summary";
  ReportData data{.title = QStringLiteral("Work Done For Clients")};
  data.scope = {FromTo(criteria.days)};
  data.sections = {HeadOf(list)};
  data.rest = StreamList(
      std::move(list),
      [&business, days = criteria.days, from = ChosenClients(business, criteria.clients, "Diary"),
       portions = PortionsOfClients(business),
       at = size_t{0}]() mutable -> std::optional<Recordset> {
        if (at == portions.size()) return std::nullopt;
        return business.RunSQL(LinesOfDoneJobs(Sql("Diary.Client_ID, Clients.Display_Name, "), from,
                                               portions[at++] + Within("Schedule_Date", days)) +
                               Sql("ORDER BY Clients.Display_Name, Diary.Client_ID, "
                                   "Diary.Schedule_Date, Diary.Diary_ID, Services.Service;"));
      });
  return data;
}

// The summary: what each service came to, day by day and in all.

struct ServiceSum {
  Money price;
  Money tax;
};

ReportGroup GroupOfSums(const QString& key, const std::map<QString, ServiceSum>& services,
                        const std::vector<ReportColumn>& columns, const QString& totalWord) {
  ReportGroup group{.key = key, .rows = {}, .totals = {}, .showsKey = !key.isEmpty()};
  RunningTotals totals(columns);
  for (const auto& [service, sum] : services) {
    group.rows.push_back({.cells = {service, sum.price, sum.tax}});
    totals.Add(group.rows.back().cells);
  }
  group.totals = totals.Under(totalWord);
  return group;
}

ReportData CollectSummary(Business& business, const ReportCriteria& criteria) {
  Sql where = Within("Schedule_Date", criteria.days);
  if (criteria.employee) where = where + Sql(" AND Diary.Employee_ID = {}", *criteria.employee);
  const std::vector<ReportColumn> columns = {
      {"Service", "<+3in", CellKind::Text, Total::Word},
      {"Price", ">+2in", CellKind::Money, Total::Sum},
      {TaxHeading(business), ">+2in", CellKind::Money, Total::Sum}};
  std::map<QDate, std::map<QString, ServiceSum>> days;
  std::map<QString, ServiceSum> all;
  for (const Record row : business.RunSQL(LinesOfDoneJobs(Sql(""), Sql("Diary "), where) +
                                          Sql("ORDER BY Diary.Schedule_Date, Services.Service;"))) {
    const QString service = ServiceOfLine(row).ToText(QStringLiteral("(no service)"));
    for (ServiceSum* sum : {&days[row[u"Schedule_Date"].ToDate()][service], &all[service]}) {
      sum->price += PriceOfLine(row).ToMoney();
      sum->tax += TaxOfLine(row).ToMoney();
    }
  }
  ReportData data{.title = QStringLiteral("Job Summary")};
  data.scope = {FromTo(criteria.days), EmployeeWords(business, criteria.employee)};
  ReportSection byDay{.title = {}, .columns = columns, .groups = {}, .totals = {}};
  for (const auto& [day, services] : days)
    byDay.groups.push_back(GroupOfSums(documents::PrintDateText(day), services, columns, "Total"));
  ReportSection inAll{.title = QStringLiteral("Totals by service"),
                      .columns = columns,
                      .groups = {GroupOfSums({}, all, columns, "Grand Total")},
                      .totals = {}};
  inAll.totals = std::exchange(inAll.groups.front().totals, {});
  data.sections = {std::move(byDay), std::move(inAll)};
  return data;
}

}  // namespace

std::vector<ReportKind> JobReportKinds() {
  return {
      {"overdue-jobs", "Overdue jobs", "Overdue Jobs.doc", Asks::FromDay, CollectOverdue},
      {"jobs", "Jobs list", "Jobs List.doc", Asks::Days, CollectJobs},
      {"work-done",
       "Work done for clients",
       "Work Done For Clients.doc",
       Asks::DaysAndClients,
       CollectWorkDone,
       {},
       {{"rows", "All jobs"}, {"summary", "Summary only"}}},
      {"job-summary", "Jobs summary", "Job Summary.doc", Asks::DaysAndEmployee, CollectSummary},
  };
}

}  // namespace quillary::reports
