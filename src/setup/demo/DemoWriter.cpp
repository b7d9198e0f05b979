#include "setup/demo/DemoLists.h"
#include "setup/demo/DemoModel.h"

#include <array>

namespace quillary::setup::demo {
namespace {

constexpr qint64 kFirstInvoiceNumber = 1001;
constexpr int kCheque = 1;  // of kPaymentMethods

/// Writes the thought-up business, keeping the keys that its rows are given.
class ModelWriter {
 public:
  ModelWriter(Business& business, const Model& model) : business_(business), model_(model) {}

  DemoCount Write();

 private:
  void ReadReferenceKeys();
  void WriteClients();
  void InsertClient(const Client& client);
  void WriteServices(size_t index);
  void WriteQuote(size_t index);
  void WriteInvoices();
  void WritePayments();
  void WriteRevenue(const Payment& payment, qint64 paymentKey);
  void WriteVisits();

  template <NumberedRow Row>
  qint64 NewRow(const Sql& insert) {
    return business_.InsertReturningKey<Row>(insert).Number();
  }
  qint64 ServiceKey(int kind) const { return serviceKeys_[static_cast<size_t>(kind)]; }
  qint64 EmployeeKey(int employee) const {
    return employee < 0 ? 0 : employeeKeys_[static_cast<size_t>(employee)];
  }
  QString AddressBlock(const Client& client) const;

