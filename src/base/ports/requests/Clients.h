#pragma once

#include "base/DateRange.h"
#include "base/Id.h"

#include <optional>
#include <vector>

/// Requests that open the screens of clients, their services and quotes.
namespace quillary {

struct OpenClientList {};
/// Opens the screen for a client that its first save will store.
struct AddClient {};
struct OpenClient {
  Id<Client> client;
};
/// The payments of the client in view, to be recorded under another.
struct OpenTransferOfPayments {};
/// The quotes of the client, of nobody yet without one.
struct OpenCreateAQuote {
  std::optional<Id<Client>> client = {};
};
/// Edits the text that is printed on all invoices, statements and reminders.
struct EditGeneralNotes {
  using Result = bool;
};

/// What a report of clients is to hold. Nothing when the user gives up.
struct ClientReportCriteria {
  enum class Which { All, Regular, Casual, PendingQuotes };
  enum class Order { Suburb, Status };
  Which which = Which::All;
  Order order = Order::Suburb;
};
struct PickClientReport {
  using Result = std::optional<ClientReportCriteria>;
};

/// Days and clients for a report of what happened to them. Nothing when the user gives up.
struct DatesWithClients {
  enum class Order { Client, Date };
  DateRange days;
  std::vector<Id<Client>> clients;  // as ticked; never empty
  bool summaryOnly = false;
  Order order = Order::Client;
};
struct PickDatesWithClients {
  using Result = std::optional<DatesWithClients>;
};

}  // namespace quillary
