#include "maintenance/screens/frmRestoreClient.h"

#include "kit/Combos.h"
#include "kit/FlowLayout.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"
#include "kit/RowTicks.h"
#include "maintenance/oneclient/BringBack.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFileInfo>

namespace quillary::maintenance {
namespace {

constexpr char kOpenVisits[] =
    "Open visits are not listed: they are made from the services, also from those that come back.";

std::vector<GridColumn> DifferenceColumns() {
  return {{{}, ColumnKind::Tick, 40},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("What"), ColumnKind::StrongText, 176},
          {QObject::tr("Since the backup"), ColumnKind::Chip, 128},
          {QObject::tr("In the backup"), ColumnKind::Text, 240},
          {QObject::tr("Today"), ColumnKind::Text, 200},
          {QObject::tr("To note"), ColumnKind::Text, 320}};
}

struct SinceWord {
  const char* word;
  Hue hue;
};

SinceWord WordsOf(Since since) {
  switch (since) {
    case Since::Missing:
      return {"gone", Hue::Red};
    case Since::Changed:
      return {"changed", Hue::Yellow};
    case Since::New:
      break;
  }
  return {"new", Hue::Neutral};
}

}  // namespace

frmRestoreClient::frmRestoreClient(Business& business, const ScreenTools& tools,
                                   const QString& archive)
    : Screen(QStringLiteral("frmRestoreClient"), tr("Restore one client")),
      business_(business),
      tools_(tools),
      archive_(archive) {
  MakeControls();
  LayOut();
  ConnectControls();
  setFocusProxy(cboClient);
}

void frmRestoreClient::MakeControls() {
  cboBackup = Named(new QComboBox, "cboBackup");
  cboBackup->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  cboBackup->setMinimumContentsLength(24);
  cmdSearchOtherFile = MakeButton("cmdSearchOtherFile", tr("Searc&h for another..."));
  cboClient = Named(new ComboSearch, "cboClient");
  cboClient->GoBackWhenNothingMatches();
  cboClient->setMinimumWidth(260);
  lblNames = MakeLabel("lblNames", {}, LabelRole::Muted);
  chkTickUntickAll = MakeTickAllBox();
  chkShowNew = Named(new QCheckBox(tr("Show what is &new since")), "chkShowNew",
                     tr("Show what is new since the backup"));
  chkShowNew->setToolTip(tr("It stays as it is: the backup has nothing to bring back of it"));
  grdDifferences = new Grid(QStringLiteral("grdDifferences"));
  grdDifferences->setAccessibleName(tr("What differs"));
  grdDifferences->SetColumns(DifferenceColumns());
  grdDifferences->RememberIn(business_.World().settings);
  grdDifferences->setMinimumHeight(120);
  ticks_ = new RowTicks(grdDifferences, 0, chkTickUntickAll);
  cmdClose = MakeButton("cmdClose", tr("Close"));
  cmdClose->setToolTip(tr("Closes this tab (Ctrl+W)"));
  cmdBringBack = MakeButton("cmdBringBack", tr("&Bring ticked back"), ButtonKind::Main);
}

void frmRestoreClient::LayOut() {
  auto* file = new QHBoxLayout;
  file->setSpacing(8);
  file->addLayout(LabelOver(cboBackup, tr("Back&up")), 1);
  file->addWidget(cmdSearchOtherFile, 0, Qt::AlignBottom);
  auto* over = new FlowLayout;
  over->AddWidgets({chkTickUntickAll, chkShowNew, lblNames});
  auto* commands = new FlowLayout;
  commands->AddWidgets(
      {MakeLabel("lblOpenVisits", QString::fromLatin1(kOpenVisits), LabelRole::Hint)});
  commands->AddWidgets({cmdClose, cmdBringBack}, Qt::AlignRight);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 16);
  column->setSpacing(12);
  column->addLayout(InLine({{file, 3}, {LabelOver(cboClient, tr("C&lient")), 2}}));
  column->addLayout(over);
  column->addWidget(grdDifferences, 1);
  column->addLayout(commands);
}

void frmRestoreClient::ConnectControls() {
  connect(cboBackup, &QComboBox::activated, this, [this] {
    tools_.runner.RunBusy(objectName(), QStringLiteral("cboBackup_Click"),
                          [this] { OpenPicked(ComboId<Client>(cboClient)); });
  });
  connect(cboClient, &ComboSearch::picked, this, &frmRestoreClient::Reload);
  connect(chkShowNew, &QCheckBox::toggled, this, &frmRestoreClient::ShowRows);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  tools_.runner.OnClick(cmdSearchOtherFile, objectName(), [this] { SearchOtherFile(); });
  tools_.runner.OnClick(cmdBringBack, objectName(), [this] { BringBackTicked(); });
}

Tables frmRestoreClient::Shows() const {
  return {"Clients",  "Client_Services", "Diary",    "Diary_Services",         "Quotes",
          "Invoices", "Quote_Services",  "Payments", "General_Ledger_Entries", "Invoice_Items"};
}

