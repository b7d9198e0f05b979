#include "clients/screens/dlgClients.h"

#include "base/ports/requests/Documents.h"
#include "kit/Layouts.h"

#include <QGroupBox>
#include <QRadioButton>

namespace quillary::clients {

namespace {

QRadioButton* Option(const char* name, const QString& caption) {
  return Named(new QRadioButton(caption), name, PlainCaption(caption));
}

template <size_t count>
QGroupBox* Group(const QString& title, const std::array<QRadioButton*, count>& options) {
  auto* group = new QGroupBox(title);
  auto* column = new QVBoxLayout(group);
  column->setSpacing(8);
  for (QRadioButton* option : options) column->addWidget(option);
  column->addStretch(1);
  options.front()->setChecked(true);
  return group;
}

template <size_t count>
int Chosen(const std::array<QRadioButton*, count>& options) {
  for (size_t at = 0; at < count; ++at)
    if (options[at]->isChecked()) return static_cast<int>(at);
  return 0;
}

}  // namespace

dlgClients::dlgClients(Prompter& prompter, const ScreenTools& tools)
    : Dialog("dlgClients", QStringLiteral("Report criteria"), prompter) {
  which_ = {Option("optAllClients", tr("&All clients")), Option("optRegular", tr("&Regular")),
            Option("optCasual", tr("&Casual")), Option("optQuotes", tr("Pending &quotes"))};
  order_ = {Option("optBySuburb", tr("&Suburb")),
            Option("optByClientStatus", tr("Client s&tatus"))};
  auto* line = new QHBoxLayout;
  line->setSpacing(16);
  line->addWidget(Group(tr("Clients"), which_), 1);
  line->addWidget(Group(tr("Sorted by"), order_), 1);
  SetContent(line);
  SetRoom({440, 0});
  cmdCancel = MakeButton("cmdCancel", tr("Ca&ncel"));
  cmdPreview = MakeButton("cmdPreview", tr("&Preview"), ButtonKind::Main);
  cmdPreview->setEnabled(tools.navigator.CanOpen<ReportOnClients>());
  AddActions({cmdCancel, cmdPreview});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(cmdPreview, &QPushButton::clicked, this, [this] { Close(Accepted); });
}

ClientReportCriteria dlgClients::Criteria() const {
  return {static_cast<ClientReportCriteria::Which>(Chosen(which_)),
          static_cast<ClientReportCriteria::Order>(Chosen(order_))};
}

}  // namespace quillary::clients
