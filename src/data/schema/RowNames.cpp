#include "data/schema/RowNames.h"

namespace quillary {
namespace {

struct RowName {
  const char* table;
  const char* words;
};

constexpr RowName kRowNames[] = {
    {"Clients", "client"},
    {"Client_Services", "service of a client"},
    {"Diary", "diary entry"},
    {"Diary_Services", "line of a diary entry"},
    {"Quotes", "quote"},
    {"Quote_Services", "line of a quote"},
    {"Invoices", "invoice"},
    {"Invoice_Items", "line of an invoice"},
    {"Payments", "payment"},
    {"Bankings", "deposit"},
    {"Bank_Accounts", "bank account"},
    {"Purchases", "purchase"},
    {"Suppliers", "supplier"},
    {"General_Ledger_Accounts", "ledger account"},
    {"General_Ledger_Entries", "ledger entry"},
    {"Budgets", "budget"},
    {"Budget_Periods", "budget period"},
    {"Services", "service"},
    {"Employees", "employee"},
    {"Holiday", "holiday"},
    {"Suburb_Position", "suburb"},
    {"Divisions", "division"},
    {"Countries", "country"},
    {"lstBanks", "bank"},
    {"lstFrequencies", "frequency"},
    {"lstPayment_Methods", "payment method"},
    {"lstClientsToPrint", "client to print"},
    {"lstInvoicesToPrint", "invoice to print"},
    {"infOptions", "row of options"},
    {"infPersonalDetails", "row of the business's details"},
    {"infSystem", "row of counters"},
};

}  // namespace

QString RowInWords(const QString& table) {
  for (const RowName& name : kRowNames) {
    if (table.compare(QLatin1StringView(name.table), Qt::CaseInsensitive) == 0) {
      return QString::fromLatin1(name.words);
    }
  }
  return table.isEmpty() ? QStringLiteral("row") : QStringLiteral("row of ") + table;
}

}  // namespace quillary