void frmRestoreClient::ShowYourself(const OpenRestoreClient& request) {
  tools_.runner.RunBusy(objectName(), QStringLiteral("ShowYourself"), [&] {
    const QString shown =
        request.backup.isEmpty() ? cboBackup->currentData().toString() : request.backup;
    ListBackupFiles();
    if (!shown.isEmpty() && cboBackup->findData(shown) < 0 && QFileInfo(shown).isFile())
      AddBackup(ReadBackup(shown));
    cboBackup->setCurrentIndex(std::max(0, cboBackup->findData(shown)));
    OpenPicked(request.client ? request.client : ComboId<Client>(cboClient));
  });
  setFocus();
}

void frmRestoreClient::ListBackupFiles() {
  cboBackup->clear();
  for (const BackupFacts& facts : ListBackups(archive_)) AddBackup(facts);
}

void frmRestoreClient::AddBackup(const BackupFacts& facts) {
  const QString words =
      facts.description.isEmpty() ? QFileInfo(facts.file).fileName() : facts.description;
  cboBackup->addItem(QStringLiteral("%1 (%2)").arg(
                         words, facts.made.toString(QStringLiteral("d MMM yyyy, HH:mm"))),
                     facts.file);
}

void frmRestoreClient::OpenPicked(std::optional<Id<Client>> client) {
  comparison_.reset();
  backup_.reset();
  EmptyCombo(cboClient);
  const QString file = cboBackup->currentData().toString();
  if (!file.isEmpty()) {
    if (const auto refusal = CheckComparable(business_, file)) {
      business_.World().prompter.Tell(Tone::Stop, refusal->message);
    } else {
      backup_ = std::make_unique<OpenedBackup>(business_.World(), file);
      FillCombo(cboClient, ListClientsOf(*backup_, business_));
      SelectComboItem(cboClient, client);
    }
  }
  Compare();
}

void frmRestoreClient::SearchOtherFile() {
  const QString chosen = QFileDialog::getOpenFileName(this, QStringLiteral("Search a backup..."),
                                                      archive_, tr("Backups (*.mdb *.MDB)"));
  if (chosen.isEmpty()) return;
  if (const auto refusal = CheckComparable(business_, chosen)) {
    business_.World().prompter.Tell(Tone::Stop, refusal->message);
    return;
  }
  if (cboBackup->findData(chosen) < 0) AddBackup(ReadBackup(chosen));
  cboBackup->setCurrentIndex(cboBackup->findData(chosen));
  OpenPicked(ComboId<Client>(cboClient));
}

void frmRestoreClient::Reload() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("Reload"), [this] { Compare(); });
}

void frmRestoreClient::Compare() {
  comparison_.reset();
  const auto client = ComboId<Client>(cboClient);
  if (backup_ && client)
    comparison_ = std::make_unique<ClientComparison>(business_, *backup_, *client);
  QString names;
  if (comparison_ && !comparison_->IsThereToday())
    names = tr("%1 is no longer there.").arg(comparison_->NameThen());
  else if (comparison_ && comparison_->NameToday() != comparison_->NameThen())
    names = tr("Called %1 today.").arg(comparison_->NameToday());
  lblNames->setText(names);
  if (cboBackup->count() == 0)
    grdDifferences->SetEmptyText(tr("There are no backups in the folder Archive."),
                                 tr("Search for one that lies elsewhere."));
  else if (!comparison_)
    grdDifferences->SetEmptyText(tr("Nobody is picked."),
                                 tr("Pick the client whose rows are to come back."));
  else
    grdDifferences->SetEmptyText(tr("Nothing differs from the backup."), {});
  ShowRows();
}

void frmRestoreClient::ShowRows() {
  std::vector<GridRow> rows;
  size_t hidden = 0;
  for (size_t at = 0; comparison_ && at < comparison_->Differences().size(); ++at) {
    const ClientDifference& difference = comparison_->Differences()[at];
    hidden += difference.since == Since::New;
    if (difference.since == Since::New && !chkShowNew->isChecked()) continue;
    const SinceWord since = WordsOf(difference.since);
    GridRow row;
    row.cells = {false,           static_cast<qint64>(at), difference.what,  since.word,
                 difference.then, difference.now,          difference.remark};
    row.hue = since.hue;
    for (const QString& line : {difference.then, difference.now, difference.remark})
      if (!line.isEmpty())
        row.note += (row.note.isEmpty() ? QString() : QStringLiteral("\n")) + line;
    rows.push_back(std::move(row));
  }
  chkShowNew->setText(hidden == 0 ? tr("Show what is &new since")
                                  : tr("Show what is &new since (%1)").arg(hidden));
  const bool hasRows = !rows.empty();
  grdDifferences->SetRows(std::move(rows));
  grdDifferences->SelectFirst();
  ticks_->TakeRows();
  cmdBringBack->setEnabled(hasRows);
}

void frmRestoreClient::BringBackTicked() {
  if (!comparison_) return;
  std::vector<size_t> places;
  for (const qint64 key : ticks_->TickedKeys()) places.push_back(static_cast<size_t>(key));
  if (BringBackAfterAsking(business_, business_.World().prompter, *comparison_, places)) Compare();
  grdDifferences->setFocus();
}

}  // namespace quillary::maintenance
