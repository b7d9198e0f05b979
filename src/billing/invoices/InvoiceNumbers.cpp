#include "billing/invoices/InvoiceNumbers.h"

#include <algorithm>

namespace quillary::billing {

QString GetNextInvoiceNumber(Business& business) {
  const Value last = business.FirstField(Sql("SELECT Invoice_Number FROM infSystem"));
  const qint64 next = last.ToLong() + 1;
  business.Write(Sql("UPDATE infSystem SET Invoice_Number = {}", next), Rows::AtLeast(1));
  return QString::number(next);
}

QString ShownInvoiceNumber(const Value& stored) {
  const QString text = stored.ToText().trimmed();
  const auto digitsEnd = std::find_if_not(text.begin(), text.end(), [](QChar letter) {
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
  });
  const QString digits(text.begin(), static_cast<int>(digitsEnd - text.begin()));
  const QString bare = digits.mid(
      std::find_if(digits.begin(), digits.end(), [](QChar d) { return d != QLatin1Char('0'); }) -
      digits.begin());
  return bare.isEmpty() ? QStringLiteral("0") : bare;
}

}  // namespace quillary::billing
