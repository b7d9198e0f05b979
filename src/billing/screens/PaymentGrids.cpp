#include "billing/screens/PaymentGrids.h"

#include <QObject>

namespace quillary::billing {

std::vector<GridColumn> PaymentListColumns() {
  return {{QObject::tr("Client"), ColumnKind::StrongText, 216},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Date"), ColumnKind::Date, 104},
          {QObject::tr("Amount"), ColumnKind::Money, 104},
          {QObject::tr("Method"), ColumnKind::Text, 112},
          {QObject::tr("Revenue accounts of the jobs"), ColumnKind::Text, 264},
          {QObject::tr("Jobs paid for"), ColumnKind::Money, 120}};
}

std::vector<GridRow> PaymentListRows(const std::vector<PaymentRow>& payments) {
  std::vector<GridRow> rows;
  for (const PaymentRow& payment : payments) {
    GridRow row;
    row.cells = {payment.displayName,   payment.paymentId, payment.paymentDate, payment.amount,
                 payment.paymentMethod, payment.accounts,  payment.glAmount};
    if (payment.IsMismatch()) {
      row.hue = Hue::Yellow;
      row.note = QObject::tr("The payment and the jobs it covers differ by %1.")
                     .arg((payment.amount - payment.glAmount).ToCurrencyText());
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace quillary::billing
