#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Priced lists of services for a prospect. All prices include tax.
namespace quillary::clients {

/// One service of a quote.
struct QuoteService {
  std::optional<Id<QuoteLine>> line = {};  // nothing until it is stored
  std::optional<Id<Service>> service = {};
  QString name = {};  // of the service
  Money price = {};
  QString notes = {};

  bool operator==(const QuoteService&) const = default;
};

struct QuoteForm {
  std::optional<Id<Quote>> quote = {};  // nothing for a new one
  QDate date = {};
  QString description = {};  // as the last save made it of the services
  std::vector<QuoteService> services = {};

  /// Whether a stored quote has been loaded.
  bool IsLoaded() const { return quote.has_value(); }
  Money Total() const;
};

/// Of today, without services.
QuoteForm NewQuote(Business& business);
/// Nothing when there is no such quote.
std::optional<QuoteForm> LoadQuote(Business& business, Id<Quote> quote);

struct QuoteRow {
  Id<Quote> quote;
  std::optional<Id<Client>> client;
  QString clientName;
  QDate date;
  QString description;
  Money total;  // of its lines
};
/// By date; of all clients without one.
std::vector<QuoteRow> ListQuotes(Business& business, std::optional<Id<Client>> client = {});

/// Refuses a quote without a date.
std::optional<Refusal> CheckQuote(const QuoteForm& quote);
/// Stores the quote of a stored client, and its lines that have a service; what is stored already
/// is updated. Its description becomes the names of its services. Gives all their keys. Throws
/// WriteFailed, with nothing written, when the quote or a line has gone meanwhile.
void SaveQuote(Business& business, Id<Client> client, QuoteForm& quote);
/// Deletes a stored line. Throws WriteFailed when it has gone.
void RemoveQuoteService(Business& business, Id<QuoteLine> line);

/// Deletes the quote with its lines. Throws WriteFailed when it has gone.
void RemoveQuote(Business& business, Id<Quote> quote);
/// The command: refuses a quote that is not loaded, and asks. False when it was not removed.
bool RemoveQuoteAfterAsking(Business& business, Prompter& prompter, std::optional<Id<Quote>> quote);

}  // namespace quillary::clients
