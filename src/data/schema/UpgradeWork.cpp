#include "data/schema/UpgradeWork.h"

#include "data/Business.h"
#include "data/schema/SeedRows.h"

namespace quillary::upgrade {
namespace {

void TieEntries(Business& business, const Sql& matches, const Sql& tie, const char16_t* source) {
  for (const Record row : business.RunSQL(matches)) {
    Sql update = tie;
    business.RunSQL(update + Sql("{} WHERE GL_Entry_ID = {}; ", row[source].ToLong(),
                                 row[u"GL_Entry_ID"].ToLong()));
  }
}

QDate FirstFromToday(QDate visit, int frequency, QDate today) {
  const qint64 days = visit.daysTo(today);
  // Backwards to the earliest date that is not before today, or forwards to the first that is not.
  const qint64 steps = days >= 0 ? (days + frequency - 1) / frequency : days / frequency;
  return visit.addDays(steps * frequency);
}

void RepairSchedule(Business& business, const Record& service, const Upgrader::Options& options) {
  const auto stored = service[u"Next_Visit"].ToDateTime();
  const int frequency = static_cast<int>(service[u"Frequency"].ToLong());
  if (!stored || service[u"Frequency"].IsNull() || frequency <= 0) return;
  const QDate today = business.Today();
  const QDate nextVisit = FirstFromToday(stored->date, frequency, today);
  if (nextVisit != stored->date) {
    business.RunSQL(Sql("UPDATE Client_Services SET Next_Visit = {} WHERE Client_Service_ID = {}; ",
                        nextVisit, service[u"Client_Service_ID"].ToLong()));
  }
  if (stored->date <= today || nextVisit <= today) return;
  const qint64 clientId = service[u"Client_ID"].ToLong();
  const Value entries = business.FirstField(
      Sql("SELECT Count(*) FROM Diary WHERE Client_ID = {} AND Schedule_Date BETWEEN {} AND {}; ",
          clientId, today, nextVisit));
  if (entries.ToLong() == 0 && options.advanceScheduleForClient) {
    options.advanceScheduleForClient(clientId);
  }
}

void ListMethods(Business& business, const Sql& missing) {
  for (const Record row : business.RunSQL(missing)) {
    const Value sequence =
        business.FirstField(Sql("SELECT MAX(Sequence) + 1 FROM lstPayment_Methods"));
    business.RunSQL(Sql("INSERT INTO lstPayment_Methods (Payment_Method, Sequence) VALUES ({}, {})",
                        row[u"PM1"], sequence));
  }
}

}  // namespace

void TieLedgerEntries(Business& business, const Upgrader::Options&) {
  TieEntries(business,
             Sql("SELECT Purchases.Purchase_ID, GL_Entry_ID FROM (General_Ledger_Entries "
                 "INNER JOIN Purchases ON General_Ledger_Entries.Entry_Date = "
                 "Purchases.Purchase_Date AND General_Ledger_Entries.GL_Amount = Purchases.Amount) "
                 "INNER JOIN General_Ledger_Accounts ON General_Ledger_Entries.GL_Account_ID = "
                 "General_Ledger_Accounts.GL_Account_ID "
                 "WHERE General_Ledger_Accounts.GL_Account_Type = 'Expense'; "),
             Sql("UPDATE General_Ledger_Entries SET Purchase_ID = "), u"Purchase_ID");
  TieEntries(business,
             Sql("SELECT Payments.Payment_ID, GL_Entry_ID FROM (General_Ledger_Entries "
                 "INNER JOIN Payments ON General_Ledger_Entries.Entry_Date = "
                 "Payments.Payment_Date AND General_Ledger_Entries.GL_Amount = Payments.Amount) "
                 "INNER JOIN General_Ledger_Accounts ON General_Ledger_Entries.GL_Account_ID = "
                 "General_Ledger_Accounts.GL_Account_ID "
                 "WHERE General_Ledger_Accounts.GL_Account_Type = 'Revenue'; "),
             Sql("UPDATE General_Ledger_Entries SET Payment_ID = "), u"Payment_ID");
}

void TotalInvoices(Business& business, const Upgrader::Options&) {
  const Recordset sums = business.RunSQL(
      Sql("SELECT Invoice_ID, Sum(Item_Amount) as Total_Amount, Sum(Item_GST) as Total_GST "
          "FROM Invoice_Items GROUP BY Invoice_ID; "));
  for (const Record sum : sums) {
    business.RunSQL(
        Sql("UPDATE Invoices SET Total_Amount = {}, Total_GST = {} WHERE Invoice_ID = {}; ",
            sum[u"Total_Amount"], sum[u"Total_GST"], sum[u"Invoice_ID"]));
  }
}

void RepairSchedules(Business& business, const Upgrader::Options& options) {
  const Recordset services = business.RunSQL(
      Sql("SELECT Client_Services.* FROM Client_Services INNER JOIN Clients "
          "ON Client_Services.Client_ID = Clients.Client_ID "
          "WHERE Client_Services.Status = 'Regular' AND Clients.Status = 'Active'; "));
  for (const Record service : services) RepairSchedule(business, service, options);
}

void ReloadDivisions(Business& business, const Upgrader::Options&) {
  business.RunSQL(Sql("DROP TABLE Divisions"));
  business.RunSQL(
      Sql("CREATE TABLE Divisions (Division_ID long, Division_Name Text(30),"
          "Nature_Of_Business Text(50))"));
  business.RunSQL(Sql("DELETE * FROM Divisions"));
  for (const Sql& row : DivisionRows()) business.RunSQL(row);
}

void ReloadCountries(Business& business, const Upgrader::Options&) {
  business.RunSQL(Sql("DROP TABLE Countries"));
  business.RunSQL(
      Sql("CREATE TABLE Countries (Country_ID Autoincrement, Country_Name Text(50), "
          "Registration_Name Text(50))"));
  business.RunSQL(Sql("DELETE * FROM Countries"));
  for (const Sql& row : CountryRows()) business.RunSQL(row);
}

void AddFirstHolidays(Business& business, const Upgrader::Options&) {
  for (const Sql& row : HolidayRows()) business.RunSQL(row);
}

void StartInvoiceCounter(Business& business, const Upgrader::Options&) {
  const Recordset highest =
      business.RunSQL(Sql("SELECT TOP 1 Invoice_Number FROM Invoices "
                          "ORDER BY CLng(IIf(IsNull(Invoice_Number),0, Invoice_Number)) DESC"));
  if (highest.EndOfFile()) return;
  business.RunSQL(
      Sql("UPDATE infSystem SET Invoice_Number = {}", highest.Field(u"Invoice_Number")));
}

void ListUsedPaymentMethods(Business& business, const Upgrader::Options&) {
  ListMethods(business, Sql("SELECT  DISTINCT Payments.Payment_Method As PM1 FROM Payments "
                            "LEFT JOIN lstPayment_Methods "
                            "ON Payments.Payment_Method = lstPayment_Methods.Payment_Method "
                            "WHERE Isnull( lstPayment_Methods.Payment_Method) "
                            "OR lstPayment_Methods.Payment_Method = '';"));
  ListMethods(business, Sql("SELECT  DISTINCT Purchases.Payment_Method As PM1 FROM Purchases "
                            "LEFT JOIN lstPayment_Methods "
                            "ON Purchases.Payment_Method = lstPayment_Methods.Payment_Method "
                            "WHERE Isnull( lstPayment_Methods.Payment_Method) "
                            "OR lstPayment_Methods.Payment_Method = '';"));
}

void StampDebtors(Business& business, const Upgrader::Options&) {
  business.RunSQL(
      Sql("UPDATE CLients SET Debtor_Since = {} WHERE Account_Balance < 0;", business.Today()));
}

void AddWindowDivision(Business& business, const Upgrader::Options&) {
  const QString name = WindowDivisionName();
  const Sql find("SELECT Division_ID FROM Divisions WHERE UCASE(Division_Name) = {}",
                 name.toUpper());
  if (!business.RunSQL(find).EndOfFile()) return;
  const Value next = business.FirstField(Sql("SELECT MAX(Division_ID) + 1 FROM Divisions"));
  business.RunSQL(Sql("INSERT INTO Divisions (Division_ID, Division_Name) VALUES ({}, {})",
                      IfNull(next, 1), name));
}

void NumberSuburbs(Business& business, const Upgrader::Options&) {
  int position = 0;
  const Recordset suburbs = business.RunSQL(
      Sql("SELECT DISTINCT Suburb FROM Clients WHERE Suburb <> '' ORDER BY Suburb;"));
  for (const Record suburb : suburbs) {
    business.RunSQL(Sql("INSERT INTO Suburb_Position (Suburb_Name, Position) VALUES ({}, {});",
                        suburb[u"Suburb"], ++position));
  }
}

void MakeQuotes(Business& business, const Upgrader::Options&) {
  const Recordset services = business.RunSQL(
      Sql("SELECT Clients.Client_ID, Client_Services.Service_ID, Client_Services.Price, "
          "Client_Services.Next_Visit, Client_Services.Notes, Services.Service_Code "
          "FROM (Clients INNER JOIN Client_Services "
          "ON Clients.Client_ID = Client_Services.Client_ID) "
          "INNER JOIN Services ON Services.Service_ID = Client_Services.Service_ID "
          "WHERE CLients.Status = 'Quote only' "
          "ORDER BY Clients.Client_ID, Client_Services.Service_ID;"));
  qint64 clientId = 0;
  Value quoteId;
  QString description;
  const auto storeDescription = [&] {
    if (quoteId.IsNull()) return;
    business.RunSQL(
        Sql("UPDATE Quotes SET Description = {} WHERE Quote_ID = {}; ", description, quoteId));
  };
  for (const Record service : services) {
    if (quoteId.IsNull() || service[u"Client_ID"].ToLong() != clientId) {
      storeDescription();
      clientId = service[u"Client_ID"].ToLong();
      description.clear();
      business.RunSQL(
          Sql("INSERT INTO Quotes (Client_ID, Quote_Date, Description) "
              "VALUES ({}, {}, '')",
              clientId, service[u"Next_Visit"]));
      quoteId = business.FirstField(Sql("SELECT MAX(Quote_ID) FROM Quotes"));
    }
    business.RunSQL(
        Sql("INSERT INTO Quote_Services (Quote_ID, Service_ID, Price, Notes) "
            "VALUES ({}, {}, {}, {})",
            quoteId, service[u"Service_ID"], service[u"Price"], service[u"Notes"]));
    description += service[u"Service_Code"].ToText() + QStringLiteral("; ");
  }
  storeDescription();
}

void SetTermsOfTrade(Business& business, const Upgrader::Options&) {
  business.RunSQL(Sql("UPDATE infOptions SET TermsOfTrade = {}", TermsOfTradeText()));
}

}  // namespace quillary::upgrade
