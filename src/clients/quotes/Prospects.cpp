#include "clients/quotes/Prospects.h"

#include "balances/ClientBalance.h"
#include "clients/BillingNames.h"
#include "domain/Payer.h"

namespace quillary::clients {
namespace {

QString FormedName(Business& business, const Prospect& prospect) {
  const QString order = business.World().settings.Read(QStringLiteral("Display Format"),
                                                       QStringLiteral("Billing Name Format"),
                                                       CodeOf(NameOrder::FirstNameFirst));
  const bool firstNameFirst = order == CodeOf(NameOrder::FirstNameFirst);
  const QString& first = firstNameFirst ? prospect.firstName : prospect.surname;
  const QString& second = firstNameFirst ? prospect.surname : prospect.firstName;
  return QStringLiteral("%1 %2").arg(first, second).trimmed();
}

std::optional<Refusal> CheckProspect(const Prospect& prospect) {
  const QString names = prospect.displayName + prospect.firstName + prospect.surname;
  if (!names.trimmed().isEmpty()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter the name of the client."),
                 QStringLiteral("firstName")};
}

void StoreProspect(Business& business, Prospect& prospect) {
  if (!prospect.client) {
    prospect.client = business.InsertReturningKey<Client>(
        Sql("INSERT INTO Clients (Status) VALUES ({});", ClientStatus::QuoteOnly));
    prospect.status = ClientStatus::QuoteOnly;
  }
  if (prospect.displayName.trimmed().isEmpty())
    prospect.displayName = FormedName(business, prospect);
  business.Write(
      Sql("UPDATE Clients SET Billing_Client_ID = Client_ID, First_name = {}, Surname = {}, "
          "Display_Name = {}, Street_Number = {}, Street = {}, Suburb = {}, Post_code = {}, "
          "Map = {}, Phone_1 = {}, Email = {}, Notes = {} WHERE Client_id = {};",
          prospect.firstName, prospect.surname, prospect.displayName, prospect.streetNumber,
          prospect.street, prospect.suburb, prospect.postCode, prospect.map, prospect.phone1,
          prospect.email, prospect.notes, prospect.client),
      Rows::Exactly(1));
}

void ReplaceServices(Business& business, Id<Client> client, Id<Quote> quote) {
  business.Write(Sql("DELETE FROM Client_Services WHERE Client_ID = {}; ", client));
  for (const Record line :
       business.RunSQL(Sql("SELECT * FROM Quote_Services WHERE Quote_ID = {}; ", quote))) {
    business.Write(
        Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Price, Frequency, Status, "
            "Next_Visit, Notes) VALUES ({}, {}, {}, 0, '', {}, {})",
            client, line[u"Service_ID"], line[u"Price"].ToMoney(), business.Today(),
            line[u"Notes"].ToText().trimmed()));
  }
}

QString ListedWords(const QString& what, const QStringList& names) {
  return QStringLiteral("\n%1: %2")
      .arg(what, names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", ")));
}

}  // namespace

bool Prospect::IsQuoteClient() const {
  return status.Text().contains(u"quote", Qt::CaseInsensitive);
}

std::optional<Prospect> LoadProspect(Business& business, Id<Client> client) {
  const Recordset row =
      business.RunSQL(Sql("SELECT * FROM Clients WHERE Client_ID = {}; ", client));
  if (row.EndOfFile()) return std::nullopt;
  return Prospect{.client = client,
                  .status = StoredClientStatus(row.Field(u"Status").ToText()),
                  .displayName = row.Field(u"Display_Name").ToText(),
                  .firstName = row.Field(u"First_Name").ToText(),
                  .surname = row.Field(u"Surname").ToText(),
                  .streetNumber = row.Field(u"Street_Number").ToText(),
                  .street = row.Field(u"Street").ToText(),
                  .suburb = row.Field(u"Suburb").ToText(),
                  .postCode = row.Field(u"Post_Code").ToText(),
                  .map = row.Field(u"Map").ToText(),
                  .phone1 = row.Field(u"Phone_1").ToText(),
                  .email = row.Field(u"Email").ToText(),
                  .notes = row.Field(u"Notes").ToText()};
}

