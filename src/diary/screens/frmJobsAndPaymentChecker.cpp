#include "diary/screens/frmJobsAndPaymentChecker.h"

#include "balances/ClientBalance.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Scheduling.h"
#include "clients/ClientStatus.h"
#include "kit/Controls.h"
#include "kit/Grid.h"

/// What the checker of jobs and payments loads, and its commands.
namespace quillary::diary {

namespace {

Hue HueOfJob(balances::CheckedJobColour colour) {
  switch (colour) {
    case balances::CheckedJobColour::Done:
      return Hue::Green;
    case balances::CheckedJobColour::Paid:
      return Hue::Blue;
    default:
      return Hue::Neutral;
  }
}

QString CountOf(size_t count, const QString& one, const QString& many) {
  return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : many);
}

std::vector<GridRow> RowsOf(const balances::CheckedPayments& payments) {
  std::vector<GridRow> rows;
  for (const balances::CheckedPayment& payment : payments.rows)
    rows.push_back({{payment.displayName, payment.paymentId, payment.paymentDate, payment.amount,
                     payment.paymentMethod, payment.accounts}});
  return rows;
}

}  // namespace

frmJobsAndPaymentChecker::frmJobsAndPaymentChecker(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmJobsAndPaymentChecker"), tr("Client's Jobs/Payments")),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  ConnectControls();
  EnableCommands();
  setFocusProxy(grdClients);
}

void frmJobsAndPaymentChecker::ConnectControls() {
  const auto on = [this](QPushButton* button, void (frmJobsAndPaymentChecker::*command)()) {
    tools_.runner.OnClick(button, objectName(), [this, command] { (this->*command)(); });
  };
  on(cmdEditJob, &frmJobsAndPaymentChecker::EditSelectedJob);
  on(cmdDeleteJob, &frmJobsAndPaymentChecker::DeleteSelectedJob);
  on(cmdViewPayment, &frmJobsAndPaymentChecker::ViewSelectedPayment);
  on(cmdDeletePayment, &frmJobsAndPaymentChecker::DeleteSelectedPayment);
  on(cmdRecalculateAmountOwing, &frmJobsAndPaymentChecker::RecalculateAmountOwing);
  tools_.runner.OnClick(cmdViewClient, objectName(), [this] {
    if (const auto client = SelectedClient()) tools_.navigator.Open(OpenClient{*client});
  });
  connect(cmdRefreshList, &QPushButton::clicked, this, &frmJobsAndPaymentChecker::Reload);
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  connect(grdClients, &Grid::selectedRowChanged, this, [this] {
    tools_.runner.Run(objectName(), QStringLiteral("LoadPastJobs"),
                      [this] { LoadMoneyOfClient(); });
  });
  // One payment is selected in both lists together.
  const auto clearsOther = [this](Grid* one, Grid* other) {
    connect(one, &Grid::selectedRowChanged, other, [one, other] {
      if (one->SelectedRow()) other->clearSelection();
    });
  };
  clearsOther(grdPayments, grdPayments2);
  clearsOther(grdPayments2, grdPayments);
  connect(grdClients, &Grid::rowOpened, cmdViewClient, &QPushButton::click);
  connect(grdJobs, &Grid::rowOpened, cmdEditJob, &QPushButton::click);
  for (Grid* grid : {grdPayments, grdPayments2})
    connect(grid, &Grid::rowOpened, cmdViewPayment, &QPushButton::click);
}

void frmJobsAndPaymentChecker::EnableCommands() {
  const Navigator& to = tools_.navigator;
  cmdViewClient->setEnabled(to.CanOpen<OpenClient>());
  cmdEditJob->setEnabled(to.CanOpen<EditJob>());
  cmdViewPayment->setEnabled(to.CanOpen<ViewPayment>());
}

void frmJobsAndPaymentChecker::Reload() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("LoadClientsIntoGrid"),
                        [this] { LoadClientsIntoGrid(); });
}

void frmJobsAndPaymentChecker::LoadClientsIntoGrid() {
  const auto selected = grdClients->SelectedRow();
  const qint64 kept = selected ? grdClients->Key(*selected) : 0;
  std::vector<GridRow> rows;
  for (const balances::CheckedClient& client : balances::ListCheckedClients(business_)) {
    GridRow row;
    row.cells = {client.displayName, client.clientId,
                 client.status,      client.billedClient.trimmed(),
                 client.amountOwing, client.billedClientOwes};
    row.hue = HueOfColour(clients::ClientStatusColour(client.status));
    rows.push_back(std::move(row));
  }
  {
    const QSignalBlocker once(grdClients);  // its money is loaded once, below
    grdClients->SetRows(std::move(rows));
    if (!grdClients->SelectKey(kept)) grdClients->SelectFirst();
  }
  LoadMoneyOfClient();
}

