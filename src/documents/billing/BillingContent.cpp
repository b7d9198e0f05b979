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

QString TotalLine(const BillingFrame& frame, Money total) {
  const bool namesTax = frame.mode == TaxMode::Included && !frame.taxName.isEmpty();
  const QString tax = namesTax ? QStringLiteral("(%1 inc.)").arg(frame.taxName) : QString();
  return QStringLiteral("INVOICE TOTAL ") + tax +
         (namesTax ? QStringLiteral(" : ") : QStringLiteral(": ")) + total.ToCurrencyText();
}

InvoiceRow InvoiceRowOf(const Record& row, TaxMode mode) {
  return {
      .number = row[u"Invoice_Number"].ToText().trimmed(),
      .date = row[u"Generation_Date"].ToDate(),
      .description = row[u"Invoice_Description"].ToText().trimmed(),
      .shown = ShownAmounts({row[u"Total_Amount"].ToMoney(), row[u"Total_GST"].ToMoney()}, mode)};
}

/// Puts the invoices, which come client by client, with the documents of their clients.
template <typename Content>
Content& DocumentOf(std::vector<Content>& documents, const Record& row) {
  const qint64 clientId = row[u"Client_ID"].ToLong();
  if (documents.empty() || documents.back().clientId != clientId) {
    Content& content = documents.emplace_back();
    content.clientId = clientId;
    content.madeOutTo = LinesOf(row[u"Made_Out_To"]);
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
  content.payments.emplace();
  for (const Record row : business.RunSQL(
           Sql("SELECT * FROM Payments  WHERE Client_ID = {} AND Payment_Date BETWEEN {} AND {} "
               "ORDER BY Payment_Date;",
               content.clientId, days.from, EndOfDay(days.to)))) {
    content.payments->push_back({row[u"Payment_Date"].ToDate(), row[u"Amount"].ToMoney()});
    content.paymentsTotal += row[u"Amount"].ToMoney();
  }
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
  frame.today = business.Today();
  return frame;
}

std::vector<qint64> SelectedInvoices(Business& business) {
  std::vector<qint64> invoices;
  for (const Record row :
       business.RunSQL(Sql("SELECT DISTINCT(Invoice_ID) FROM lstInvoicesToPrint;")))
    invoices.push_back(row[size_t{0}].ToLong());
  return invoices;
}

std::optional<InvoiceContent> CollectInvoice(Business& business, qint64 invoiceId,
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
  invoice.invoiceId = invoiceId;
  invoice.number = found.Field(u"Invoice_Number").ToText().trimmed();
  invoice.date = found.Field(u"Generation_Date").ToDate();
  invoice.description = found.Field(u"Invoice_Description").ToText().trimmed();
  invoice.madeOutTo = LinesOf(found.Field(u"Made_Out_To"));
  invoice.notes = LinesOf(found.Field(u"Invoice_Notes"));
  invoice.withNextJob = found.Field(u"InvoiceWithNextJob").ToBool();
  invoice.jobs = CollectInvoiceJobs(business, invoiceId, frame.mode);
  invoice.invoiceTotal = invoice.jobs.total.price;
  if (found.Field(u"InvoiceWithUnpaidPastJobs").ToBool()) {
    invoice.pastJobs =
        CollectPastJobs(business, found.Field(u"Client_ID").ToLong(), invoiceId, frame.mode);
    invoice.invoiceTotal += invoice.pastJobs->total.price;
  }
  invoice.totalLine = TotalLine(frame, invoice.invoiceTotal);
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
        statements.empty() || statements.back().clientId != row[u"Client_ID"].ToLong();
    StatementContent& statement = DocumentOf(statements, row);
    AddInvoice(statement, row, frame.mode);
    if (!isNew) continue;
    if (row[u"InvoiceWithUnpaidPastJobs"].ToBool())
      statement.pastJobs =
          CollectPastJobs(business, statement.clientId, days.from, days.to, frame.mode);
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
