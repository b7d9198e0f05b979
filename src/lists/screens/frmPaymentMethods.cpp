#include "lists/screens/frmPaymentMethods.h"

#include "kit/ScreenDialog.h"
#include "lists/PaymentMethods.h"

#include <QApplication>

namespace quillary::lists {

RecordList PaymentMethodsList(Business& business) {
  return {
      .name = "frmPaymentMethods",
      .title = QObject::tr("Payment methods"),
      .gridName = QStringLiteral("fgPaymentMethods"),
      .about = QObject::tr("The ways in which clients pay you and you pay suppliers. Payments keep "
                           "the word they were made by: renaming a method here leaves old payments "
                           "as they are."),
      .emptyWhat = QObject::tr("There are no payment methods yet."),
      .emptyNext = QObject::tr("Fill in a method, such as CASH, and add it."),
      .columns = {{QObject::tr("Payment method"), ColumnKind::StrongText, 280},
                  {{}, ColumnKind::HiddenId}},
      .fields = {{"txtPaymentMethod", "word", QObject::tr("Payment &method"), FieldKind::Text, 0,
                  20}},
      .load =
          [&business] {
            std::vector<GridRow> rows;
            for (const ListedPaymentMethod& method : ListPaymentMethods(business))
              rows.push_back({{method.word, method.id}});
            return rows;
          },
      .insert =
          [&business](const RecordFields& fields) {
            return InsertPaymentMethod(business, fields.Text("txtPaymentMethod"));
          },
      .update =
          [&business](std::optional<qint64> key, const RecordFields& fields) {
            return UpdatePaymentMethod(business, IdFrom<PaymentMethodRow>(key),
                                       fields.Text("txtPaymentMethod"));
          },
      .remove =
          [&business](std::optional<qint64> key) {
            return DeletePaymentMethod(business, IdFrom<PaymentMethodRow>(key));
          },
  };
}

void OpenPaymentMethodsList(Business& business, const ScreenTools& tools) {
  const auto make = [&] {
    return new RecordListScreen(PaymentMethodsList(business), tools, business.World());
  };
  if (QApplication::activeModalWidget()) {
    ScreenDialog(make()).exec();
    return;
  }
  Screen* screen = tools.host.BringToFront(QStringLiteral("frmPaymentMethods"));
  if (!screen) {
    screen = make();
    tools.host.ShowScreen(screen);
  }
  screen->Reload();
  screen->setFocus();
}

}  // namespace quillary::lists