void frmJobsAndPaymentChecker::LoadMoneyOfClient() {
  const auto row = grdClients->SelectedRow();
  const qint64 clientId = row ? grdClients->Key(*row) : 0;
  LoadPastJobs(clientId);
  LoadPayments(clientId);
}

void frmJobsAndPaymentChecker::LoadPastJobs(qint64 clientId) {
  const balances::CheckedJobs jobs = balances::ListCheckedJobs(business_, clientId);
  std::vector<GridRow> rows;
  for (const balances::CheckedJob& job : jobs.rows) {
    const QString words = job.isPaid ? tr("%1 · paid").arg(job.StatusWords()) : job.StatusWords();
    GridRow row;
    row.cells = {job.displayName, job.diaryId,    job.scheduleDate,
                 job.description, job.totalPrice, GridCell(job.status, words)};
    row.hue = HueOfJob(job.Colour());
    rows.push_back(std::move(row));
  }
  txtTotalNoOfJobs->setText(CountOf(rows.size(), tr("job"), tr("jobs")));
  grdJobs->SetRows(std::move(rows));
  txtTotalJobAmount->setText(jobs.total.ToCurrencyText());
}

void frmJobsAndPaymentChecker::LoadPayments(qint64 clientId) {
  const balances::CheckedPayments own = balances::ListPaymentsOfClient(business_, clientId);
  const balances::CheckedPayments attached =
      balances::ListPaymentsOfAttachedClients(business_, clientId);
  grdPayments->SetRows(RowsOf(own));
  grdPayments2->SetRows(RowsOf(attached));
  txtTotalNoOfPayments->setText(CountOf(own.rows.size(), tr("payment"), tr("payments")));
  txtTotalNoOfPayments2->setText(CountOf(attached.rows.size(), tr("payment"), tr("payments")));
  txtTotalPayments->setText(own.total.ToCurrencyText());
  txtTotalPayments2->setText(attached.total.ToCurrencyText());
}

std::optional<qint64> frmJobsAndPaymentChecker::Selected(const Grid* grid,
                                                         const char* noneSelected) {
  if (const auto row = grid->SelectedRow()) return grid->Key(*row);
  business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(noneSelected));
  return std::nullopt;
}

std::optional<qint64> frmJobsAndPaymentChecker::SelectedClient() {
  return Selected(grdClients, "Please select a client.");
}

std::optional<qint64> frmJobsAndPaymentChecker::SelectedPayment() {
  const Grid* chosen = grdPayments2->SelectedRow() ? grdPayments2 : grdPayments;
  return Selected(chosen, "Please select a payment.");
}

void frmJobsAndPaymentChecker::EditSelectedJob() {
  const auto job = Selected(grdJobs, "Please select a job.");
  if (!job) return;
  tools_.navigator.Open(EditJob{*job});
  Reload();
}

void frmJobsAndPaymentChecker::DeleteSelectedJob() {
  const auto client = SelectedClient();
  const auto job = client ? Selected(grdJobs, "Please select a job to delete.") : std::nullopt;
  if (!job || business_.World().prompter.AskBeforeLosing(
                  tr("Are you sure you want to delete this job?")) != Answer::Yes)
    return;
  balances::DeleteCheckedJob(business_, *client, *job);
  Reload();
}

void frmJobsAndPaymentChecker::ViewSelectedPayment() {
  const auto payment = SelectedPayment();
  if (!payment) return;
  tools_.navigator.Open(ViewPayment{*payment});
  Reload();
}

void frmJobsAndPaymentChecker::DeleteSelectedPayment() {
  const auto client = SelectedClient();
  const auto payment = client ? SelectedPayment() : std::nullopt;
  if (!payment || business_.World().prompter.AskBeforeLosing(
                      tr("Are you sure you want to delete this payment?")) != Answer::Yes)
    return;
  balances::DeleteCheckedPayment(business_, *client, *payment);
  Reload();
}

void frmJobsAndPaymentChecker::RecalculateAmountOwing() {
  if (balances::RecomputeAmountOwingAfterAsking(business_, business_.World().prompter)) Reload();
}

}  // namespace quillary::diary
