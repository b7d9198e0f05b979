#pragma once

#include "data/Business.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

/// Rows of test data, by the names of their columns.
namespace quillary {

/// What a row is to hold; columns that are not named stay as a new row has them.
using Columns = std::vector<std::pair<const char*, Value>>;

/// The table whose rows are known by such a number.
template <NumberedRow Row>
inline constexpr const char* kTableOf = nullptr;
template <>
inline constexpr const char* kTableOf<Account> = "General_Ledger_Accounts";
template <>
inline constexpr const char* kTableOf<Client> = "Clients";
template <>
inline constexpr const char* kTableOf<ClientService> = "Client_Services";
template <>
inline constexpr const char* kTableOf<Employee> = "Employees";
template <>
inline constexpr const char* kTableOf<Entry> = "Diary";
template <>
inline constexpr const char* kTableOf<EntryLine> = "Diary_Services";
template <>
inline constexpr const char* kTableOf<Invoice> = "Invoices";
template <>
inline constexpr const char* kTableOf<LedgerEntry> = "General_Ledger_Entries";
template <>
inline constexpr const char* kTableOf<Payment> = "Payments";
template <>
inline constexpr const char* kTableOf<Service> = "Services";

/// Fills the business of a test: the fixtures add what their tests speak of through it, each with
/// the columns that matter there.
///
///   const Id<Client> payer = build().Add<Client>({{"Display_Name", "Smith"}, {"Status",
///   "Active"}});
class BusinessBuilder {
 public:
  explicit BusinessBuilder(Business& business) : business_(business) {}

  template <NumberedRow Row>
  Id<Row> Add(const Columns& columns) {
    static_assert(kTableOf<Row> != nullptr, "say above in which table its rows are");
    return business_.InsertReturningKey<Row>(Insert(kTableOf<Row>, columns));
  }

 private:
  static Sql Insert(const char* table, const Columns& columns) {
    Sql names("");
    Sql values("");
    for (const auto& [name, value] : columns) {
      const char* const comma = &name == &columns.front().first ? "" : ", ";
      names = names + Sql("{}[{}]", Sql(comma), Sql(name));
      values = values + Sql("{}{}", Sql(comma), value);
    }
    return Sql("INSERT INTO {} ({}) VALUES ({})", Sql(table), names, values);
  }

  Business& business_;
};

}  // namespace quillary
