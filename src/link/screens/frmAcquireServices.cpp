#include "link/screens/frmAcquireServices.h"

#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <QComboBox>

namespace quillary::link {

frmAcquireServices::frmAcquireServices(Business& business, const ScreenTools& tools,
                                       const QString& archive)
    : Dialog("frmAcquireServices", QStringLiteral("Download Services"), business.World().prompter),
      business_(business),
      archive_(archive) {
  cboDivisions = ForField("division", Named(new QComboBox, "cboDivisions"));
  cmdLoadServicesToList = MakeButton("cmdLoadServicesToList", tr("&Load services to list"));
  grdServices = new Grid(QStringLiteral("grdServices"));
  grdServices->setAccessibleName(tr("Services of the division"));
  grdServices->SetColumns(
      {{tr("Service"), ColumnKind::Text, 320}, {tr("Code"), ColumnKind::Text, 120}});
  grdServices->SetEmptyText(tr("No services shown"),
                            tr("Choose a division and load its services to the list."));
  grdServices->setMinimumHeight(220);
  auto* top = new QHBoxLayout;
  top->addLayout(LabelOver(cboDivisions, tr("&Division")), 1);
  top->addWidget(cmdLoadServicesToList, 0, Qt::AlignBottom);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(MakeParagraph(
      "lblWarning",
      QStringLiteral(
          "Warning: Downloading services is NOT recommended if you already have entered/scheduled "
          "jobs as this may upset job details. Users are advised to do this only when they are "
          "starting up and the services available are not appropriate, for example a lawn mowing "
          "business that was set up with the services of window cleaning."),
      LabelRole::Warning));
  column->addLayout(top);
  column->addWidget(grdServices, 1);
  SetContent(column);
  SetRoom({620, 480});
  cmdClose = MakeButton("cmdClose", tr("&Close"));
  cmdDownload =
      MakeButton("cmdDownload", tr("D&ownload"), ButtonKind::Main, QStringLiteral("download"));
  AddActions({cmdClose, cmdDownload});
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdLoadServicesToList, objectName(), [this] { LoadServicesToList(); });
  tools.runner.OnClick(cmdDownload, objectName(), [this] { Download(); });
}

bool frmAcquireServices::LoadFrom(const HeadOfficeAccount& account) {
  Prompter& prompter = business_.World().prompter;
  const BusyWhile busy(business_.World().busy);
  try {
    Wexor session(business_.World().clock, account.authorities);
    session.Login(account.userName, account.password, account.url, ServerDatabase(), ServerData());
    if (!session.IsLoggedOn()) {
      prompter.Tell(Tone::Exclamation, session.LastError());
      return false;
    }
    offered_ = GetServices(session);
  } catch (const LinkError& error) {
    prompter.Tell(Tone::Exclamation, QString::fromUtf8(error.what()));
    return false;
  }
  for (const OfferedService& group : GroupsOf(offered_))
    cboDivisions->addItem(group.groupName, group.groupId);
  cboDivisions->setCurrentIndex(-1);
  return true;
}

QString frmAcquireServices::Division() const {
  return cboDivisions->currentData().toString();
}

void frmAcquireServices::LoadServicesToList() {
  if (Division().isEmpty()) {
    IsAccepted(Refusal{QStringLiteral("Please select a division."), QStringLiteral("division")});
    return;
  }
  std::vector<GridRow> rows;
  for (const OfferedService& service : OfGroup(offered_, Division()))
    rows.push_back({{service.name, service.code}});
  grdServices->SetRows(std::move(rows));
  grdServices->setFocus();
}

void frmAcquireServices::Download() {
  const AcquireOutcome outcome = ReplaceServices(business_, offered_, Division(), archive_);
  if (IsAccepted(outcome.refusal) && outcome.done) Close(Accepted);
}

}  // namespace quillary::link
