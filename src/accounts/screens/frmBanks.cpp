#include "accounts/screens/frmBanks.h"

#include "accounts/banking/BankLists.h"

namespace quillary::accounts {

namespace {

std::vector<GridRow> BankRows(Business& business) {
  std::vector<GridRow> rows;
  for (const ListedBank& bank : ListBanks(business)) rows.push_back({{bank.name, bank.id}});
  return rows;
}

std::vector<GridRow> BankAccountRows(Business& business) {
  std::vector<GridRow> rows;
  for (const ListedBankAccount& account : ListBankAccounts(business))
    rows.push_back({{account.name, account.id, account.number}});
  return rows;
}

BankAccountForm BankAccountFormOf(const RecordFields& fields) {
  return {fields.Text("txtAccountName"), fields.Text("txtAccountNumber")};
}

}  // namespace

RecordList BanksList(Business& business) {
  return {
      .name = "frmBanks",
      .title = QObject::tr("Banks to list"),
      .gridName = QStringLiteral("fgBanks"),
      .about = QObject::tr("The banks offered for the cheques of your clients. Payments keep the "
                           "name that they were given."),
      .emptyWhat = QObject::tr("There are no banks yet."),
      .emptyNext = QObject::tr("Fill in the name of a bank and add it."),
      .shows = {"lstBanks"},
      .columns = {{QObject::tr("Bank"), ColumnKind::StrongText, 280}, {{}, ColumnKind::HiddenId}},
      .fields = {{"txtBank", "name", QObject::tr("&Bank"), FieldKind::Text, 0, 50}},
      .load = [&business] { return BankRows(business); },
      .insert =
          [&business](const RecordFields& fields) {
            return InsertBank(business, fields.Text("txtBank"));
          },
      .update =
          [&business](std::optional<qint64> key, const RecordFields& fields) {
            return UpdateBank(business, IdFrom<Bank>(key), fields.Text("txtBank"));
          },
      .remove = [&business](
                    std::optional<qint64> key) { return DeleteBank(business, IdFrom<Bank>(key)); },
  };
}

RecordList BankAccountsList(Business& business) {
  return {
      .name = "frmBankAccounts",
      .title = QObject::tr("Bank accounts"),
      .gridName = QStringLiteral("fgBankAccounts"),
      .about = QObject::tr("The accounts that you bank your takings to."),
      .emptyWhat = QObject::tr("There are no bank accounts yet."),
      .emptyNext = QObject::tr("Fill in the name and the number of an account and add it."),
      .shows = {"Bank_Accounts"},
      .columns = {{QObject::tr("Account"), ColumnKind::StrongText, 240},
                  {{}, ColumnKind::HiddenId},
                  {QObject::tr("Number"), ColumnKind::Text, 160}},
      .fields = {{"txtAccountName", "name", QObject::tr("Account na&me"), FieldKind::Text, 0, 50},
                 {"txtAccountNumber", "number", QObject::tr("Account num&ber"), FieldKind::Text, 2,
                  30}},
      .load = [&business] { return BankAccountRows(business); },
      .insert =
          [&business](const RecordFields& fields) {
            return InsertBankAccount(business, BankAccountFormOf(fields));
          },
      .update =
          [&business](std::optional<qint64> key, const RecordFields& fields) {
            return UpdateBankAccount(business, IdFrom<BankAccount>(key), BankAccountFormOf(fields));
          },
      .remove =
          [&business](std::optional<qint64> key) {
            return DeleteBankAccount(business, IdFrom<BankAccount>(key));
          },
  };
}

}  // namespace quillary::accounts
