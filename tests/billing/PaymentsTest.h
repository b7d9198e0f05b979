#pragma once

#include "billing/payments/PaymentJobs.h"
#include "clients/ClientsTest.h"

namespace quillary {

/// A business with a payer Smith (1), the site Unit 2 that is billed to it (2) and a stranger Brown
/// (3); lawns are booked to "Lawns", hedges to no account.
class PaymentsTest : public ClientsTest {
 protected:
  void SetUp() override {
    ClientsTest::SetUp();
    AddClient("Smith");
    AddClient("Unit 2", "Active", 1_client);
    AddClient("Brown");
    for (const char* word : {"Cash", "CHEQUE", "EFT", "ADJUSTMENT", "CREDIT V", "Adjustment 2"})
      Run(Sql("INSERT INTO lstPayment_Methods (Payment_Method) VALUES ({})", word));
    Run(
        Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
            "VALUES ('Lawns', 'Revenue')"));
    Run(Sql("UPDATE Services SET Default_GL_Account_ID = 1 WHERE Service_ID = 1"));
  }

  /// A job with one lawn service of that price.
  Id<Entry> AddPricedJob(const Value& client, const char* status, Money price,
                         const char* day = "2026-10-20") {
    const Id<Entry> job = AddJob(client, status, day, price);
    Run(Sql("UPDATE Diary_Services SET Price = {} WHERE Diary_ID = {}", price, job));
    return job;
  }
  billing::PaymentForm Form(const Value& client, Money amount, const char* method = "Cash") {
    billing::PaymentForm form = billing::BlankPayment(business());
    form.clientId = client.ToId<Client>();
    form.amount = amount;
    form.gst = billing::TaxWithin(business(), amount, false);
    form.paymentMethod = method;
    return form;
  }
  /// Stores a payment through the record and returns its key.
  Id<Payment> Store(billing::PaymentForm form) {
    const auto refusal = billing::SavePaymentDetails(business(), form);
    EXPECT_FALSE(refusal) << refusal->message.toStdString();
    return *form.paymentId;
  }
  Id<Payment> Store(const Value& client, Money amount) { return Store(Form(client, amount)); }

  /// "JD 7": status and payment of a job.
  QString Link(Id<Entry> diaryId) {
    return Rows(Sql("SELECT Status, Payment_ID FROM Diary WHERE Diary_ID = {}", diaryId));
  }
  Money Balance(qint64 clientId) {
    return business()
        .FirstField(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = {}", clientId))
        .ToMoney();
  }
  static Money Whole(qint64 amount) { return Money::FromWhole(amount); }
};

}  // namespace quillary
