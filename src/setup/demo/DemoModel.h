#pragma once

#include "base/Money.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"
#include "domain/JobType.h"
#include "setup/demo/DemoBusiness.h"
#include "setup/demo/DemoDice.h"

#include <QDate>
#include <QString>

#include <vector>

/// The demo business while it is thought up, before a row of it is written. Clients, services and
/// the rest are named by their index; keys come with the writing.
namespace quillary::setup::demo {

enum class Billing { OnTheDay, PerJob, Monthly };

struct Service {
  int kind = 0;  // index into kServices
  Money price;
  int frequency = 0;  // days
  QDate nextVisit;
  JobType status = JobType::Regular;
  int employee = 0;  // index into kEmployees; -1 for none
  QString notes;
  int follows = -1;  // index of the client's service whose dates it follows
};

struct Client {
  ClientStatus status = ClientStatus::Active;
  QString firstName;
  QString surname;
  QString displayName;
  QString streetNumber;
  QString street;
  int suburb = 0;
  QString mobile;
  QString landline;
  QString email;
  QString notes;
  size_t billedTo = 0;  // its own index when it pays itself
  bool paysForOthers = false;
  Billing billing = Billing::OnTheDay;
  int daysToPay = 0;
  int method = 0;  // index into kPaymentMethods
  QDate since;     // the first day on which it may have had a visit
  QDate until;     // the last one
  std::vector<Service> services;

  Money balance;      // payments less done jobs over the billing group
  QDate debtorSince;  // invalid for none
};

inline bool IsProspect(const Client& client) {
  return client.status == ClientStatus::QuoteOnly || client.status == ClientStatus::QuoteRejected;
}

struct VisitLine {
  int kind = 0;
  Money price;
  Money gst;
  int frequency = 0;
};

struct Visit {
  size_t client = 0;
  QDate date;
  int place = 0;  // within the day
  int employee = 0;
  EntryStatus status = EntryStatus::JobOpen;
  QString description;
  QString notes;
  QString time;
  std::vector<VisitLine> lines;
  int invoice = -1;
  int payment = -1;

  Money Price() const;
  Money Gst() const;
  bool IsDone() const { return FactsOf(status).groups.Has(EntryGroup::WorkDone); }
};

struct Invoice {
  size_t party = 0;
  QDate date;
  QDate from;
  QDate to;
  bool isMonthly = false;
  bool isPaid = false;
  Money total;
  Money gst;
  std::vector<size_t> visits;
};

struct Payment {
  size_t party = 0;
  QDate date;
  Money amount;
  int method = 0;
  QString description;
  std::vector<size_t> visits;
};

struct Model {
  QDate today;
  QDate begin;  // of the past that is told
  std::vector<Client> clients;
  std::vector<Visit> visits;      // by day and place
  std::vector<Invoice> invoices;  // by day
  std::vector<Payment> payments;  // by day
};

/// The tax inside a price at the demo's rate.
Money GstOf(Money price);
/// The day itself, or the next one that is neither a holiday nor on a weekend.
QDate WorkingDay(const Business& business, QDate day);

void InventClients(Model& model, const DemoOptions& options, Dice& dice);
/// Past visits of all clients, and the day's work on today.
void InventVisits(Model& model, const Business& business, Dice& dice);
/// Invoices, payments and balances that follow from the visits.
void InventMoney(Model& model, Dice& dice);

/// Employees, services, accounts, lists and the owner's own details.
void WriteReferenceData(Business& business, const QDate& today);
/// Suppliers and what was bought from them; returns the number of purchases.
int WritePurchases(Business& business, const Model& model, Dice& dice);
/// The takings of each week, banked on its Friday; those of the last days wait.
void WriteBankings(Business& business, const Model& model);
DemoCount WriteModel(Business& business, const Model& model);

}  // namespace quillary::setup::demo
