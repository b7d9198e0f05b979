#pragma once

#include "diary/JobServices.h"

/// Quote visits: entries of the diary in which a prospect is called on to price the work. The roll
/// makes them; how they ended is rated by hand.
namespace quillary::diary {

struct QuoteVisit {
  Id<Entry> entry;
  std::optional<Id<Client>> client = {};
  std::optional<Id<Employee>> employee = {};
  QDate date = {};
  QString notes = {};
  std::optional<EntryStatus> status = {};  // of kQuoteStatuses; nothing for what is none of them
  StoredEntryStatus storedStatus = {};
  QString description = {};  // as the lines make it
  Money totalPrice = {};
  bool hasPayment = false;
};

/// The states a quote visit can be given by hand, in their order.
inline constexpr std::array kQuoteStatuses = {EntryStatus::QuoteRejected, EntryStatus::QuotePending,
                                              EntryStatus::QuoteOpen};

/// Nothing when there is no such entry.
std::optional<QuoteVisit> LoadQuoteVisit(Business& business, Id<Entry> entry);
/// Refuses a quote visit without client, then one without employee.
std::optional<Refusal> CheckQuoteVisit(const QuoteVisit& visit);
/// Writes client, day, employee, notes and status to Diary. Writes nothing when CheckQuoteVisit()
/// refuses. Throws WriteFailed, with nothing written, when the entry has gone meanwhile.
std::optional<Refusal> SaveQuoteVisit(Business& business, const QuoteVisit& visit);

/// Stores a line with the tax inside its price, a new one without `form.line`, and then what
/// follows for the entry. Refuses a line without service.
std::optional<Refusal> SaveQuoteLine(Business& business, Id<Entry> entry,
                                     const JobServiceForm& form);
/// Adds a line of the default service at no price.
void AddExtraWork(Business& business, Id<Entry> entry);
/// Deletes the line. Refuses when none is selected.
std::optional<Refusal> RemoveQuoteLine(Business& business, Id<Entry> entry,
                                       std::optional<Id<EntryLine>> line);
/// Sets description, price and tax of the entry from its lines.
void RecalculateSummaries(Business& business, Id<Entry> entry);

/// Asks, then deletes the entry with its lines. False when the user declined.
bool DeleteQuoteVisit(Business& business, Prompter& prompter, Id<Entry> entry);

}  // namespace quillary::diary
