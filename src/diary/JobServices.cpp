#include "diary/JobServices.h"

#include "balances/ClientBalance.h"
#include "domain/Payer.h"
#include "domain/TaxRate.h"

namespace quillary::diary {
namespace {

constexpr char kNoAccount[] =
    "(No selected revenue account ), Please update in the Services screen.";

Money TaxInside(Business& business, Money price) {
  return TaxRate::Of(business).CalculateGSTComponent(price);
}

void InsertLine(Business& business, Id<Entry> entry, const JobServiceForm& form) {
  business.Write(
      Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, {}, {}, {})",
          entry, form.service, form.price, TaxInside(business, form.price)));
}

void UpdateLine(Business& business, const JobServiceForm& form) {
  business.Write(Sql("UPDATE Diary_Services SET Service_ID = {}, Price = {}, GST = {} "
                     "WHERE Diary_Service_ID = {}; ",
                     form.service, form.price, TaxInside(business, form.price), form.line),
                 Rows::Exactly(1));
}

/// What a done job costs is owed from the moment its lines are stored.
void FollowLines(Business& business, Id<Entry> entry) {
  UpdateTotalPriceAndGST(business, entry);
  balances::RecalculateClientBalance(business, PayerOf(business, entry));
}

}  // namespace

QString JobServices::TotalWords() const {
  return QStringLiteral("Total = ") + total.ToCurrencyText();
}

QString JobServices::Description() const {
  QStringList codes;
  for (const JobService& row : rows) codes += row.serviceCode;
  return codes.join(QStringLiteral(", "));
}

JobServices LoadServices(Business& business, Id<Entry> entry) {
  JobServices services;
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary_Services.Diary_Service_ID, Diary_Services.Service_ID, "
               "Services.Service_Code, Diary_Services.Price, "
               "General_Ledger_Accounts.GL_Account_Name "
               "FROM (Diary_Services "
               "LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) "
               "LEFT JOIN General_Ledger_Accounts "
               "ON Services.Default_GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
               "WHERE Diary_Services.Diary_ID = {} ORDER BY Service, Diary_Service_ID;",
               entry))) {
    JobService line{.line = Id<EntryLine>(row[u"Diary_Service_ID"].ToLong())};
    line.service = row[u"Service_ID"].ToId<Service>();
    line.serviceCode = row[u"Service_Code"].ToText();
    line.price = row[u"Price"].ToMoney().Rounded(2);  // the list shows cents and adds up the same
    line.accountName = row[u"GL_Account_Name"].ToText(QString(kNoAccount));
    services.total += line.price;
    services.rows.push_back(std::move(line));
  }
  return services;
}

void StoreServiceLine(Business& business, Id<Entry> entry, const JobServiceForm& form,
                      SaveLine as) {
  if (as == SaveLine::AsNew)
    InsertLine(business, entry, form);
  else
    UpdateLine(business, form);
}

std::optional<Refusal> SaveService(Business& business, Job& job, const JobServiceForm& form,
                                   SaveLine as) {
  if (!form.service) {
    return Refusal{QStringLiteral("Please select a service."), QStringLiteral("service")};
  }
  if (as == SaveLine::Selected && !form.line) {
    return Refusal{QStringLiteral("Please select a record to update."), {}};
  }
  Transaction save(business);
  Job stored = job;
  if (stored.IsNew()) {
    if (std::optional<Refusal> refusal = SaveJob(business, stored)) return refusal;
  }
  StoreServiceLine(business, *stored.entry, form, as);
  FollowLines(business, *stored.entry);
  save.Commit();
  job = stored;
  return std::nullopt;
}

std::optional<Refusal> RemoveService(Business& business, std::optional<Id<Entry>> entry,
                                     std::optional<Id<EntryLine>> line) {
  if (!entry || !line) return Refusal{QStringLiteral("Please select a service to delete."), {}};
  Transaction removal(business);
  business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_Service_ID = {}", line),
                 Rows::Exactly(1));
  FollowLines(business, *entry);
  removal.Commit();
  return std::nullopt;
}

void UpdateTotalPriceAndGST(Business& business, Id<Entry> entry) {
  const Money total = LoadServices(business, entry).total;
  business.Write(Sql("UPDATE Diary SET Total_Price = {}, Total_GST = {} WHERE Diary_ID = {};",
                     total, TaxInside(business, total), entry),
                 Rows::Exactly(1));
}

}  // namespace quillary::diary
