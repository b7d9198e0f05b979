#pragma once

#include "documents/billing/BillingContent.h"
#include "documents/billing/BillingPages.h"
#include "documents/reports/Report.h"
#include "documents/reports/ReportHeader.h"

/// The head of the documents that go to clients: who the business is and how it is paid.
namespace quillary::documents {

/// The logo of the business when it can be shown; otherwise empty, and the reason joins `troubles`.
QString UsableLogo(PDFWriter& pdf, const QString& file, QStringList& troubles);

/// Writes the letterhead from the current place on: the logo on the left, the business in the
/// middle, the title and the account on the right.
/// Nothing is written of what the business has not filled in.
void PrintHeaderPDF(BillingPages& pages, const HeaderStrings& header, const QString& logo,
                    const QString& title);

/// The same on the page and in the file of the word processor, the logo below.
void PrintHeaderWord(Report& report, const HeaderStrings& header, const QString& title);

/// The font that the user chose for notes.
BillingStyle NotesStyle(const BillingFrame& frame);

/// Where the money goes: "EFT", the account's name and number. None without an account.
QStringList EftLines(const HeaderStrings& header);
/// Name and address of the business, as a sender.
QStringList SenderLines(const HeaderStrings& header);

}  // namespace quillary::documents
