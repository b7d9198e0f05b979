#pragma once

#include "documents/billing/BillingContent.h"
#include "documents/billing/BillingPages.h"

/// What the documents of the design "Clean" share: one left and one right edge, amounts under their
/// headings, the amount that matters at the upper right, the division's colour in the title.
namespace quillary::documents {

PageDesign CleanPageDesign();

namespace clean {

constexpr int kInk = 0x1A2233;
constexpr int kMuted = 0x5B6678;
constexpr int kFaint = 0xD9DEE5;
constexpr double kRow = 0.64;  // of a table, with the rule below it
constexpr BillingStyle kBody{.size = 9, .colour = kInk};
constexpr BillingStyle kStrong{.size = 9, .bold = true, .colour = kInk};
constexpr BillingStyle kQuiet{.size = 9, .colour = kMuted};
constexpr BillingStyle kLabel{.size = 8, .colour = kMuted};

struct HeadWords {
  QString title;
  std::vector<std::pair<QString, QString>> facts;  // below the title: label and value
  QString toLabel;
  QStringList to;
  QString amountLabel;
  Money amount;
};
/// The letterhead, who it is for and the box with the amount. `logo` may be empty.
void AddHead(BillingPages& pages, const BillingFrame& frame, const QString& logo,
             const HeadWords& words);

/// A small heading above a section.
void AddLabel(BillingPages& pages, const QString& words, double distance);

/// Where the two columns of money end.
double PriceEdge(const BillingPages& pages);
BillingPages::Cell MoneyTo(double right, const QString& text);
/// Adds both amounts.
void AddMoney(BillingPages& pages, BillingPages::Row& row, const Amounts& amounts);
void AddMoneyHeadings(BillingPages& pages, BillingPages::Row& row, const BillingFrame& frame,
                      const QString& word);
/// A row with a faint rule below.
void AddRuledRow(BillingPages& pages, const BillingPages::Row& row);
/// A label that ends left of the amounts, and those; `tax` may be empty.
void AddSumRow(BillingPages& pages, const QString& label, const QString& price, const QString& tax,
               const BillingStyle& style, double distance);

/// The jobs of a section by client, with the columns of past jobs or of an invoice's own.
enum class JobColumns { Plain, WithNextJob, Past };
void AddJobs(BillingPages& pages, const BillingFrame& frame, const JobSection& section,
             JobColumns columns);
/// The invoices of a statement or reminder, with their total unless that is 0.
void AddInvoices(BillingPages& pages, const BillingFrame& frame,
                 const std::vector<InvoiceRow>& invoices, const Amounts& total);

/// "NOTES" and the lines in the font that the user chose; nothing without lines.
void AddNotes(BillingPages& pages, const BillingFrame& frame, const QStringList& own);

}  // namespace clean
}  // namespace quillary::documents
