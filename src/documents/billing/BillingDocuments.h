#pragma once

#include "documents/billing/BillingContent.h"
#include "documents/reports/Report.h"

/// The documents that go to clients, each in two forms: a PDF file, opened in the viewer of the
/// machine, and pages for the preview with a file for the word processor. They print what
/// SelectInvoicesToPrint selected.
///
/// All throw std::runtime_error when the folder cannot be made, and PDFError or StorageFailure when
/// the PDF file cannot be written.
namespace quillary::documents {

/// Where billing documents find their pictures and where they go.
struct BillingPlaces {
  ReportPlaces report;
  QString folder = {};  // instead of `Report Doc`
  /// Kept by who prints many files, so that the metrics are read once.
  std::shared_ptr<const PageFonts> fonts = {};
};

/// Every invoice from the top of a page. The file is named after `fileNamePart`, mostly who the
/// invoice is made out to, and the time.
ReportDocument PrintInvoice(Business& business, const BillingPlaces& places,
                            const QString& fileNamePart, TaxMode mode);
ReportDocument PrintInvoicePDF(Business& business, const BillingPlaces& places,
                               const QString& fileNamePart, TaxMode mode);

/// For each client its invoices, however old; past jobs and payments are those of the days.
ReportDocument PrintStatementForInvoices(Business& business, const BillingPlaces& places,
                                         const StatementDays& days, TaxMode mode);
ReportDocument PrintStatementForInvoicesPDF(Business& business, const BillingPlaces& places,
                                            const StatementDays& days, TaxMode mode);

/// For each client its invoices, as issued but not paid.
ReportDocument PrintRemindersForInvoices(Business& business, const BillingPlaces& places,
                                         TaxMode mode);
ReportDocument PrintRemindersForInvoicesPDF(Business& business, const BillingPlaces& places,
                                            TaxMode mode);

/// Whether the user wants documents for the word processor rather than PDF files.
bool PrintsForWord(const Business& business);

/// The name of an invoice's file without its ending: "Invoice - Ann Able 09-05-07". The part is cut
/// so that the whole name, with an ending, is one that file systems take.
QString InvoiceFileName(const QString& part, const DateTime& moment);

}  // namespace quillary::documents
