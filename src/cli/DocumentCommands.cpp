#include "base/OwnFiles.h"
#include "billing/invoices/InvoicePrint.h"
#include "billing/invoices/InvoiceRecord.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/Troubles.h"
#include "cli/WorkingBusiness.h"
#include "data/settings/PerUserSettings.h"
#include "documents/billing/BillingDocuments.h"
#include "pdf/PDFTypes.h"
#include "session/ProgramFolder.h"

#include <algorithm>

namespace quillary::cli {
namespace {

struct DocumentCall {
  documents::BillingOrder order;
  QString folder;
  std::optional<documents::Paper> paper;  // otherwise that of the country
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
documents::StatementDays DaysOf(const Call& call, Business& business,
                                const std::vector<Id<Invoice>>& invoices) {
  documents::StatementDays days{business.Today(), business.Today()};
  for (const Id<Invoice> invoice : invoices)
    days.from = std::min(days.from, billing::LoadInvoiceDetails(business, invoice)->date);
  days.from = call.arguments.Date("from").value_or(days.from);
  days.to = call.arguments.Date("to").value_or(days.to);
  if (days.to < days.from)
    throw CommandFailure(QStringLiteral("the last day of the statement is before its first"));
  return days;
}

/// The value that goes with the word of an option; that of the first word without the option.
template <typename Value>
Value ChoiceOf(const Call& call, const char* option,
               std::initializer_list<std::pair<const char*, Value>> choices) {
  if (!call.arguments.Has(option)) return choices.begin()->second;
  QStringList words;
  for (const auto& [word, value] : choices) {
    if (OptionOf(call, option) == QLatin1StringView(word)) return value;
    words += QLatin1StringView(word);
  }
  throw WrongUsage(QStringLiteral("--%1 takes %2")
                       .arg(QLatin1StringView(option), words.join(QStringLiteral(" or "))));
}

DocumentCall ReadDocumentCall(const Call& call, const QString& kind) {
  using documents::BillingDesign;
  using documents::BillingForm;
  using documents::BillingKind;
  using documents::Paper;
  DocumentCall document;
  documents::BillingOrder& order = document.order;
  if (kind == u"statement")
    order.kind = BillingKind::Statement;
  else if (kind == u"reminder")
    order.kind = BillingKind::Reminder;
  else if (kind != u"invoice")
    throw WrongUsage(QStringLiteral("there is no document \"%1\"").arg(kind));
  order.form = ChoiceOf<BillingForm>(call, "format",
                                     {{"pdf", BillingForm::Pdf}, {"word", BillingForm::Word}});
  if (call.arguments.Has("design")) {
    order.design = ChoiceOf<BillingDesign>(
        call, "design", {{"classic", BillingDesign::Classic}, {"clean", BillingDesign::Clean}});
  }
  if (!call.arguments.Has("out")) throw WrongUsage(QStringLiteral("--out names the folder"));
  order.invoices = ParseInvoices(OptionOf(call, "invoices"));
  order.mode = call.arguments.Has("exclude-tax") ? documents::TaxMode::Excluded
                                                 : documents::TaxMode::Included;
  document.folder = OptionOf(call, "out");
  if (call.arguments.Has("paper")) {
    document.paper = ChoiceOf<Paper>(
        call, "paper",
        {{"a4", Paper::A4}, {"letter", Paper::Letter}, {"legal", Paper::Legal}, {"a3", Paper::A3}});
  }
  return document;
}

documents::ReportDocument Print(const Call& call, const DocumentCall& document) {
  const auto business = OpenCurrentBusiness(call);
  documents::BillingOrder order = document.order;
  RequireInvoices(*business, order.invoices);
  billing::PrepareInvoicePrint(*business);
  if (order.kind == documents::BillingKind::Statement)
    order.days = DaysOf(call, *business, order.invoices);
  documents::BillingPlaces places{.report = documents::ReportPlacesUnder(session::ProgramFolder()),
                                  .folder = document.folder};
  places.report.paper = document.paper.value_or(places.report.paper);
  if (!MakeOwnFolder(places.folder))
    throw CommandFailure(QStringLiteral("the folder %1 cannot be made").arg(places.folder));
  order.fileNamePart = billing::LoadInvoiceDetails(*business, order.invoices.front())->madeOutTo;
  business->values.documentDesign = PerUserSettings().Read(
      QStringLiteral("Invoices"), QStringLiteral("Document Design"), QStringLiteral("CLASSIC"));
  try {
    documents::ReportDocument done = documents::PrintBillingDocument(*business, places, order);
    business->CloseConnection();
    return done;
  } catch (const PDFError& error) {
    throw CommandFailure(QString::fromUtf8(error.what()));
  }
}

void RunDocument(const Call& call) {
  const DocumentCall document = ReadDocumentCall(call, call.arguments.positional.at(1));
  const documents::ReportDocument done = Print(call, document);
  TellOnError(done.troubles);
  if (!done.isWritten) throw CommandFailure(QStringLiteral("nothing was written"));
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
        {"format", "pdf|word", "pdf unless told"},
        {"design", "clean|classic", "of a PDF file; else the user's own"},
        {"paper", "a4|letter|legal|a3", "that of the country unless told"}},
       2,
       2,
       RunDocument},
  };
}

}  // namespace quillary::cli
