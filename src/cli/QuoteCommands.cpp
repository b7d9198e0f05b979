#include "cli/Command.h"
#include "cli/Parsing.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "clients/quotes/Prospects.h"
#include "lists/Choices.h"

/// Quotes for prospects, for scripts.
namespace quillary::cli {
namespace {

/// "12=55.00:Front and back": the service, its price, and notes that may be missing.
clients::QuoteService ServiceOf(Business& business, const QString& words) {
  const auto wrong = [&] {
    return WrongUsage(
        QStringLiteral("--line takes SERVICE_ID=PRICE[:NOTES], not \"%1\"").arg(words));
  };
  const qsizetype equals = words.indexOf(u'=');
  if (equals < 0) throw wrong();
  const qsizetype colon = words.indexOf(u':', equals);
  const QString price = words.mid(equals + 1, colon < 0 ? -1 : colon - equals - 1);
  const auto amount = Money::Parse(price);
  if (!amount) throw wrong();
  const auto id = ParseId<Service>(words.first(equals));
  for (const auto& choice : lists::ListServiceChoices(business))
    if (choice.id == id)
      return {.service = id,
              .name = choice.words,
              .price = amount->Rounded(2),
              .notes = colon < 0 ? QString() : words.mid(colon + 1)};
  throw CommandFailure(QStringLiteral("there is no service %1").arg(id.Number()));
}

clients::Prospect ClientOf(Business& business, Id<Client> client) {
  if (const auto prospect = clients::LoadProspect(business, client)) return *prospect;
  throw CommandFailure(QStringLiteral("there is no client %1").arg(client.Number()));
}

clients::QuoteForm QuoteOf(Business& business, Id<Quote> quote) {
  if (const auto form = clients::LoadQuote(business, quote)) return *form;
  throw CommandFailure(QStringLiteral("there is no quote %1").arg(quote.Number()));
}

Id<Client> ClientAsked(const Call& call) {
  const auto client = call.arguments.Key<Client>("client");
  if (!client) throw WrongUsage(QStringLiteral("--client names the client"));
  return *client;
}

void RunQuote(const Call& call) {
  const Id<Client> client = ClientAsked(call);
  const auto business = OpenCurrentBusiness(call);
  clients::Prospect prospect = ClientOf(*business, client);
  clients::QuoteForm quote = clients::NewQuote(*business);
  quote.date = call.arguments.Date("date").value_or(quote.date);
  for (const QString& words : call.arguments.All("line"))
    quote.services.push_back(ServiceOf(*business, words));
  ThrowIf(clients::SaveRecords(*business, prospect, quote));
  business->CloseConnection();
  ResultTable table({"Quote_ID", "Client_ID", "Quote_Date", "Description", "Total"});
  table.AddRow({*quote.quote, client, DayCell(call, quote.date), quote.description, quote.Total()});
  PrintTable(call, table);
}

void RunQuotes(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  const auto quotes = clients::ListQuotes(*business, call.arguments.Key<Client>("client"));
  business->CloseConnection();
  ResultTable table(
      {"Quote_ID", "Client_ID", "Display_Name", "Quote_Date", "Description", "Total"});
  for (const clients::QuoteRow& row : quotes)
    table.AddRow({row.quote, row.client, row.clientName, DayCell(call, row.date), row.description,
                  row.total});
  PrintTable(call, table);
}

void RunQuoteDelete(const Call& call) {
  const auto quote = ParseId<Quote>(call.arguments.positional.at(1));
  const auto business = OpenCurrentBusiness(call);
  QuoteOf(*business, quote);
  clients::RemoveQuote(*business, quote);
  business->CloseConnection();
  if (call.json)
    call.out << "{\"deleted\": " << quote.Number() << "}\n";
  else
    call.out << "quote " << quote.Number() << " deleted\n";
}

void RunQuoteActivate(const Call& call) {
  const Id<Client> client = ClientAsked(call);
  const auto business = OpenCurrentBusiness(call);
  clients::Prospect prospect = ClientOf(*business, client);
  if (!prospect.IsQuoteClient())
    throw CommandFailure(QStringLiteral("client %1 is no quote client but \"%2\"")
                             .arg(client.Number())
                             .arg(prospect.status.Text()));
  clients::QuoteForm quote = clients::NewQuote(*business);
  if (const auto chosen = call.arguments.Key<Quote>("quote")) quote = QuoteOf(*business, *chosen);
  const clients::Activation plan = clients::PlanActivation(*business, client, quote);
  ThrowIf(clients::MakeActive(*business, prospect, quote));
  business->CloseConnection();
  ResultTable table({"Client_ID", "Status", "Services_Gone", "Services_Come"});
  table.AddRow({client, prospect.status, static_cast<qint64>(plan.going.size()),
                static_cast<qint64>(plan.coming.size())});
  PrintTable(call, table);
}

}  // namespace

std::vector<Command> QuoteCommands() {
  return {
      {"quote",
       "FILE --client ID [--date D] --line SERVICE_ID=PRICE[:NOTES]...",
       "Stores a quote for a client and prints its number.",
       {{"client", "ID", "for whom"},
        {"date", "DATE", "when; today when missing"},
        {"line", "ID=PRICE[:NOTES]",
         "a service at a price, tax included; may be given several times"}},
       1,
       1,
       RunQuote},
      {"quotes",
       "FILE [--client ID]",
       "Lists the quotes, of one client or of all, with their totals.",
       {{"client", "ID", "of this client only"}},
       1,
       1,
       RunQuotes},
      {"quote-delete", "FILE ID", "Deletes a quote with its services.", {}, 2, 2, RunQuoteDelete},
      {"quote-activate",
       "FILE --client ID [--quote ID]",
       "Makes a quote client an active one: its services give way to those of the quote, or to "
       "none.",
       {{"client", "ID", "who"}, {"quote", "ID", "whose services it gets"}},
       1,
       1,
       RunQuoteActivate},
  };
}

}  // namespace quillary::cli
