#include "domain/EntryStatus.h"
#include "older/Copying.h"

#include <array>

/// The jobs, and the company they are done by.
namespace quillary::older {

namespace {

constexpr int kDescriptionWidth = 255;  // of Diary.Description
constexpr qint64 kDaysOfMonth = 30;

struct LineFields {
  const char* service;
  const char* amount;
  const char* tax;
};
constexpr std::array<LineFields, 3> kLines = {
    {{"Job_Type_Code", "Charged_Amount", "GST_Charged_Amount"},
     {"Job_Type_Code1", "Charged_Amount1", "GST_Charged_Amount1"},
     {"Job_Type_Code2", "Charged_Amount2", "GST_Charged_Amount2"}}};

/// Appointments and cancelled ones without any service were no jobs.
bool IsJob(const OlderRow& row) {
  const QString code = row.Text("Code");
  return code != u"A" || !row.Text("Job_Type_Code").isEmpty();
}

EntryStatus StatusOf(const OlderRow& row) {
  const QString code = row.Text("Code");
  if (code == u"Z") return EntryStatus::JobCancelled;
  if (code == u"J" && row.Text("Action").compare(u"Done", Qt::CaseInsensitive) == 0)
    return EntryStatus::JobDone;
  return EntryStatus::JobOpen;
}

struct Line {
  std::optional<qint64> service;
  QString code;
  Money amount;
  Money tax;
};

std::vector<Line> LinesOf(Copying& copying, const OlderRow& row) {
  std::vector<Line> lines;
  for (const LineFields& fields : kLines) {
    const QString code = row.Text(fields.service);
    const Money amount = row.Amount(fields.amount);
    if (code.isEmpty() && amount == Money()) continue;
    lines.push_back({copying.ServiceOf(row, fields.service), code, amount, row.Amount(fields.tax)});
  }
  return lines;
}

void InsertJob(Copying& copying, const OlderRow& row, qint64 client) {
  const std::vector<Line> lines = LinesOf(copying, row);
  QStringList codes;
  Money price;
  Money tax;
  for (const Line& line : lines) {
    if (!line.code.isEmpty()) codes += line.code;
    price += line.amount;
    tax += line.tax;
  }
  const auto entry = copying.business.InsertReturningKey<Entry>(
      Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, Notes, "
          "Total_Price, Total_GST) VALUES ({}, {}, {}, {}, {}, {}, {}, {})",
          client, copying.KeyIn(copying.employees, row, "TrailerID"), StatusOf(row),
          row.Day("Job_Date"), codes.join(QStringLiteral(", ")).left(kDescriptionWidth),
          row.Text("Job_Notes"), price, tax));
  for (const Line& line : lines)
    copying.business.Write(
        Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, {}, {}, {})",
            entry, line.service, line.amount, line.tax));
}

}  // namespace

void CopyDiary(Copying& copying) {
  copying.business.Write(Sql("DELETE FROM Diary_Services; "));
  Money charged;
  copying.Table("Copying diary", "tblJobs", "Diary",
                [&](const OlderRow& row) -> std::optional<QString> {
                  if (!IsJob(row)) return QStringLiteral("an appointment without a job");
                  const auto client = copying.KeyIn(copying.clients, row, "ClientID");
                  if (!client) return QStringLiteral("a job of no client");
                  InsertJob(copying, row, *client);
                  for (const LineFields& fields : kLines) charged += row.Amount(fields.amount);
                  return std::nullopt;
                });
  copying.Compare(
      "Charged_Amount", charged,
      copying.business.FirstField(Sql("SELECT Sum(Price) FROM Diary_Services")).ToMoney());
}

void CopyCompany(Copying& copying) {
  Business& business = copying.business;
  copying.Step("Copying company", 0, 1);
  for (const char* statement :
       {"DELETE FROM infPersonalDetails", "DELETE FROM infOptions", "DELETE FROM infSystem",
        "INSERT INTO infPersonalDetails (FSE_Code) VALUES (null)",
        "INSERT INTO infOptions (GST_Percentage) VALUES (.1) ",
        "INSERT INTO infSystem (Done_Initial_Setup) VALUES (No); "})
    business.Write(Sql(statement));
  copying.source.ForEach("tblMyCompany", [&](const OlderRow& row) {
    const QString contact = row.Text("Company_Contact");
    business.Write(
        Sql("UPDATE infPersonalDetails SET Company_Name = {}, Phone_1 = {}, Phone_2 = {}, "
            "First_Name = {}, Surname = {}, Email = {}, ACN = {}, ABN = {}, FSE_Code = {}, "
            "Provider = {}",
            row.Text("Company_Title"), row.Text("Company_Phone"), row.Text("Company_Mobile"),
            contact.section(u' ', 0, 0), contact.section(u' ', 1), row.Text("Company_email"),
            row.Text("Company_ACN"), row.Text("Company_BPN"), row.Text("HO_FSE_Code"),
            row.Text("Providor_NO")));
    if (const auto percent = row.Number("Default_GST_Percent"))
      business.Write(
          Sql("UPDATE infOptions SET GST_Percentage = {}", static_cast<double>(*percent) / 100));
  });
  copying.source.ForEach("tblFraction", [&](const OlderRow& row) {
    if (const auto months = row.Number("Months_Scheduled"))
      business.Write(
          Sql("UPDATE infOptions SET Days_To_Advance_Schedule = {}", *months * kDaysOfMonth));
  });
  business.Write(Sql("UPDATE infSystem SET Last_Schedule_Ending = {}",
                     business.FirstField(Sql("SELECT MAX(Schedule_Date) FROM Diary")).ToDate()));
  copying.Step("Copying company", 1, 1);
}

}  // namespace quillary::older
