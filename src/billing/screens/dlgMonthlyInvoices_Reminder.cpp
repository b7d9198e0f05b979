#include "billing/screens/dlgMonthlyInvoices_Reminder.h"

#include "billing/runs/MonthlyReminder.h"
#include "kit/DateField.h"
#include "kit/Layouts.h"

#include <QCheckBox>

namespace quillary::billing {

dlgMonthlyInvoices_Reminder::dlgMonthlyInvoices_Reminder(Business& business,
                                                         const ScreenTools& tools)
    : Dialog("dlgMonthlyInvoices_Reminder", tr("Monthly invoices"), business.World().prompter),
      business_(business) {
  const MonthlyReminder reminder = LoadMonthlyReminder(business);
  chkYesPlease = Named(new QCheckBox(QStringLiteral("&Yes please, remind me on:")), "chkYesPlease",
                       tr("Yes please, remind me"));
  chkYesPlease->setChecked(reminder.stored.has_value());
  txtDate = Named(new DateField(business.Today()), "txtDate", tr("Day of the reminder"));
  txtDate->SetDate(reminder.proposed);
  txtDate->setFixedWidth(184);
  txtDate->setEnabled(chkYesPlease->isChecked());
  auto* line = new QHBoxLayout;
  line->setSpacing(16);
  line->addWidget(chkYesPlease);
  line->addWidget(txtDate);
  line->addStretch(1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(MakeParagraph(
      "lblQuestion",
      QStringLiteral("Would you like to be reminded to print monthly invoices at a later date?"),
      LabelRole::Plain));
  column->addLayout(line);
  column->addWidget(MakeLabel(
      "lblStored",
      reminder.stored ? tr("The reminder stands on %1.").arg(ToShortDateText(*reminder.stored))
                      : tr("There is no reminder."),
      LabelRole::Hint));
  column->addStretch(1);
  SetContent(column);
  SetRoom({480, 0});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdOK = MakeButton("cmdOK", tr("&OK"), ButtonKind::Main);
  AddActions({cmdCancel, cmdOK});
  connect(chkYesPlease, &QCheckBox::toggled, txtDate, &QWidget::setEnabled);
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdOK, objectName(), [this] {
    SaveMonthlyReminder(business_,
                        chkYesPlease->isChecked() ? std::optional(txtDate->Date()) : std::nullopt);
    Close(Accepted);
  });
}

}  // namespace quillary::billing