  Business& business_;
  const Model& model_;
  DemoCount count_;
  std::vector<qint64> employeeKeys_;
  std::vector<qint64> serviceKeys_;
  std::vector<qint64> accountKeys_;  // of the services, in their order
  std::vector<qint64> clientKeys_;
  std::vector<qint64> invoiceKeys_;
  std::vector<qint64> paymentKeys_;
};

DemoCount ModelWriter::Write() {
  ReadReferenceKeys();
  WriteClients();
  WriteInvoices();
  WritePayments();
  WriteVisits();
  return count_;
}

void ModelWriter::ReadReferenceKeys() {
  for (const char* employee : kEmployees) {
    employeeKeys_.push_back(
        business_
            .FirstField(Sql("SELECT Employee_ID FROM Employees WHERE Employee_Name = {}", employee))
            .ToLong());
  }
  for (const CatalogueService& service : kServices) {
    const Recordset row = business_.RunSQL(
        Sql("SELECT Service_ID, Default_GL_Account_ID FROM Services WHERE Service_Code = {}",
            service.code));
    serviceKeys_.push_back(row.Field(u"Service_ID").ToLong());
    accountKeys_.push_back(row.Field(u"Default_GL_Account_ID").ToLong());
  }
}

QString ModelWriter::AddressBlock(const Client& client) const {
  const Suburb& suburb = kSuburbs[static_cast<size_t>(client.suburb)];
  return QStringLiteral("%1\r\n%2 %3\r\n%4 %5")
      .arg(client.displayName, client.streetNumber, client.street, suburb.name, suburb.postCode);
}

void ModelWriter::WriteClients() {
  for (const Client& client : model_.clients) InsertClient(client);
  for (size_t index = 0; index < model_.clients.size(); ++index) {
    const Client& client = model_.clients[index];
    business_.RunSQL(Sql("UPDATE Clients SET Billing_Client_ID = {} WHERE Client_ID = {}",
                         clientKeys_[client.billedTo], clientKeys_[index]));
    WriteServices(index);
    if (IsProspect(client)) WriteQuote(index);
  }
  count_.clients = static_cast<int>(model_.clients.size());
}

void ModelWriter::InsertClient(const Client& client) {
  constexpr std::array kStatementTypes = {"With Job", "With Job", "Monthly"};
  const Suburb& suburb = kSuburbs[static_cast<size_t>(client.suburb)];
  const bool paysItself = client.billedTo == clientKeys_.size();
  const bool isMonthly = client.billing == Billing::Monthly;
  const bool hasLeft =
      client.status == ClientStatus::Cancelled || client.status == ClientStatus::Transferred;
  const Value none;
  const bool isQuote = IsProspect(client);
  const qint64 key = NewRow<quillary::Client>(
      Sql("INSERT INTO Clients (Is_Billed_To, Status, Display_Name, First_Name, Surname, "
          "Street_Number, Street, Suburb, Post_Code, Phone_1, Phone_2, Email, Notes, "
          "Quote_Date, Cancelled_Date, Statement_Type, Requires_Statement, Account_Balance, "
          "Previous_Billing_Balance, Debtor_Since, Last_Payment_Method, InvoiceWithOutstanding, "
          "InvoiceWithNextJob) VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, "
          "{}, {}, {}, 0, {}, {}, True, True)",
          paysItself, client.status, client.displayName, client.firstName, client.surname,
          client.streetNumber, client.street, suburb.name, suburb.postCode, client.mobile,
          client.landline, client.email, client.notes,
          isQuote ? Value(model_.today.addDays(-10)) : none, hasLeft ? Value(client.until) : none,
          kStatementTypes[static_cast<size_t>(client.billing)], isMonthly, client.balance,
          client.debtorSince.isValid() ? Value(client.debtorSince) : none,
          kPaymentMethods[static_cast<size_t>(client.method)]));
  clientKeys_.push_back(key);
}

void ModelWriter::WriteServices(size_t index) {
  std::vector<qint64> keys;
  for (const Service& service : model_.clients[index].services) {
    const bool isOpen = service.status != JobType::Cancelled;
    const qint64 key = NewRow<quillary::ClientService>(Sql(
        "INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
        "Frequency, Next_Visit, Estimated_Time, Notes, Other_Schedule_Client_Service_ID) "
        "VALUES ({}, {}, {}, {}, {}, {}, {}, 45, {}, {})",
        clientKeys_[index], ServiceKey(service.kind), EmployeeKey(service.employee), service.status,
        service.price, service.frequency, isOpen ? Value(service.nextVisit) : Value(),
        service.notes, service.follows < 0 ? 0 : keys[static_cast<size_t>(service.follows)]));
    keys.push_back(key);
    ++count_.clientServices;
  }
}

void ModelWriter::WriteQuote(size_t index) {
  const qint64 quote = NewRow<quillary::Quote>(
      Sql("INSERT INTO Quotes (Client_ID, Quote_Date, Description) VALUES ({}, {}, {})",
          clientKeys_[index], model_.today.addDays(-10), "Regular garden care"));
  for (const Service& service : model_.clients[index].services) {
    business_.RunSQL(
        Sql("INSERT INTO Quote_Services (Quote_ID, Service_ID, Price, Notes) "
            "VALUES ({}, {}, {}, {})",
            quote, ServiceKey(service.kind), service.price, service.notes));
  }
  ++count_.quotes;
}

void ModelWriter::WriteInvoices() {
  qint64 number = kFirstInvoiceNumber - 1;
  for (const Invoice& invoice : model_.invoices) {
    const Client& party = model_.clients[invoice.party];
    const QString words = invoice.isMonthly
                              ? QStringLiteral("TAX INVOICE FOR ") + ToShortDateText(invoice.from) +
                                    QStringLiteral(" TO ") + ToShortDateText(invoice.to)
                              : QStringLiteral("TAX INVOICE");
    const qint64 key = NewRow<quillary::Invoice>(
        Sql("INSERT INTO Invoices (Invoice_Number, Client_ID, Made_Out_To, From_Date, To_Date, "
            "Generation_Date, Invoice_Description, Total_Amount, Total_GST, "
            "Balance_Carried_Across, Statement_Type, IsPaid) "
            "VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {}, 0, {}, {})",
            QString::number(++number), clientKeys_[invoice.party], AddressBlock(party),
            invoice.from, invoice.to, invoice.date, words, invoice.total, invoice.gst,
            invoice.isMonthly ? "Monthly" : "With Job", invoice.isPaid));
    invoiceKeys_.push_back(key);
  }
  business_.RunSQL(Sql("UPDATE infSystem SET Invoice_Number = {}", number));
  count_.invoices = static_cast<int>(model_.invoices.size());
}

void ModelWriter::WritePayments() {
  int cheque = 200100;
  for (const Payment& payment : model_.payments) {
    const bool isCheque = payment.method == kCheque;
    const Client& party = model_.clients[payment.party];
    const qint64 key = NewRow<quillary::Payment>(
        Sql("INSERT INTO Payments (Client_ID, Employee_ID, Payment_Date, Amount, GST_Included, "
            "Owing, Payment_Method, Cheque_Number, Bank, Bank_Account_Name, Description) "
            "VALUES ({}, {}, {}, {}, {}, 0, {}, {}, {}, {}, {})",
            clientKeys_[payment.party], EmployeeKey(0), payment.date, payment.amount,
            GstOf(payment.amount), kPaymentMethods[static_cast<size_t>(payment.method)],
            isCheque ? QString::number(++cheque) : QString(),
            isCheque ? kBanks[payment.party % kBanks.size()] : "",
            isCheque ? party.displayName : QString(), payment.description));
    paymentKeys_.push_back(key);
    WriteRevenue(payment, paymentKeys_.back());
  }
  count_.payments = static_cast<int>(model_.payments.size());
}

// One revenue line for each account that the paid services belong to; money without a job is income
// of the first one.
void ModelWriter::WriteRevenue(const Payment& payment, qint64 paymentKey) {
  std::array<Money, kServices.size()> byKind;
  for (const size_t visit : payment.visits) {
    for (const VisitLine& line : model_.visits[visit].lines) {
      byKind[static_cast<size_t>(line.kind)] += line.price;
    }
  }
  if (payment.visits.empty()) byKind[0] = payment.amount;
  std::array<Money, kAccounts.size()> byAccount;
  for (size_t kind = 0; kind < kServices.size(); ++kind) {
    byAccount[static_cast<size_t>(kServices[kind].account)] += byKind[kind];
  }
  for (size_t kind = 0; kind < kServices.size(); ++kind) {
    Money& amount = byAccount[static_cast<size_t>(kServices[kind].account)];
    if (amount == Money()) continue;
    business_.RunSQL(
        Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID, Employee_ID, Payment_ID, "
            "Entry_Date, GL_Entry_Description, GL_Amount, GST_Included) "
            "VALUES ({}, {}, {}, {}, {}, {}, {})",
            accountKeys_[kind], EmployeeKey(0), paymentKey, payment.date, payment.description,
            amount, GstOf(amount)));
    amount = Money();
  }
}

void ModelWriter::WriteVisits() {
  const Value none;
  for (const Visit& visit : model_.visits) {
    const qint64 diaryKey = NewRow<quillary::Entry>(
        Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
            "Total_Price, Total_GST, Time_Requested, Estimated_Minutes, [Sequence], Notes, "
            "Invoice_ID, Payment_ID) VALUES ({}, {}, {}, {}, {}, {}, {}, {}, 0, {}, {}, {}, {})",
            clientKeys_[visit.client], EmployeeKey(visit.employee), visit.status, visit.date,
            visit.description, visit.Price(), visit.Gst(),
            visit.time.isEmpty() ? Value(0) : Value(visit.time), visit.place, visit.notes,
            visit.invoice < 0 ? none : Value(invoiceKeys_[static_cast<size_t>(visit.invoice)]),
            visit.payment < 0 ? none : Value(paymentKeys_[static_cast<size_t>(visit.payment)])));
    for (const VisitLine& line : visit.lines) {
      business_.RunSQL(
          Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST, Frequency) "
              "VALUES ({}, {}, {}, {}, {})",
              diaryKey, ServiceKey(line.kind), line.price, line.gst, line.frequency));
    }
  }
  count_.diaryEntries = static_cast<int>(model_.visits.size());
}

}  // namespace

DemoCount WriteModel(Business& business, const Model& model) {
  return ModelWriter(business, model).Write();
}

}  // namespace quillary::setup::demo
