#include "reports/AccountOfClient.h"

#include "balances/BalanceRules.h"
#include "balances/ClientBalance.h"
#include "documents/reports/Report.h"
#include "domain/BillingWords.h"
#include "domain/EntryStatus.h"
#include "domain/Payer.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"

#include <QHash>

#include <algorithm>
#include <stdexcept>

namespace quillary::reports {
namespace {

struct Movement {
  QDate day;
  QString what;
  QString client;
  Money charge;
  Money paid;
  ReportLink link;
};

using Movements = std::vector<Movement>;

/// What was done in each job, in the words of the services: their codes say nothing to a client.
QHash<qint64, QStringList> ServicesOfJobs(Business& business, Id<Client> payer) {
  QHash<qint64, QStringList> services;
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Diary_ID, Services.Service FROM ((Diary INNER JOIN Clients ON "
               "Diary.Client_ID = Clients.Client_ID) INNER JOIN Diary_Services ON Diary.Diary_ID = "
               "Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = "
               "Services.Service_ID WHERE {} ORDER BY Diary_Services.Diary_Service_ID",
               IsPaidBy("Clients", payer))))
    services[row[u"Diary_ID"].ToLong()] += row[u"Service"].ToText();
  return services;
}

void AddJobs(Business& business, Id<Client> payer, Movements& movements) {
  const auto services = ServicesOfJobs(business, payer);
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Diary_ID, Diary.Schedule_Date, Diary.Description, Diary.Status, "
               "Diary.Total_Price, Clients.Display_Name FROM Diary INNER JOIN Clients ON "
               "Diary.Client_ID = Clients.Client_ID WHERE {} AND Diary.Status IN {}",
               IsPaidBy("Clients", payer), CodesOf(EntryGroup::WorkDone)))) {
    const QStringList done = services.value(row[u"Diary_ID"].ToLong());
    movements.push_back({row[u"Schedule_Date"].ToDate(),
                         done.isEmpty() ? row[u"Description"].ToText(QStringLiteral("Job"))
                                        : done.join(QStringLiteral(", ")),
                         row[u"Display_Name"].ToText(),
                         row[u"Total_Price"].ToMoney(),
                         Money(),
                         {ReportLink::To::Entry, row[u"Diary_ID"].ToLong()}});
  }
}

QString WordsOfPayment(const Record& row) {
  const auto method = FromText<PaymentMethod>(row[u"Payment_Method"].ToText());
  const bool adjusts =
      method == PaymentMethod::Adjustment || method == PaymentMethod::CreditVoucher;
  QString words = adjusts ? QStringLiteral("Adjustment") : QStringLiteral("Payment");
  words += QStringLiteral(", ") + row[u"Payment_Method"].ToText();
  const QString description = row[u"Description"].ToText();
  return description.isEmpty() ? words : words + QStringLiteral(": ") + description;
}

/// A client who pays for itself is credited with what stands under its own name alone; a billing
/// address with what stands under any of its group.
void AddPayments(Business& business, const Sql& whose, Movements& movements) {
  for (const Record row : business.RunSQL(
           Sql("SELECT Payments.Payment_ID, Payments.Payment_Date, Payments.Amount, "
               "Payments.Payment_Method, Payments.Description, Clients.Display_Name FROM Payments "
               "INNER JOIN Clients ON Payments.Client_ID = Clients.Client_ID WHERE ") +
           whose)) {
    movements.push_back({row[u"Payment_Date"].ToDate(),
                         WordsOfPayment(row),
                         row[u"Display_Name"].ToText(),
                         Money(),
                         row[u"Amount"].ToMoney(),
                         {ReportLink::To::Payment, row[u"Payment_ID"].ToLong()}});
  }
}

Movements CollectMovements(Business& business, Id<Client> payer, bool ownPaymentsOnly) {
  Movements movements;
  AddJobs(business, payer, movements);
  AddPayments(business,
              ownPaymentsOnly ? Sql("Payments.Client_ID = {}", payer) : IsPaidBy("Clients", payer),
              movements);
  // On one day the work comes before the money for it.
  std::stable_sort(movements.begin(), movements.end(), [](const Movement& a, const Movement& b) {
    if (a.day != b.day) return a.day < b.day;
    return (a.link.to == ReportLink::To::Entry) > (b.link.to == ReportLink::To::Entry);
  });
  return movements;
}

ReportSection RunningAccount(const Movements& movements) {
  ReportSection section;
  section.columns = {{"Date", "<+1in", CellKind::Day},
                     {"What", "<+2.3in", CellKind::Text, Total::Word},
                     {"Client", "<+1.35in", CellKind::Text},
                     {"Charge", ">+.85in", CellKind::Money, Total::Sum},
                     {"Paid", ">+.85in", CellKind::Money, Total::Sum},
                     {"Owing", ">+.9in", CellKind::Money}};
  ReportGroup& group = section.groups.emplace_back();
  group.showsKey = false;
  RunningTotals totals(section.columns);
  Money jobs;
  Money paid;
  for (const Movement& movement : movements) {
    jobs += movement.charge;
    paid += movement.paid;
    const bool isJob = movement.link.to == ReportLink::To::Entry;
    group.rows.push_back(
        {.cells = {movement.day.isValid() ? Value(movement.day) : Value(), movement.what,
                   movement.client, isJob ? Value(movement.charge) : Value(),
                   isJob ? Value() : Value(movement.paid), -balances::RoundedBalance(paid, jobs)},
         .link = movement.link});
    totals.Add(group.rows.back().cells);
  }
  section.totals = totals.Under(QStringLiteral("Amount owing"));
  section.totals.back() = -balances::RoundedBalance(paid, jobs);
  return section;
}

}  // namespace

ReportData CollectAccountOfClient(Business& business, const ReportCriteria& criteria) {
  const auto asked = criteria.record            ? std::optional(Id<Client>(*criteria.record))
                     : criteria.clients.empty() ? std::nullopt
                                                : std::optional(criteria.clients.front());
  if (!asked) throw std::invalid_argument("Please choose a client.");
  const auto info = balances::GetClientBillingInfo(business, *asked);
  if (!info) throw std::invalid_argument("This client is no longer there.");
  const auto payer = balances::GetClientBillingInfo(business, info->payer);
  const bool ownPaymentsOnly =
      payer && balances::BalanceKindOf(info->payer, payer->payer, payer->status) ==
                   balances::BalanceKind::PaysForItself;
  const QString name =
      business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", info->payer))
          .ToText(QStringLiteral("(client is gone)"));
  ReportData data{.title = QStringLiteral("Account Of ") + name};
  data.sections = {RunningAccount(CollectMovements(business, info->payer, ownPaymentsOnly))};
  const Money owing = data.sections.front().totals.back().ToMoney();
  data.scope = {QStringLiteral("Amount owing today: ") + owing.ToCurrencyText()};
  data.notes = {QStringLiteral(
      "Amount owing is the total of the jobs done less the total of the payments. Invoices play "
      "no part in it.")};
  return data;
}

}  // namespace quillary::reports
