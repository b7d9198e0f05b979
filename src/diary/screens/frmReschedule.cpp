#include "diary/screens/frmReschedule.h"

#include "diary/Rescheduling.h"
#include "kit/Layouts.h"

namespace quillary::diary {

frmReschedule::frmReschedule(Business& business, const ScreenTools& tools)
    : Dialog("frmReschedule", tr("Reschedule"), business.World().prompter), business_(business) {
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  column->addWidget(MakeParagraph(
      "lblWhat",
      tr("Builds all jobs that are not done yet again, from today on, by the services and "
         "holidays as they stand now."),
      LabelRole::Plain));
  column->addWidget(MakeParagraph(
      "lblKept",
      tr("Jobs done, invoiced or cancelled stay as they are. Jobs moved or added by hand that are "
         "not done yet go. With many clients this takes a while.")));
  column->addStretch(1);
  SetContent(column);
  SetRoom({480, 0});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdRecreate =
      MakeButton("cmdRecreate", QStringLiteral("&Recreate entire schedule"), ButtonKind::Main);
  AddActions({cmdCancel, cmdRecreate});
  // It takes long and cannot be taken back, so Enter alone shall not start it.
  cmdRecreate->setDefault(false);
  cmdCancel->setFocus();
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdRecreate, objectName(), [this] { Recreate(); });
}

void frmReschedule::Recreate() {
  {
    const BusyWhile busy(business_.World().busy);
    RecreateEntireSchedule(business_);
  }
  Close(Accepted);
}

}  // namespace quillary::diary
