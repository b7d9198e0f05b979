#include "billing/screens/frmTermOfTrade.h"

#include "billing/invoices/InvoiceTexts.h"
#include "kit/Layouts.h"

#include <QPlainTextEdit>

namespace quillary::billing {

frmTermOfTrade::frmTermOfTrade(Business& business, const ScreenTools& tools)
    : Dialog("frmTermOfTrade", tr("Terms of trade"), business.World().prompter),
      business_(business) {
  txtTermOfTrade = Named(new QPlainTextEdit, "txtTermOfTrade");
  txtTermOfTrade->setTabChangesFocus(true);
  txtTermOfTrade->setMinimumHeight(120);
  auto* column = LabelOver(txtTermOfTrade, tr("&Terms"));
  column->setStretch(1, 1);
  column->addWidget(MakeParagraph("lblAmount", tr("[AMOUNT] stands for the amount to be paid."),
                                  LabelRole::Hint));
  SetContent(column);
  SetRoom({560, 280});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdOK = MakeButton("cmdOK", tr("&Save"), ButtonKind::Main);
  AddActions({cmdCancel, cmdOK});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdOK, objectName(), [this] {
    SaveTermsOfTrade(business_, txtTermOfTrade->toPlainText());
    Close(Accepted);
  });
  tools.runner.Run(objectName(), QStringLiteral("Form_Load"),
                   [this] { txtTermOfTrade->setPlainText(LoadTermsOfTrade(business_)); });
  state_.WatchFieldsOf(this);
}

}  // namespace quillary::billing