std::optional<Refusal> SaveRecords(Business& business, Prospect& prospect, QuoteForm& quote) {
  if (auto refusal = CheckProspect(prospect)) return refusal;
  if (auto refusal = CheckQuote(quote)) return refusal;
  Transaction save(business);
  Prospect client = prospect;
  QuoteForm form = quote;
  const auto paidBy = client.client ? PayerOf(business, *client.client) : std::nullopt;
  StoreProspect(business, client);
  SaveQuote(business, *client.client, form);
  if (paidBy && paidBy != client.client) {
    // What another was billed for is the client's own from here on.
    balances::RecalculateClientBalance(business, client.client);
    balances::RecalculateClientBalance(business, paidBy);
  }
  save.Commit();
  prospect = client;
  quote = form;
  business.PastCommands().Describe(QStringLiteral("Quote for ") + prospect.displayName);
  return std::nullopt;
}

Activation PlanActivation(Business& business, Id<Client> client, const QuoteForm& quote) {
  Activation plan;
  for (const Record row : business.RunSQL(
           Sql("SELECT Services.Service FROM Client_Services LEFT JOIN Services ON "
               "Client_Services.Service_ID = Services.Service_ID WHERE "
               "Client_Services.Client_ID = {} ORDER BY Client_Services.Client_Service_ID",
               client)))
    plan.going += row[u"Service"].ToText(QStringLiteral("(no service)"));
  for (const QuoteService& line : quote.services)
    if (line.service) plan.coming += line.name + u' ' + line.price.ToCurrencyText();
  return plan;
}

std::optional<Refusal> MakeActive(Business& business, Prospect& prospect, QuoteForm& quote) {
  Transaction activation(business);
  Prospect client = prospect;
  QuoteForm form = quote;
  if (auto refusal = SaveRecords(business, client, form)) return refusal;
  business.Write(Sql("UPDATE Clients SET Status = {} WHERE Client_ID = {}; ", ClientStatus::Active,
                     client.client),
                 Rows::Exactly(1));
  client.status = ClientStatus::Active;
  ReplaceServices(business, *client.client, *form.quote);
  balances::RecalculateClientBalance(business, client.client);
  activation.Commit();
  prospect = client;
  quote = form;
  business.PastCommands().Describe(QStringLiteral("Active: ") + prospect.displayName);
  return std::nullopt;
}

bool MakeActiveAfterAsking(Business& business, Prompter& prompter, Prospect& prospect,
                           QuoteForm& quote) {
  if (!prospect.client) {
    prompter.Tell(Tone::Exclamation, QStringLiteral("Please select a client."));
    return false;
  }
  if (!quote.IsLoaded()) {
    const Answer answer =
        prompter.Ask(QStringLiteral("You did not select a quote to be made as client services. Do "
                                    "you want to continue?"));
    if (answer != Answer::Yes) return false;
  }
  const Activation plan = PlanActivation(business, *prospect.client, quote);
  const QString question =
      QStringLiteral(
          "This will make %1 an Active client. \nWARNING: This will also delete "
          "existing services and will be replaced by the loaded quote services!\nDo "
          "you want to continue?")
          .arg(prospect.displayName);
  const Answer answer = prompter.AskBeforeLosing(
      question + u'\n' + ListedWords(QStringLiteral("Services that go"), plan.going) +
      ListedWords(QStringLiteral("Services that come"), plan.coming));
  if (answer != Answer::Yes) return false;
  if (const auto refusal = MakeActive(business, prospect, quote)) {
    prompter.Tell(Tone::Exclamation, refusal->message);
    return false;
  }
  prompter.Tell(Tone::Information,
                QStringLiteral("Please check all the client details in the Client screen as well "
                               "as its schedule."));
  return true;
}

}  // namespace quillary::clients
