#include "clients/quotes/QuoteRecord.h"

#include "base/Text.h"

namespace quillary::clients {
namespace {

constexpr int kDescriptionWidth = 255;  // of Quotes.Description

void StoreLine(Business& business, Id<Quote> quote, QuoteService& line) {
  if (line.line) {
    business.Write(Sql("UPDATE Quote_Services SET Service_ID = {}, Price = {}, Notes = {} "
                       "WHERE Quote_Service_ID = {}",
                       line.service, line.price, line.notes, line.line),
                   Rows::Exactly(1));
    return;
  }
  line.line = business.InsertReturningKey<QuoteLine>(
      Sql("INSERT INTO Quote_Services (Quote_ID, Service_ID, Price, Notes) "
          "VALUES ({}, {}, {}, {})",
          quote, line.service, line.price, line.notes));
}

}  // namespace

Money QuoteForm::Total() const {
  Money total;
  for (const QuoteService& line : services)
    if (line.service) total += line.price;
  return total;
}

QuoteForm NewQuote(Business& business) {
  return {.date = business.Today()};
}

std::optional<QuoteForm> LoadQuote(Business& business, Id<Quote> quote) {
  const Recordset stored =
      business.RunSQL(Sql("SELECT Quote_Date, Description FROM Quotes WHERE Quote_ID = {}", quote));
  if (stored.EndOfFile()) return std::nullopt;
  QuoteForm form{.quote = quote,
                 .date = stored.Field(u"Quote_Date").ToDate(business.Today()),
                 .description = stored.Field(u"Description").ToText()};
  for (const Record row :
       business.RunSQL(Sql("SELECT Quote_Service_ID, Service, Quote_Services.Service_ID, Price, "
                           "Quote_Services.[Notes] FROM Quote_Services INNER JOIN Services ON "
                           "Quote_Services.Service_ID = Services.Service_ID WHERE Quote_ID = {} "
                           "ORDER BY Quote_Service_ID; ",
                           quote))) {
    form.services.push_back({.line = Id<QuoteLine>(row[u"Quote_Service_ID"].ToLong()),
                             .service = row[u"Service_ID"].ToId<Service>(),
                             .name = row[u"Service"].ToText(),
                             .price = row[u"Price"].ToMoney(),
                             .notes = row[u"Notes"].ToText()});
  }
  return form;
}

std::vector<QuoteRow> ListQuotes(Business& business, std::optional<Id<Client>> client) {
  const Sql fields(
      "SELECT Quotes.Quote_ID, Quotes.Client_ID, Clients.Display_Name, Quotes.Quote_Date, "
      "Quotes.Description, Sum(Quote_Services.Price) AS Total FROM (Quotes LEFT JOIN Clients ON "
      "Quotes.Client_ID = Clients.Client_ID) LEFT JOIN Quote_Services ON Quotes.Quote_ID = "
      "Quote_Services.Quote_ID ");
  const Sql which = client ? Sql("WHERE Quotes.Client_ID = {} ", client) : Sql("");
  std::vector<QuoteRow> quotes;
  for (const Record row :
       business.RunSQL(fields + which +
                       Sql("GROUP BY Quotes.Quote_ID, Quotes.Client_ID, Clients.Display_Name, "
                           "Quotes.Quote_Date, Quotes.Description ORDER BY Quotes.Quote_Date, "
                           "Quotes.Quote_ID; "))) {
    quotes.push_back({Id<Quote>(row[u"Quote_ID"].ToLong()), row[u"Client_ID"].ToId<Client>(),
                      row[u"Display_Name"].ToText(), row[u"Quote_Date"].ToDate(),
                      row[u"Description"].ToText(), row[u"Total"].ToMoney()});
  }
  return quotes;
}

std::optional<Refusal> CheckQuote(const QuoteForm& quote) {
  if (quote.date.isValid()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter the date of the quote."), QStringLiteral("date")};
}

void SaveQuote(Business& business, Id<Client> client, QuoteForm& quote) {
  Transaction save(business);
  QuoteForm stored = quote;
  if (!stored.quote) {
    stored.quote = business.InsertReturningKey<Quote>(
        Sql("INSERT INTO Quotes (Client_ID, Quote_Date, Description) VALUES ({}, {}, '')", client,
            stored.date));
  }
  QStringList names;
  for (QuoteService& line : stored.services) {
    if (!line.service) continue;
    StoreLine(business, *stored.quote, line);
    names += line.name;
  }
  stored.description = names.join(QStringLiteral(", ")).left(kDescriptionWidth);
  business.Write(Sql("UPDATE Quotes SET Description = {}, Quote_Date = {} WHERE Quote_ID = {}; ",
                     stored.description, stored.date, stored.quote),
                 Rows::Exactly(1));
  save.Commit();
  quote = stored;
}

void RemoveQuoteService(Business& business, Id<QuoteLine> line) {
  business.Write(Sql("DELETE FROM Quote_Services WHERE Quote_Service_ID = {}", line),
                 Rows::Exactly(1));
}

void RemoveQuote(Business& business, Id<Quote> quote) {
  Transaction removal(business);
  business.Write(Sql("DELETE FROM Quote_Services WHERE Quote_ID = {}", quote));
  business.Write(Sql("DELETE FROM Quotes WHERE Quote_ID = {}", quote), Rows::Exactly(1));
  removal.Commit();
  business.PastCommands().Describe(QStringLiteral("Quote removed"));
}

bool RemoveQuoteAfterAsking(Business& business, Prompter& prompter,
                            std::optional<Id<Quote>> quote) {
  if (!quote) {
    prompter.Tell(Tone::Exclamation,
                  QStringLiteral("Please load the quote first before removing it to make sure that "
                                 "you're removing the correct quote."));
    return false;
  }
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to remove the selected quote."));
  if (answer != Answer::Yes) return false;
  RemoveQuote(business, *quote);
  return true;
}

}  // namespace quillary::clients
