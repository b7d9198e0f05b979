#include "billing/invoices/InvoiceTexts.h"

#include "clients/GeneralNotes.h"

namespace quillary::billing {

QStringList ListInvoiceNotes(Business& business) {
  QStringList notes;
  QString previous;
  for (const Record row :
       business.RunSQL(Sql("SELECT Invoice_Notes FROM Invoices ORDER BY Invoice_Notes;"))) {
    const QString note = row[u"Invoice_Notes"].ToText();
    if (note.trimmed().isEmpty() || note == previous) continue;
    notes += note;
    previous = note;
  }
  const QString general = clients::LoadGeneralNotes(business);
  if (!general.trimmed().isEmpty()) notes += general;
  return notes;
}

std::optional<Refusal> CheckNoteSelected(bool isSelected) {
  if (isSelected) return std::nullopt;
  return Refusal{"Please select a note from the list", "notes"};
}

QString LoadTermsOfTrade(Business& business) {
  return business.FirstField(Sql("SELECT TermsOfTrade FROM infOptions;")).ToText();
}

void SaveTermsOfTrade(Business& business, const QString& terms) {
  business.Write(Sql("UPDATE infOptions SET TermsOfTrade = {}", terms), Rows::AtLeast(1));
}

}  // namespace quillary::billing
