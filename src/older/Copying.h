#pragma once

#include "older/ImportOlder.h"
#include "older/OlderFile.h"

#include <QHash>

#include <vector>

namespace quillary::older {

/// What all steps of an import share: both sides, the receipt, and the new keys of the old rows.
class Copying {
 public:
  Copying(Business& into, OlderFile& from, ImportReceipt& told, const ImportProgress& progress)
      : business(into), source(from), receipt(told), progress_(progress) {}

  Business& business;
  OlderFile& source;
  ImportReceipt& receipt;

  QHash<qint64, qint64> employees;
  QHash<qint64, qint64> accounts;
  QHash<QString, qint64> services;  // by their code
  QHash<qint64, qint64> suppliers;
  QHash<qint64, qint64> purchases;
  QHash<qint64, qint64> bankAccounts;
  QHash<qint64, qint64> bankings;
  QHash<qint64, qint64> parties;  // of corporations
  QHash<qint64, qint64> clients;
  QHash<qint64, qint64> payments;

  /// Empties the target, walks the source's rows and notes in the receipt what came over. `take`
  /// returns why a row is passed over; nothing when it was stored.
  using Take = std::function<std::optional<QString>(const OlderRow&)>;
  void Table(const char* step, const char* sourceTable, const char* target, const Take& take);
  /// Holds a sum of the source against the one that came to stand.
  void Compare(const char* sourceColumn, Money older, Money now);
  void Step(const char* what, qint64 done, qint64 all);

  /// The new key of an old one; a key that leads nowhere becomes none, and a trouble.
  std::optional<qint64> KeyIn(const QHash<qint64, qint64>& map, const OlderRow& row,
                              const char* field);
  std::optional<qint64> ServiceOf(const OlderRow& row, const char* field);

 private:
  const ImportProgress& progress_;
};

void CopyTrailers(Copying& copying);
void CopyGLAccounts(Copying& copying);
void CopyGLEntries(Copying& copying);
void CopyServices(Copying& copying);
void CopySuppliers(Copying& copying);
void CopyPurchases(Copying& copying);
void CopyBankAccounts(Copying& copying);
void CopyBankings(Copying& copying);
void CopyClients(Copying& copying);
void CopyDiary(Copying& copying);
void CopyPayments(Copying& copying);
void CopyBanks(Copying& copying);
void CopyFrequencies(Copying& copying);
void CopyPaymentMethods(Copying& copying);
void CopyCompany(Copying& copying);

/// The entries were stored under the older keys of their payments and purchases, which were not
/// there yet.
void LinkGLEntries(Copying& copying);

}  // namespace quillary::older
