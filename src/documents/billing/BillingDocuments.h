#pragma once

#include "documents/billing/BillingContent.h"
#include "documents/reports/Report.h"

/// The documents that go to clients.
namespace quillary::documents {

enum class BillingKind { Invoice, Statement, Reminder };

/// A PDF file, opened in the viewer of the machine, or pages for the preview with a file for the
/// word processor.
enum class BillingForm { Pdf, Word };

/// How the pages of the PDF form look.
enum class BillingDesign { Classic, Clean };

/// What is to be printed. A gone invoice is passed over.
struct BillingOrder {
  BillingKind kind = BillingKind::Invoice;
  BillingForm form = BillingForm::Pdf;
  std::vector<Id<Invoice>> invoices;
  TaxMode mode = TaxMode::Included;
  QString fileNamePart = {};                 // of an invoice: mostly who it is made out to
  StatementDays days = {};                   // of a statement: of its past jobs and payments
  std::optional<BillingDesign> design = {};  // the user's own unless told
};

/// Where billing documents find their pictures and where they go.
struct BillingPlaces {
  ReportPlaces report;
  QString folder = {};  // instead of `Report Doc`
  /// Kept by who prints many files, so that the metrics are read once.
  std::shared_ptr<const PageFonts> fonts = {};
  /// Whether a PDF file is shown when it is written; not for who makes many.
  bool opensViewer = true;
};

/// Prints every invoice from the top of a page, or for each client of the invoices a statement or a
/// reminder. An invoice's file is named after the order and the time, the others after the time.
///
/// Makes the invoices the selection of the print run. Throws std::runtime_error when the folder
/// cannot be made, PDFError or StorageFailure when the PDF file cannot be written; a file for the
/// word processor that cannot be is told by ReportDocument::isWritten.
ReportDocument PrintBillingDocument(Business& business, const BillingPlaces& places,
                                    const BillingOrder& order);

/// The user's choice of form and design.
BillingForm FormOfBilling(const Business& business);
BillingDesign DesignOfBilling(const Business& business);

/// The name of an invoice's file without its ending: "Invoice - Ann Able 09-05-07". The part is cut
/// so that the whole name, with an ending, is one that file systems take.
QString InvoiceFileName(const QString& part, const DateTime& moment);

}  // namespace quillary::documents
