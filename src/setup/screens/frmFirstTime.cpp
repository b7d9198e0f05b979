#include "setup/screens/frmFirstTime.h"

#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Setup.h"
#include "kit/Layouts.h"
#include "setup/screens/frmFirstTime_PortData.h"

#include <QGridLayout>

namespace quillary::setup {
namespace {

template <typename Request>
void OpenIfThere(const Navigator& navigator) {
  if (navigator.CanOpen<Request>()) navigator.Open(Request{});
}

/// Services come from head office where the business works with it; otherwise the owner keeps his
/// own list.
void OpenServicesOf(Business& business, const Navigator& navigator) {
  if (business.values.enableOstrel4WebServices)
    OpenIfThere<OpenAcquireServices>(navigator);
  else
    OpenIfThere<OpenServices>(navigator);
}

struct ChecklistLine {
  SetUpStep step;
  const char* name;
  QString caption;
  QString about;
  void (*open)(Business& business, const Navigator& navigator);
};

template <typename Request>
void Opens(Business&, const Navigator& navigator) {
  OpenIfThere<Request>(navigator);
}

std::vector<ChecklistLine> Checklist() {
  using enum SetUpStep;
  return {
      {YourInformation, "cmdYourInformation", QObject::tr("&Your information"),
       QObject::tr("Address, phone, tax number and bank details, as they head your invoices."),
       Opens<OpenPersonalInformation>},
      {Services, "cmdServices", QStringLiteral("&Services you provide"),
       QObject::tr("What jobs are made of, each with the account where it earns."), OpenServicesOf},
      {LedgerAccounts, "cmdLedgerAccounts", QStringLiteral("&Ledger accounts"),
       QObject::tr("What you earn from and spend on."), Opens<OpenGeneralLedgerAccounts>},
      {Employees, "cmdEmployees", QStringLiteral("&Employees"),
       QObject::tr("Who does the jobs; yourself to begin with."), Opens<OpenEmployees>},
      {Miscellaneous, "cmdMiscellaneous", QStringLiteral("&Miscellaneous settings"),
       QObject::tr("Tax, how far the diary is filled, how invoices are printed and mailed."),
       Opens<OpenMiscellaneousSettings>},
      {ClientDetails, "cmdClientDetails", QStringLiteral("&Client details"),
       QObject::tr("Type your clients in one below the other, or paste them from a list."),
       Opens<OpenFixClientDetails>},
      {ClientSchedules, "cmdClientSchedules", QStringLiteral("Client sc&hedules"),
       QObject::tr("What each is to receive, how often, for how much, next when."),
       Opens<OpenScheduleClients>},
  };
}

}  // namespace

frmFirstTime::frmFirstTime(Business& business, LocalSettings& settings, const ScreenTools& tools)
    : Dialog("frmFirstTime", QStringLiteral("Welcome to Quillary!"), business.World().prompter),
      business_(business) {
  SetContent(Lines(tools));
  SetRoom({680, 480});
  cmdBegin = MakeButton("cmdBegin", QStringLiteral("Start using &Quillary!"), ButtonKind::Main);
  AddActions({cmdBegin});
  connect(cmdBegin, &QPushButton::clicked, this, [this, &settings] {
    SetSetUpDue(settings, false);
    Close(Accepted);
  });
  commits_ = business.OnCommitted([this](const Tables&) { ShowTicks(); });
  ShowTicks();
  cmdBegin->setFocus();
}

QLayout* frmFirstTime::Lines(const ScreenTools& tools) {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addWidget(
      MakeLabel("lblWelcome", QStringLiteral("Welcome to Quillary!"), LabelRole::Title));
  column->addWidget(MakeParagraph(
      "lblAbout",
      QStringLiteral("There's a few things you'll need to do before you can start using "
                     "Quillary")));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(2, 1);
  for (const ChecklistLine& line : Checklist()) {
    const int row = grid->rowCount();
    auto* tick = MakeLabel("lblTick", {}, LabelRole::Figure);
    tick->setProperty("tone", QStringLiteral("accent"));
    tick->setFixedWidth(24);
    QPushButton* command = MakeButton(line.name, line.caption);
    tools.runner.OnClick(command, QStringLiteral("frmFirstTime"),
                         [this, open = line.open, &navigator = tools.navigator] {
                           open(business_, navigator);
                           ShowTicks();
                         });
    grid->addWidget(tick, row, 0);
    grid->addWidget(command, row, 1);
    grid->addWidget(MakeParagraph("lblLine", line.about), row, 2);
    lines_.push_back({line.step, tick, command});
  }
  column->addLayout(grid);
  column->addStretch(1);
  column->addWidget(MakeParagraph(
      "lblLater",
      tr("Nothing of this has to be done now: all of it stands in the menus Setup and Functions."),
      LabelRole::Hint));
  return column;
}

void frmFirstTime::ShowTicks() {
  for (const Line& line : lines_) {
    const bool done = IsDone(business_, line.step);
    line.tick->setText(done ? QStringLiteral("\u2713") : QString());
    line.command->setAccessibleDescription(done ? tr("done") : tr("not done yet"));
  }
}

void frmFirstTime::ShowYourself(Business& business, LocalSettings& settings,
                                const ScreenTools& tools, const QString& drive) {
  tools.runner.RunAside(QStringLiteral("frmFirstTime"), QStringLiteral("ShowYourself"), [&] {
    const OlderData found = FindOlderData(drive);
    if (!found.IsEmpty()) {
      switch (frmFirstTime_PortData(business.World().prompter, found).GetDataFile()) {
        case DataToPort::BravantiOne:
          OpenIfThere<ImportFromBravantiOne>(tools.navigator);
          break;
        case DataToPort::HeadOfficeFile:
          TakeHeadOfficeFile(drive, found.headOfficeFile);
          break;
        case DataToPort::Verdo:
        case DataToPort::None:
          break;
      }
      business.ConnectToDatabase();  // an import may have closed it
    }
    frmFirstTime(business, settings, tools).exec();
  });
}

}  // namespace quillary::setup
