#include "reports/DiarySheet.h"

#include "documents/reports/Report.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"
#include "reports/ClientSelection.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"

#include <map>

namespace quillary::reports {
namespace {

/// An entry of the sheet with the lines of its services.
struct SheetEntry {
  qint64 entry = 0;
  QString employee;
  QDate day;
  QString time;
  QString client;
  QString clientStatus;
  QString address;
  QString map;
  QString phones;
  QString notes;
  QString jobNotes;
  QString status;
  QStringList services;
  QStringList prices;
  QStringList frequencies;
  Money price;
  QDate lastVisit;
  QDate nextVisit;
};

/// The days nearest before and after an entry on which its client is in the diary.
const char* const kNeighbours =
    "(SELECT MIN(Schedule_Date) FROM Diary as Diary2 WHERE Diary.Client_ID = Diary2.Client_ID AND "
    "Diary2.Schedule_Date > Diary.Schedule_Date AND Diary2.Status = {}) AS Next_Visit, "
    "(SELECT MAX(Schedule_Date) FROM Diary as Diary2 WHERE Diary.Client_ID = Diary2.Client_ID AND "
    "Diary2.Schedule_Date < Diary.Schedule_Date AND Diary2.Status <> {}) AS Last_Visit ";

Sql SheetOrder(const QString& sort) {
  if (sort == u"suburb")
    return Sql(
        " ORDER BY Diary.Employee_ID, Suburb_Position.Position, Diary.Schedule_Date, "
        "Diary.Sequence, Diary.Diary_ID, Diary_Services.Diary_Service_ID");
  return Sql(
      " ORDER BY Diary.Employee_ID, Diary.Schedule_Date, Diary.Sequence, Clients.Suburb, "
      "Clients.Street, Diary.Client_ID, Diary.Diary_ID, Diary_Services.Service_ID");
}

Sql SheetStatement(const Business& business, const ReportCriteria& criteria) {
  Sql statement =
      Sql("SELECT Diary.Diary_ID, Diary.Employee_ID, Employees.Employee_Name, "
          "Diary.Schedule_Date, Diary.Time_Requested, Diary.Status AS JobStatus, "
          "Diary.Notes AS JobNotes, Diary.Total_Price, Clients.Status, Clients.Display_Name, "
          "Clients.Street_Number, Clients.Street, Clients.Suburb, Clients.Post_Code, "
          "Clients.Map, Clients.Phone_1, Clients.Phone_2, Clients.Notes, Services.Service, "
          "Diary_Services.Price, Diary_Services.Frequency, ") +
      Sql(kNeighbours, EntryStatus::JobOpen, EntryStatus::JobOpen) +
      Sql("FROM ((((Diary INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID) "
          "LEFT JOIN Employees ON Diary.Employee_ID = Employees.Employee_ID) "
          "LEFT JOIN Suburb_Position ON Clients.Suburb = Suburb_Position.Suburb_Name) "
          "LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) "
          "LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID "
          " WHERE Diary.Status IN {} AND ",
          CodesOf(EntryGroup::OnDaySheet)) +
      Within("Diary.Schedule_Date", criteria.days) +
      Sql(" AND NOT (UCASE(Clients.Status) = UCASE({}) AND Diary.Schedule_Date >= {})",
          ClientStatus::Cancelled, business.Today());
  if (criteria.employee)
    statement = statement + Sql(" AND Diary.Employee_ID = {}", *criteria.employee);
  return statement + SheetOrder(criteria.sort);
}

QString Joined(const QString& one, const QString& other, const char* between) {
  if (one.isEmpty()) return other;
  return other.isEmpty() ? one : one + QLatin1String(between) + other;
}

SheetEntry EntryFrom(const Record& row) {
  SheetEntry entry;
  entry.entry = row[u"Diary_ID"].ToLong();
  entry.employee = row[u"Employee_Name"].ToText(QStringLiteral("(no employee)"));
  entry.day = row[u"Schedule_Date"].ToDate();
  // Old files hold a 0 where no time was asked for.
  entry.time = row[u"Time_Requested"].ToText();
  if (entry.time == u"0") entry.time.clear();
  entry.client = row[u"Display_Name"].ToText();
  entry.clientStatus = row[u"Status"].ToText();
  entry.address = AddressLines(row);
  entry.map = row[u"Map"].ToText();
  entry.phones = Joined(row[u"Phone_1"].ToText(), row[u"Phone_2"].ToText(), "; ");
  entry.notes = row[u"Notes"].ToText();
  entry.jobNotes = row[u"JobNotes"].ToText();
  entry.status = WordsOf(StoredEntryStatus(row[u"JobStatus"].ToText()));
  entry.price = row[u"Total_Price"].ToMoney();
  entry.lastVisit = row[u"Last_Visit"].ToDate();
  entry.nextVisit = row[u"Next_Visit"].ToDate();
  return entry;
}

void AddLine(SheetEntry& entry, const Record& row) {
  const QString service = row[u"Service"].ToText();
  if (service.isEmpty() && row[u"Price"].IsNull()) return;
  entry.services += service;
  entry.prices += row[u"Price"].ToMoney().ToCurrencyText();
  const qint64 days = row[u"Frequency"].ToLong();
  entry.frequencies += days > 0 ? QStringLiteral("every %1 days").arg(days) : QString();
}

std::vector<SheetEntry> LoadEntries(Business& business, const ReportCriteria& criteria) {
  std::vector<SheetEntry> entries;
  for (const Record row : business.RunSQL(SheetStatement(business, criteria))) {
    if (entries.empty() || entries.back().entry != row[u"Diary_ID"].ToLong())
      entries.push_back(EntryFrom(row));
    AddLine(entries.back(), row);
  }
  return entries;
}

// What each employee has to do.

ReportSection Summary(const std::vector<SheetEntry>& entries) {
  ReportSection section;
  section.columns = {{"Employee", "<+2in", CellKind::Text},
                     {"Service", "<+2.25in", CellKind::Text},
                     {"Amount", "<+2in", CellKind::Money},
                     {"Jobs", "^+1in", CellKind::Count}};
  struct Work {
    Money amount;
    qint64 jobs = 0;
  };
  std::map<QString, std::map<QString, Work>> employees;
  for (const SheetEntry& entry : entries) {
    for (qsizetype at = 0; at < entry.services.size(); ++at) {
      Work& work = employees[entry.employee][entry.services[at]];
      work.amount += Money::Parse(entry.prices[at]).value_or(Money());
      ++work.jobs;
    }
  }
  ReportGroup& group = section.groups.emplace_back();
  group.key = QStringLiteral("Summary");
  group.showsKey = false;
  for (const auto& [employee, services] : employees)
    for (const auto& [service, work] : services)
      group.rows.push_back({.cells = {employee, service, work.amount, work.jobs}});
  return section;
}

ReportSection EntriesAsRows(const std::vector<SheetEntry>& entries) {
  ReportSection section;
  section.columns = {{"Date", "<+.8in", CellKind::Day},      {"Time", "<+.6in", CellKind::Text},
                     {"Client", "<+1.2in", CellKind::Text},  {"Status", "<+.8in", CellKind::Text},
                     {"Address", "<+1.2in", CellKind::Text}, {"Map", "<+.5in", CellKind::Text},
                     {"Phone", "<+1in", CellKind::Text},     {"Service", "<+1in", CellKind::Text},
                     {"Price", ">+.8in", CellKind::Money},   {"Notes", "<+1in", CellKind::Text},
                     {"Job notes", "<+1in", CellKind::Text}, {"Last", "<+.8in", CellKind::Day},
                     {"Next", "<+.8in", CellKind::Day}};
  const auto day = [](QDate date) { return date.isValid() ? Value(date) : Value(); };
  for (const SheetEntry& entry : entries) {
    if (section.groups.empty() || section.groups.back().key != entry.employee)
      section.groups.push_back({.key = entry.employee, .rows = {}, .totals = {}});
    section.groups.back().rows.push_back(
        {.cells = {day(entry.day), entry.time, entry.client, entry.status, entry.address, entry.map,
                   entry.phones, entry.services.join(u'\n'), entry.price, entry.notes,
                   entry.jobNotes, day(entry.lastVisit), day(entry.nextVisit)},
         .link = {ReportLink::To::Entry, entry.entry}});
  }
  return section;
}

// On paper each entry is a block of lines, the last of them a rule to write on.

void AddBlock(std::vector<ReportRow>& rows, const SheetEntry& entry) {
  const ReportLink link{ReportLink::To::Entry, entry.entry};
  const auto add = [&](const QString& left, const QString& middle, const QString& right,
                       bool strong = false) {
    if (left.isEmpty() && middle.isEmpty() && right.isEmpty()) return;
    rows.push_back({.cells = {left, middle, right},
                    .link = link,
                    .strong = strong,
                    .ruleAbove = strong && !rows.empty()});
  };
  add(Joined(entry.client, entry.time, ", "), entry.phones, entry.status, true);
  QStringList work;
  for (qsizetype at = 0; at < entry.services.size(); ++at)
    work += Joined(Joined(entry.services[at], entry.prices[at], "  "), entry.frequencies[at], ", ");
  add(Joined(entry.address, entry.map.isEmpty() ? QString() : QStringLiteral("Map ") + entry.map,
             "\n"),
      work.join(u'\n'),
      QStringLiteral("LAST: %1\nNEXT: %2")
          .arg(documents::ReportDateText(entry.lastVisit),
               documents::ReportDateText(entry.nextVisit)));
  add(entry.notes, entry.jobNotes, QStringLiteral("Client: ") + entry.clientStatus);
  add({}, {}, QStringLiteral("Result: ") + QString(24, u'_'));
}

std::vector<ReportSection> EntriesAsBlocks(const std::vector<SheetEntry>& entries) {
  std::vector<ReportSection> sections;
  QString key;
  for (const SheetEntry& entry : entries) {
    const QString next =
        QStringLiteral("%1, %2").arg(entry.employee, documents::PrintDateText(entry.day));
    if (sections.empty() || next != key) {
      ReportSection& section = sections.emplace_back();
      section.title = next;
      section.columns = {{{}, "<+2.6in", CellKind::Text},
                         {{}, "<+2.6in", CellKind::Text},
                         {{}, "<+2in", CellKind::Text}};
      section.showsHeadings = false;
      section.groups.push_back({.key = next, .rows = {}, .totals = {}, .showsKey = false});
      key = next;
    }
    AddBlock(sections.back().groups.front().rows, entry);
  }
  return sections;
}

}  // namespace

ReportData CollectDiarySheet(Business& business, const ReportCriteria& criteria) {
  const std::vector<SheetEntry> entries = LoadEntries(business, criteria);
  ReportData data{.title = QStringLiteral("Work Sheet")};
  data.scope = {criteria.days.IsOneDay() ? documents::PrintDateText(criteria.days.from)
                                         : FromTo(criteria.days),
                EmployeeWords(business, criteria.employee)};
  data.sections = {Summary(entries), EntriesAsRows(entries)};
  data.printed = {data.sections.front()};
  for (ReportSection& block : EntriesAsBlocks(entries)) data.printed.push_back(std::move(block));
  return data;
}

}  // namespace quillary::reports
