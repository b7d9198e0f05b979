#include "setup/screens/frmFirstTime_PortData.h"

#include "kit/Layouts.h"

namespace quillary::setup {

frmFirstTime_PortData::frmFirstTime_PortData(Prompter& prompter, const OlderData& found)
    : Dialog("frmFirstTime_PortData", QStringLiteral("Import data"), prompter) {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(MakeParagraph(
      "lblQuestion",
      QStringLiteral("It looks like you have one or more of these data files available to import "
                     "your data from. Which would you like to use?"),
      LabelRole::Plain));
  const struct {
    const char* name;
    QString caption;
    QString source;
    DataToPort value;
  } choices[] = {
      {"cmdBravantiOne", tr("&Bravanti One"), found.bravantiOne, DataToPort::BravantiOne},
      {"cmdVerdo", tr("&Verdo"), found.verdo, DataToPort::Verdo},
      {"cmdHOFile", QStringLiteral("H.O. file"), found.headOfficeFile, DataToPort::HeadOfficeFile},
  };
  for (const auto& choice : choices) {
    QPushButton* command = MakeButton(choice.name, choice.caption);
    command->setEnabled(!choice.source.isEmpty());
    command->setToolTip(choice.source);
    connect(command, &QPushButton::clicked, this, [this, value = choice.value] {
      chosen_ = value;
      Close(Accepted);
    });
    column->addWidget(command);
  }
  column->addStretch(1);
  SetContent(column);
  SetRoom({440, 240});
  QPushButton* cmdNone = MakeButton("cmdNone", tr("&None of them"), ButtonKind::Main);
  connect(cmdNone, &QPushButton::clicked, this, [this] { Close(Rejected); });
  AddActions({cmdNone});
}

DataToPort frmFirstTime_PortData::GetDataFile() {
  exec();
  return chosen_;
}

}  // namespace quillary::setup
