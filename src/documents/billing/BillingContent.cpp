#include "documents/billing/BillingContent.h"

namespace quillary::documents {
namespace {

const char* const kAmountMark = "[AMOUNT]";

QStringList FirstTextLines(Business& business, const char* statement) {
  return LinesOf(business.FirstField(Sql(statement)));
}

QStringList TermsFor(Business& business, Money amount) {
  const QString terms = business.FirstField(Sql("SELECT TermsOfTrade FROM infOptions")).ToText();
  return LinesOf(QString(terms).replace(QLatin1StringView(kAmountMark), amount.ToCurrencyText()));
}

QString TotalLabel(const BillingFrame& frame) {
  const bool namesTax = frame.mode == TaxMode::Included && !frame.taxName.isEmpty();
  const QString label = QStringLiteral("INVOICE TOTAL");
  return namesTax ? label + QStringLiteral(" (%1 inc.)").arg(frame.taxName) : label;
}

/// A dark colour for each trade, in which a title reads well on white.
int AccentOf(const QString& division) {
  constexpr int kGreen = 0x1F6F50;
  constexpr int kBlue = 0x1F5FA8;
  constexpr int kTeal = 0x0F6B73;
  constexpr int kRed = 0x9C3B2E;
  constexpr int kBrown = 0x7A5230;
  constexpr int kViolet = 0x5B4A9E;
  constexpr int kSlate = 0x34495E;
  static const QHash<QString, int> accents = {
      {"gardens", kGreen}, {"lawns", kGreen},     {"trees", kGreen},     {"windows", kBlue},
      {"pools", kTeal},    {"gutters", kTeal},    {"plumbing", kBlue},   {"homes", kViolet},
      {"carpets", kRed},   {"dogs", kBrown},      {"cars", kRed},        {"fences", kBrown},
      {"paving", kBrown},  {"painting", kViolet}, {"roofs", kRed},       {"handyman", kBrown},
      {"tiles", kTeal},    {"electrical", kBlue}, {"pest control", kRed}};
  return accents.value(division.toLower(), kSlate);
}

InvoiceRow InvoiceRowOf(const Record& row, TaxMode mode) {
  return {
      .number = row[u"Invoice_Number"].ToText().trimmed(),
      .date = row[u"Generation_Date"].ToDate(),
      .description = row[u"Invoice_Description"].ToText().trimmed(),
      .shown = ShownAmounts({row[u"Total_Amount"].ToMoney(), row[u"Total_GST"].ToMoney()}, mode)};
}

/// A heading above nothing would only make the reader wonder.
std::optional<JobSection> UnlessEmpty(JobSection section) {
  if (section.clients.empty()) return std::nullopt;
  return section;
}

/// Puts the invoices, which come client by client, with the documents of their clients.
template <typename Content>
Content& DocumentOf(std::vector<Content>& documents, const Record& row) {
  const Id<Client> clientId(row[u"Client_ID"].ToLong());
  if (documents.empty() || documents.back().clientId != clientId) {
    documents.push_back(Content{.clientId = clientId});
    documents.back().madeOutTo = LinesOf(row[u"Made_Out_To"]);
  }
  return documents.back();
}

template <typename Content>
void AddInvoice(Content& content, const Record& row, TaxMode mode) {
  content.invoices.push_back(InvoiceRowOf(row, mode));
  RunningTotal total{content.total};
  total.Add({row[u"Total_Amount"].ToMoney(), row[u"Total_GST"].ToMoney()}, mode);
  content.total = total.sum;
}

void CollectPayments(Business& business, const StatementDays& days, StatementContent& content) {
  std::vector<PaymentRow> payments;
  for (const Record row : business.RunSQL(
           Sql("SELECT * FROM Payments  WHERE Client_ID = {} AND Payment_Date BETWEEN {} AND {} "
               "ORDER BY Payment_Date;",
               content.clientId, days.from, EndOfDay(days.to)))) {
    payments.push_back({row[u"Payment_Date"].ToDate(), row[u"Amount"].ToMoney()});
    content.paymentsTotal += row[u"Amount"].ToMoney();
  }
  if (!payments.empty()) content.payments = std::move(payments);
}

}  // namespace

BillingFrame ReadBillingFrame(Business& business, TaxMode mode) {
  BillingFrame frame;
  frame.header = SetHeaderVariable(business);
  frame.taxName = business.values.taxName.trimmed();
  if (!frame.taxName.isEmpty()) frame.taxHeading = frame.taxName + QStringLiteral(" inc.");
  frame.mode = mode;
  frame.generalNotes = FirstTextLines(business, "SELECT Invoice_Notes FROM infOptions;");
  frame.notesFont = ReadNotesFont(business.World().settings);
  frame.accent = AccentOf(business.values.divisionName);
  frame.today = business.Today();
  return frame;
}

std::optional<InvoiceContent> CollectInvoice(Business& business, Id<Invoice> invoiceId,
                                             const BillingFrame& frame) {
  const Recordset found = business.RunSQL(
      Sql("SELECT Invoices.Invoice_ID, Invoices.Generation_Date, Invoices.From_Date, "
          "Invoices.To_Date, Invoices.Invoice_Description, Invoices.Statement_Type, "
          "Invoices.Done_For, Invoices.Made_Out_To, Invoices.Invoice_Number, "
          "Invoices.Invoice_Notes,  Clients.Client_ID, Clients.Billing_Client_ID, "
          "Clients.Display_Name, Clients.Street_Number, Clients.Street, Clients.Suburb, "
          "Clients.Post_Code, Clients.Phone_1, Clients.Phone_2, Clients.Work_Cover_Number, "
          "Clients.WorkCoverLabel,  Clients.InvoiceWithOutstanding, Clients.InvoiceWithNextJob, "
          "Clients.InvoiceWithUnpaidPastJobs, Clients.StatementWithPayments, "
          "Clients.InvoiceWithTelNo, Clients.Account_Balance  FROM Invoices INNER JOIN Clients "
          "ON Invoices.Client_ID = Clients.Client_ID  WHERE Invoices.Invoice_ID = {}",
          invoiceId));
  if (found.EndOfFile()) return std::nullopt;
  InvoiceContent invoice;
  invoice.number = found.Field(u"Invoice_Number").ToText().trimmed();
  invoice.date = found.Field(u"Generation_Date").ToDate();
  invoice.description = found.Field(u"Invoice_Description").ToText().trimmed();
  invoice.madeOutTo = LinesOf(found.Field(u"Made_Out_To"));
  invoice.notes = LinesOf(found.Field(u"Invoice_Notes"));
  invoice.withNextJob = found.Field(u"InvoiceWithNextJob").ToBool();
  invoice.jobs = CollectInvoiceJobs(business, invoiceId, frame.mode);
  invoice.invoiceTotal = invoice.jobs.total.price;
  if (found.Field(u"InvoiceWithUnpaidPastJobs").ToBool()) {
    const Id<Client> client(found.Field(u"Client_ID").ToLong());
    invoice.pastJobs = UnlessEmpty(CollectPastJobs(business, client, invoiceId, frame.mode));
    if (invoice.pastJobs) invoice.invoiceTotal += invoice.pastJobs->total.price;
  }
  invoice.totalLabel = TotalLabel(frame);
  invoice.totalLine =
      invoice.totalLabel + QStringLiteral(" : ") + invoice.invoiceTotal.ToCurrencyText();
  const bool withOutstanding = found.Field(u"InvoiceWithOutstanding").ToBool();
  invoice.amountPayable =
      withOutstanding ? -found.Field(u"Account_Balance").ToMoney() : invoice.invoiceTotal;
  invoice.payableLine =
      QStringLiteral("TOTAL AMOUNT PAYABLE : ") + invoice.amountPayable.ToCurrencyText();
  invoice.terms = TermsFor(business, invoice.amountPayable);
  return invoice;
}

std::vector<StatementContent> CollectStatements(Business& business, const StatementDays& days,
                                                const BillingFrame& frame) {
  std::vector<StatementContent> statements;
  for (const Record row : business.RunSQL(
           Sql("SELECT Invoices.Client_ID, Invoices.Made_Out_To, Invoices.Invoice_Number, "
               "Invoices.Generation_Date, Invoices.Invoice_Description, Invoices.Total_Amount, "
               "Invoices.Total_GST, Clients.InvoiceWithUnpaidPastJobs, "
               "Clients.StatementWithPayments  FROM (lstInvoicesToPrint INNER JOIN Invoices ON "
               "lstInvoicesToPrint.Invoice_ID = Invoices.Invoice_ID) INNER JOIN Clients ON "
               "Invoices.Client_ID = Clients.Client_ID  ORDER BY Invoices.Client_ID, "
               "Invoices.Generation_Date; "))) {
    const bool isNew =
        statements.empty() || statements.back().clientId.Number() != row[u"Client_ID"].ToLong();
    StatementContent& statement = DocumentOf(statements, row);
    AddInvoice(statement, row, frame.mode);
    if (!isNew) continue;
    if (row[u"InvoiceWithUnpaidPastJobs"].ToBool())
      statement.pastJobs = UnlessEmpty(
          CollectPastJobs(business, statement.clientId, days.from, days.to, frame.mode));
    if (row[u"StatementWithPayments"].ToBool()) CollectPayments(business, days, statement);
  }
  if (!statements.empty()) statements.back().isLast = true;
  return statements;
}

std::vector<ReminderContent> CollectReminders(Business& business, const BillingFrame& frame) {
  std::vector<ReminderContent> reminders;
  for (const Record row : business.RunSQL(
           Sql("SELECT Invoices.Client_ID, Invoices.Made_Out_To, Invoices.Invoice_Number, "
               "Invoices.Generation_Date, Invoices.Invoice_Description, Invoices.Total_Amount, "
               "Invoices.Total_GST  FROM lstInvoicesToPrint INNER JOIN Invoices ON "
               "lstInvoicesToPrint.Invoice_ID = Invoices.Invoice_ID  ORDER BY "
               "Invoices.Client_ID, Invoices.Generation_Date;")))
    AddInvoice(DocumentOf(reminders, row), row, frame.mode);
  return reminders;
}

}  // namespace quillary::documents
