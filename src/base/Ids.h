#pragma once

#include <type_traits>

/// The tables whose rows are known by a number. Nothing is ever known of these types but their
/// names: they keep the number of a client from being taken for that of a job.
namespace quillary {

struct Account;  // of the general ledger
struct Bank;     // of the list of banks that cheques are drawn on
struct BankAccount;
struct Banking;
struct Budget;
struct BudgetPeriod;
struct Client;
struct ClientService;
struct Country;
struct Division;
struct Employee;
struct Entry;  // of the diary: a job, a visit or a quote visit
struct EntryLine;
struct Frequency;
struct Holiday;
struct Invoice;
struct LedgerEntry;
struct Payment;
struct PaymentMethodRow;  // of the list of words; a payment itself keeps the word
struct Purchase;
struct Quote;
struct QuoteLine;
struct Receipt;  // of a purchase
struct Service;
struct Supplier;

template <typename Row, typename... Rows>
concept OneOf = (std::is_same_v<Row, Rows> || ...);

/// Refuses an area's own type of the same name, whose numbers would be those of another type.
template <typename Row>
concept NumberedRow =
    OneOf<Row, Account, Bank, BankAccount, Banking, Budget, BudgetPeriod, Client, ClientService,
          Country, Division, Employee, Entry, EntryLine, Frequency, Holiday, Invoice, LedgerEntry,
          Payment, PaymentMethodRow, Purchase, Quote, QuoteLine, Receipt, Service, Supplier>;

}  // namespace quillary
