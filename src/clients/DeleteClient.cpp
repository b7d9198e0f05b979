#include "clients/DeleteClient.h"

#include "balances/ClientBalance.h"
#include "base/Text.h"
#include "domain/Payer.h"

#include <QStringList>

namespace quillary::clients {
namespace {

/// What the user loses beside the client itself; empty when that is nothing.
QString WhatGoesWith(Business& business, Id<Client> client) {
  const auto count = [&](const char* table) {
    return static_cast<size_t>(
        business.FirstField(Sql("SELECT Count(*) FROM {} WHERE Client_ID = {}", Sql(table), client))
            .ToLong());
  };
  const Money paid =
      business.FirstField(Sql("SELECT SUM(Amount) FROM Payments WHERE Client_ID = {}", client))
          .ToMoney();
  QStringList parts;
  if (const size_t entries = count("Diary"))
    parts += Counted(entries, "job or visit", "jobs and visits");
  if (const size_t invoices = count("Invoices")) parts += Counted(invoices, "invoice");
  if (const size_t payments = count("Payments"))
    parts += Counted(payments, "payment") + QStringLiteral(" of ") + paid.ToCurrencyText();
  return parts.isEmpty()
             ? QString()
             : QStringLiteral("\n\nDeleted with it: ") + parts.join(QStringLiteral(", ")) + u'.';
}

bool IsConfirmed(Business& business, Prompter& prompter, Id<Client> client) {
  const Value name =
      business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", client));
  return prompter.AskBeforeLosing(
             QStringLiteral("Are you really sure you want to delete ") + name.ToText() +
             QStringLiteral(
                 "?\n\n There will be absolutely no record of this client afterwards and may "
                 "affect your GST/Profit and Loss report!") +
             WhatGoesWith(business, client)) == Answer::Yes;
}

void DeleteDiary(Business& business, Id<Client> client) {
  for (const Record entry :
       business.RunSQL(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {}; ", client)))
    business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}", entry[u"Diary_ID"]));
  business.Write(Sql("DELETE FROM Diary WHERE Client_ID = {}", client));
}

void DeletePayments(Business& business, Id<Client> client) {
  for (const Record payment :
       business.RunSQL(Sql("SELECT Payment_ID FROM Payments WHERE Client_ID = {}; ", client))) {
    business.Write(
        Sql("DELETE FROM General_Ledger_Entries WHERE Payment_ID = {}", payment[u"Payment_ID"]));
    business.Write(
        Sql("UPDATE Diary SET Payment_ID = NULL WHERE Payment_ID = {}", payment[u"Payment_ID"]));
  }
  business.Write(Sql("DELETE FROM Payments WHERE Client_ID = {}", client));
}

void DeleteInvoices(Business& business, Id<Client> client) {
  for (const Record invoice :
       business.RunSQL(Sql("SELECT Invoice_ID FROM Invoices WHERE Client_ID = {}", client))) {
    business.Write(Sql("DELETE FROM Invoice_Items WHERE Invoice_ID = {}", invoice[u"Invoice_ID"]));
    business.Write(
        Sql("UPDATE Diary SET Invoice_ID = NULL WHERE Invoice_ID = {}", invoice[u"Invoice_ID"]));
  }
  business.Write(Sql("DELETE FROM Invoices WHERE Client_ID = {}", client));
}

void DeleteQuotes(Business& business, Id<Client> client) {
  business.Write(
      Sql("DELETE FROM Quote_Services WHERE Quote_ID IN "
          "(SELECT Quote_ID FROM Quotes WHERE Client_ID = {})",
          client));
  business.Write(Sql("DELETE FROM Quotes WHERE Client_ID = {}", client));
}

}  // namespace

bool DeleteClientAfterAsking(Business& business, Prompter& prompter, Id<Client> client) {
  if (!IsConfirmed(business, prompter, client)) return false;
  const BusyWhile busy(business.World().busy);
  Transaction deletion(business);
  const auto payer = PayerOf(business, client);
  const QString name =
      business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", client))
          .ToText();
  business.Write(Sql("DELETE FROM Clients WHERE Client_ID = {};", client), Rows::Exactly(1));
  business.Write(Sql("DELETE FROM Client_Services WHERE Client_ID = {};", client));
  DeleteDiary(business, client);
  DeletePayments(business, client);
  DeleteInvoices(business, client);
  DeleteQuotes(business, client);
  if (payer != client) balances::RecalculateClientBalance(business, payer);
  deletion.Commit();
  business.PastCommands().Describe(QStringLiteral("Deleted: ") + name);
  return true;
}

}  // namespace quillary::clients
