#pragma once

#include "data/schema/Upgrader.h"

/// The back-fills of the ladder that read rows and write others by them.
namespace quillary::upgrade {

/// Ties ledger entries to the purchase or payment of the same day and amount, by expense and
/// revenue accounts. Of two equal ones the last wins.
void TieLedgerEntries(Business& business, const Upgrader::Options& options);
/// Sums of the items become the totals of their invoices.
void TotalInvoices(Business& business, const Upgrader::Options& options);
/// Puts Next_Visit of regular services on the first date of its rhythm from today on, and rolls
/// clients whose diary is empty up to it.
void RepairSchedules(Business& business, const Upgrader::Options& options);
void ReloadDivisions(Business& business, const Upgrader::Options& options);
void ReloadCountries(Business& business, const Upgrader::Options& options);
void AddFirstHolidays(Business& business, const Upgrader::Options& options);
/// The counter goes on from the highest invoice number.
void StartInvoiceCounter(Business& business, const Upgrader::Options& options);
/// Payment methods that payments or purchases use and the list lacks.
void ListUsedPaymentMethods(Business& business, const Upgrader::Options& options);
/// Clients in debt are debtors since today.
void StampDebtors(Business& business, const Upgrader::Options& options);
void AddWindowDivision(Business& business, const Upgrader::Options& options);
void NumberSuburbs(Business& business, const Upgrader::Options& options);
/// A quote with its services for each client that is "Quote only".
void MakeQuotes(Business& business, const Upgrader::Options& options);
void SetTermsOfTrade(Business& business, const Upgrader::Options& options);

}  // namespace quillary::upgrade
