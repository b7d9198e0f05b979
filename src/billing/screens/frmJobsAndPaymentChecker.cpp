#include "billing/screens/frmJobsAndPaymentChecker.h"

#include "balances/ClientBalance.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "diary/DiaryCommands.h"
#include "kit/Controls.h"
#include "kit/Grid.h"

/// What the checker of jobs and payments loads, and its commands.
namespace quillary::billing {

namespace {

QString CountOf(size_t count, const QString& one, const QString& many) {
  return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : many);
}

std::vector<GridRow> RowsOf(const CheckedPayments& payments) {
  std::vector<GridRow> rows;
  for (const CheckedPayment& payment : payments.rows)
    rows.push_back({{payment.displayName, payment.payment, payment.paymentDate, payment.amount,
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
  tools_.runner.OnClick(cmdAccountOfClient, objectName(), [this] {
    if (const auto client = SelectedClient()) tools_.navigator.Open(ShowAccountOfClient{client});
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
  cmdAccountOfClient->setEnabled(to.CanOpen<ShowAccountOfClient>());
  cmdEditJob->setEnabled(to.CanOpen<EditJob>());
  cmdViewPayment->setEnabled(to.CanOpen<ViewPayment>());
}

void frmJobsAndPaymentChecker::Reload() {
  tools_.runner.RunBusy(objectName(), QStringLiteral("LoadClientsIntoGrid"),
                        [this] { LoadClientsIntoGrid(); });
}

void frmJobsAndPaymentChecker::LoadClientsIntoGrid() {
  const auto kept = grdClients->SelectedId<Client>();
  std::vector<GridRow> rows;
  for (const CheckedClient& client : ListCheckedClients(business_)) {
    GridRow row;
    row.cells = {client.displayName, client.client,
                 client.status,      client.billedClient.trimmed(),
                 client.amountOwing, client.billedClientOwes};
    row.hue = HueOf(client.status);
    rows.push_back(std::move(row));
  }
  {
    const QSignalBlocker once(grdClients);  // its money is loaded once, below
    grdClients->SetRows(std::move(rows));
    if (!kept || !grdClients->SelectId(*kept)) grdClients->SelectFirst();
  }
  LoadMoneyOfClient();
}

void frmJobsAndPaymentChecker::LoadMoneyOfClient() {
  const auto client = grdClients->SelectedId<Client>();
  ShowJobs(client ? ListCheckedJobs(business_, *client) : CheckedJobs());
  ShowPayments(client ? ListPaymentsOfClient(business_, *client) : CheckedPayments(),
               client ? ListPaymentsOfAttachedClients(business_, *client) : CheckedPayments());
}

void frmJobsAndPaymentChecker::ShowJobs(const CheckedJobs& jobs) {
  std::vector<GridRow> rows;
  for (const CheckedJob& job : jobs.rows) {
    const QString words = job.isPaid ? tr("%1 · paid").arg(job.StatusWords()) : job.StatusWords();
    GridRow row;
    row.cells = {job.displayName, job.entry,      job.scheduleDate,
                 job.description, job.totalPrice, GridCell(job.status, words)};
    row.hue = HueOf(job.status, job.isPaid);
    rows.push_back(std::move(row));
  }
  txtTotalNoOfJobs->setText(CountOf(rows.size(), tr("job"), tr("jobs")));
  grdJobs->SetRows(std::move(rows));
  txtTotalJobAmount->setText(jobs.total.ToCurrencyText());
}

void frmJobsAndPaymentChecker::ShowPayments(const CheckedPayments& own,
                                            const CheckedPayments& attached) {
  grdPayments->SetRows(RowsOf(own));
  grdPayments2->SetRows(RowsOf(attached));
  txtTotalNoOfPayments->setText(CountOf(own.rows.size(), tr("payment"), tr("payments")));
  txtTotalNoOfPayments2->setText(CountOf(attached.rows.size(), tr("payment"), tr("payments")));
  txtTotalPayments->setText(own.total.ToCurrencyText());
  txtTotalPayments2->setText(attached.total.ToCurrencyText());
}

template <NumberedRow Row>
std::optional<Id<Row>> frmJobsAndPaymentChecker::Selected(const Grid* grid,
                                                          const char* noneSelected) {
  const auto selected = grid->SelectedId<Row>();
  if (!selected)
    business_.World().prompter.Tell(Tone::Exclamation, QString::fromLatin1(noneSelected));
  return selected;
}

std::optional<Id<Client>> frmJobsAndPaymentChecker::SelectedClient() {
  return Selected<Client>(grdClients, "Please select a client.");
}

std::optional<Id<Payment>> frmJobsAndPaymentChecker::SelectedPayment() {
  const Grid* chosen = grdPayments2->SelectedRow() ? grdPayments2 : grdPayments;
  return Selected<Payment>(chosen, "Please select a payment.");
}

void frmJobsAndPaymentChecker::EditSelectedJob() {
  const auto job = Selected<Entry>(grdJobs, "Please select a job.");
  if (!job) return;
  tools_.navigator.Open(EditJob{*job});
  Reload();
}

void frmJobsAndPaymentChecker::DeleteSelectedJob() {
  if (!SelectedClient()) return;
  const auto job = Selected<Entry>(grdJobs, "Please select a job to delete.");
  if (!job || business_.World().prompter.AskBeforeLosing(
                  tr("Are you sure you want to delete this job?")) != Answer::Yes)
    return;
  diary::DeleteEntry(business_, *job);
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
  RemovePayment(business_, client, *payment);
  Reload();
}

void frmJobsAndPaymentChecker::RecalculateAmountOwing() {
  if (balances::RecomputeAmountOwingAfterAsking(business_, business_.World().prompter)) Reload();
}

}  // namespace quillary::billing
