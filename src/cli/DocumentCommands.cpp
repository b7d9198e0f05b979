#include "base/OwnFiles.h"
#include "billing/invoices/InvoicePrint.h"
#include "billing/invoices/InvoiceRecord.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "documents/billing/BillingDocuments.h"
#include "pdf/PDFTypes.h"
#include "session/ProgramFolder.h"

#include <QDir>

#include <algorithm>

namespace quillary::cli {
namespace {

struct DocumentCall {
  std::vector<Id<Invoice>> invoices;
  documents::BillingPlaces places;
  documents::TaxMode mode = documents::TaxMode::Included;
  bool forWord = false;
  documents::StatementDays days;
};

const QString& OptionOf(const Call& call, const char* option) {
  static const QString none;
  const auto at = call.arguments.options.find(QString::fromLatin1(option));
  return at == call.arguments.options.end() ? none : *at;
}

std::vector<Id<Invoice>> ParseInvoices(const QString& list) {
  const auto invoices = ParseIds<Invoice>(list.split(u',', Qt::SkipEmptyParts));
  if (invoices.empty())
    throw WrongUsage(QStringLiteral("--invoices needs the numbers of the invoices"));
  return invoices;
}

void RequireInvoices(Business& business, const std::vector<Id<Invoice>>& invoices) {
  QStringList unknown;
  for (const Id<Invoice> invoice : invoices)
    if (!billing::LoadInvoiceDetails(business, invoice))
      unknown += QString::number(invoice.Number());
  if (unknown.isEmpty()) return;
  throw CommandFailure((unknown.size() == 1 ? QStringLiteral("there is no invoice ")
                                            : QStringLiteral("there are no invoices ")) +
                       unknown.join(QStringLiteral(", ")));
}

/// Without days a statement goes from the oldest of its invoices to today.
documents::StatementDays DaysOf(const Call& call, Business& business) {
  documents::StatementDays days;
  if (const auto from = call.arguments.Date("from"))
    days.from = *from;
  else
    days.from = business
                    .FirstField(Sql("SELECT MIN(Generation_Date) FROM Invoices INNER JOIN "
                                    "lstInvoicesToPrint ON Invoices.Invoice_ID = "
                                    "lstInvoicesToPrint.Invoice_ID"))
                    .ToDate(business.Today());
  days.to = call.arguments.Date("to").value_or(business.Today());
  if (days.to < days.from)
    throw CommandFailure(QStringLiteral("the last day of the statement is before its first"));
  return days;
}

documents::ReportDocument Print(Business& business, const QString& kind,
                                const DocumentCall& document) {
  const auto& [invoices, places, mode, forWord, days] = document;
  if (kind == u"statement") {
    return forWord ? documents::PrintStatementForInvoices(business, places, days, mode)
                   : documents::PrintStatementForInvoicesPDF(business, places, days, mode);
  }
  if (kind == u"reminder") {
    return forWord ? documents::PrintRemindersForInvoices(business, places, mode)
                   : documents::PrintRemindersForInvoicesPDF(business, places, mode);
  }
  const QString name = billing::LoadInvoiceDetails(business, invoices.front())->madeOutTo;
  return forWord ? documents::PrintInvoice(business, places, name, mode)
                 : documents::PrintInvoicePDF(business, places, name, mode);
}

DocumentCall ReadDocumentCall(const Call& call, const QString& kind) {
  if (kind != u"invoice" && kind != u"statement" && kind != u"reminder")
    throw WrongUsage(QStringLiteral("there is no document \"%1\"").arg(kind));
  const QString format = OptionOf(call, "format");
  if (!format.isEmpty() && format != u"pdf" && format != u"word")
    throw WrongUsage(QStringLiteral("--format takes pdf or word"));
  if (!call.arguments.Has("out")) throw WrongUsage(QStringLiteral("--out names the folder"));
  DocumentCall document;
  document.invoices = ParseInvoices(OptionOf(call, "invoices"));
  document.places = {.report = documents::ReportPlacesUnder(session::ProgramFolder()),
                     .folder = OptionOf(call, "out")};
  document.mode = call.arguments.Has("exclude-tax") ? documents::TaxMode::Excluded
                                                    : documents::TaxMode::Included;
  document.forWord = format == u"word";
  return document;
}

void RunDocument(const Call& call) {
  const QString kind = call.arguments.positional.at(1);
  DocumentCall document = ReadDocumentCall(call, kind);
  const auto business = OpenCurrentBusiness(call);
  RequireInvoices(*business, document.invoices);
  billing::PrepareInvoicePrint(*business, document.invoices);
  if (kind == u"statement") document.days = DaysOf(call, *business);
  if (!MakeOwnFolder(document.places.folder))
    throw CommandFailure(
        QStringLiteral("the folder %1 cannot be made").arg(document.places.folder));
  documents::ReportDocument done;
  try {
    done = Print(*business, kind, document);
  } catch (const PDFError& error) {
    throw CommandFailure(QString::fromUtf8(error.what()));
  }
  business->CloseConnection();
  for (const QString& trouble : done.troubles)
    call.world.prompter.Tell(Tone::Information, trouble, SystemTitle());
  if (call.json)
    call.out << "{\"file\": " << ToJson(done.docFile) << "}\n";
  else
    call.out << done.docFile << '\n';
}

}  // namespace

std::vector<Command> DocumentCommands() {
  return {
      {"document",
       "FILE invoice|statement|reminder --invoices ID,... --out DIR",
       "Writes a document for clients and prints the path of its file.",
       {{"invoices", "ID,...", "the invoices it is about"},
        {"out", "DIR", "the folder where the file goes"},
        {"from", "DATE", "first day of a statement; else that of its oldest invoice"},
        {"to", "DATE", "last day of a statement; else today"},
        {"exclude-tax", nullptr, "show amounts less tax"},
        {"format", "pdf|word", "pdf unless told"}},
       2,
       2,
       RunDocument},
  };
}

}  // namespace quillary::cli
