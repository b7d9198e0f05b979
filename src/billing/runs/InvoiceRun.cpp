#include "billing/runs/InvoiceRun.h"

#include "base/Text.h"
#include "billing/invoices/InvoiceNumbers.h"

#include <QLocale>

namespace quillary::billing {

Id<Invoice> InsertGeneratedInvoice(Business& business, const GeneratedInvoice& invoice) {
  return business.InsertReturningKey<Invoice>(
      Sql("INSERT INTO Invoices (Client_ID, Made_Out_To, Done_For, From_Date, To_Date, "
          "Generation_Date, Invoice_Description, Total_Amount, Total_GST, Balance_Carried_Across, "
          "Statement_Type, Invoice_Number) "
          "VALUES ({}, {}, NULL, {}, {}, {}, {}, {}, {}, 0, {}, {});",
          invoice.clientId, invoice.madeOutTo, invoice.days.from, invoice.days.to,
          invoice.generated, invoice.description, invoice.totalAmount, invoice.totalGST,
          invoice.statementType, GetNextInvoiceNumber(business)));
}

QString RunWords(const InvoiceRunCount& count) {
  QString words = Counted(count.invoices.size(), "invoice") + QStringLiteral(", ") +
                  count.totalAmount.ToCurrencyText();
  if (count.failed > 0)
    words += QStringLiteral("\n%1 failed and stayed as before").arg(count.failed);
  return words;
}

QString GeneratedMadeOutTo(const Record& client) {
  return AddressBlock(client[u"Display_Name"].ToText(), client[u"Street_Number"].ToText(),
                      client[u"Street"].ToText(), client[u"Suburb"].ToText(),
                      client[u"Post_Code"].ToText()) +
         u'\n';
}

QString UpperCasedDate(QDate date) {
  return QLocale(QLocale::English).toString(date, QStringLiteral("dd-MMM-yyyy")).toUpper();
}

bool GuardRunStep(Business& business, const QString& form, const QString& procedure,
                  const std::function<void()>& step) {
  try {
    Transaction part(business);
    step();
    part.Commit();
    return true;
  } catch (const StorageFailure&) {
    throw;
  } catch (const std::exception& error) {
    business.World().errors.Report(form, procedure, error);
    return false;
  }
}

}  // namespace quillary::billing
