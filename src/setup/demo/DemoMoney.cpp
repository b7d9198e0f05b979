#include "setup/demo/DemoLists.h"
#include "setup/demo/DemoModel.h"

#include <algorithm>
#include <map>
#include <utility>

namespace quillary::setup::demo {
namespace {

constexpr int kAdjustment = 5;  // of kPaymentMethods

const Client& PartyOf(const Model& model, const Visit& visit) {
  return model.clients[model.clients[visit.client].billedTo];
}

// What a bad debtor left unpaid is why there is no more work.
bool IsEverPaid(const Client& party, const QDate& date) {
  constexpr int kUnpaidDays = 70;
  return party.status != ClientStatus::BadDebtor || date < party.until.addDays(-kUnpaidDays);
}

void Pay(Model& model, size_t party, const QDate& billed, const std::vector<size_t>& visits) {
  const Client& payer = model.clients[party];
  const QDate date = billed.addDays(payer.daysToPay);
  if (date > model.today || !IsEverPaid(payer, billed)) return;
  Payment payment;
  payment.party = party;
  payment.date = date;
  payment.method = payer.method;
  payment.description =
      visits.size() == 1 ? QStringLiteral("Payment for job") : QStringLiteral("Monthly account");
  payment.visits = visits;
  for (const size_t visit : visits) payment.amount += model.visits[visit].Price();
  model.payments.push_back(std::move(payment));
}

void Bill(Model& model, Invoice invoice) {
  for (const size_t index : invoice.visits) {
    Visit& visit = model.visits[index];
    visit.status = EntryStatus::JobInvoiced;
    invoice.total += visit.Price();
    invoice.gst += visit.Gst();
  }
  const size_t paymentsBefore = model.payments.size();
  Pay(model, invoice.party, invoice.date, invoice.visits);
  invoice.isPaid = model.payments.size() > paymentsBefore;
  model.invoices.push_back(std::move(invoice));
}

void BillJobs(Model& model) {
  for (size_t index = 0; index < model.visits.size(); ++index) {
    const Visit& visit = model.visits[index];
    if (!visit.IsDone()) continue;
    const Client& party = PartyOf(model, visit);
    const size_t partyIndex = model.clients[visit.client].billedTo;
    if (party.billing == Billing::OnTheDay) Pay(model, partyIndex, visit.date, {index});
    if (party.billing != Billing::PerJob) continue;
    Invoice invoice;
    invoice.party = partyIndex;
    invoice.date = invoice.from = invoice.to = visit.date;
    invoice.visits = {index};
    Bill(model, std::move(invoice));
  }
}

// The months before the current one, each in one invoice at the first of the next.
void BillMonths(Model& model) {
  const QDate thisMonth(model.today.year(), model.today.month(), 1);
  std::map<std::pair<QDate, size_t>, std::vector<size_t>> months;
  for (size_t index = 0; index < model.visits.size(); ++index) {
    const Visit& visit = model.visits[index];
    if (!visit.IsDone() || PartyOf(model, visit).billing != Billing::Monthly) continue;
    const QDate month(visit.date.year(), visit.date.month(), 1);
    if (month < thisMonth) months[{month, model.clients[visit.client].billedTo}].push_back(index);
  }
  for (auto& [key, visits] : months) {
    Invoice invoice;
    invoice.party = key.second;
    invoice.from = key.first;
    invoice.to = key.first.addMonths(1).addDays(-1);
    invoice.date = key.first.addMonths(1);
    invoice.isMonthly = true;
    invoice.visits = std::move(visits);
    Bill(model, std::move(invoice));
  }
}

// Money without a job: a deposit in advance, and a credit for a mistake of ours.
void AddLooseMoney(Model& model, Dice& dice) {
  bool hasAdjustment = false;
  for (size_t index = 0; index < model.clients.size(); ++index) {
    const Client& client = model.clients[index];
    if (client.status != ClientStatus::Active || client.billedTo != index || !dice.Chance(4))
      continue;
    Payment payment;
    payment.party = index;
    payment.date = model.today.addDays(-dice.Between(3, 25));
    payment.method = hasAdjustment ? client.method : kAdjustment;
    payment.amount = Money::FromWhole(hasAdjustment ? 20 * dice.Between(2, 6) : 15);
    payment.description = hasAdjustment ? QStringLiteral("Deposit for autumn prune")
                                        : QStringLiteral("Credit for a broken sprinkler");
    hasAdjustment = true;
    model.payments.push_back(std::move(payment));
  }
}

template <typename Record>
void SortByDate(std::vector<Record>& records) {
  std::stable_sort(records.begin(), records.end(),
                   [](const Record& left, const Record& right) { return left.date < right.date; });
}

void LinkVisits(Model& model) {
  for (size_t invoice = 0; invoice < model.invoices.size(); ++invoice) {
    for (const size_t visit : model.invoices[invoice].visits) {
      model.visits[visit].invoice = static_cast<int>(invoice);
    }
  }
  for (size_t payment = 0; payment < model.payments.size(); ++payment) {
    for (const size_t visit : model.payments[payment].visits) {
      model.visits[visit].payment = static_cast<int>(payment);
    }
  }
}

void SetBalances(Model& model) {
  for (const Payment& payment : model.payments) {
    model.clients[payment.party].balance += payment.amount;
  }
  for (const Visit& visit : model.visits) {
    if (!visit.IsDone()) continue;
    Client& party = model.clients[model.clients[visit.client].billedTo];
    party.balance -= visit.Price();
    const bool isOldestUnpaid = visit.payment < 0 && !party.debtorSince.isValid();
    if (isOldestUnpaid) party.debtorSince = visit.date;
  }
  for (Client& client : model.clients) {
    if (client.balance >= Money()) client.debtorSince = QDate();
  }
}

}  // namespace

void InventMoney(Model& model, Dice& dice) {
  BillJobs(model);
  BillMonths(model);
  AddLooseMoney(model, dice);
  SortByDate(model.invoices);
  SortByDate(model.payments);
  LinkVisits(model);
  SetBalances(model);
}

}  // namespace quillary::setup::demo
