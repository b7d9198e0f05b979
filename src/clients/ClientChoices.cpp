#include "clients/ClientChoices.h"

#include "domain/Payer.h"

namespace quillary::clients {

std::vector<lists::Choice<Client>> ListBillableOthers(Business& business,
                                                      std::optional<Id<Client>> client) {
  return lists::ChoicesOfClients(business.RunSQL(
      Sql("SELECT {} FROM Clients WHERE Is_Billed_To = Yes "
          "AND (Client_ID <> {}) AND (Client_ID = Billing_Client_ID) ORDER BY Display_Name; ",
          Sql(lists::kClientChoiceColumns), NumberOrZero(client))));
}

QStringList ListFrequencyDays(Business& business) {
  QStringList days;
  for (const Record row : business.RunSQL(Sql("SELECT Frequency_Days FROM lstFrequencies; "))) {
    days += row[u"Frequency_Days"].ToText();
  }
  return days;
}

QStringList ListWorkCoverLabels(Business& business) {
  QStringList labels;
  const Recordset rows =
      business.RunSQL(Sql("SELECT Distinct WorkCoverLabel FROM Clients Order by WorkCoverLabel;"));
  for (const Record row : rows) {
    const QString label = row[u"WorkCoverLabel"].ToText();
    if (!label.isEmpty()) labels += label;
  }
  return labels;
}

QString SuburbChoices::PostCodeOf(const QString& suburb) const {
  return postCodeOfSuburb.value(suburb.trimmed().toUpper());
}

SuburbChoices ListSuburbChoices(Business& business) {
  SuburbChoices choices;
  QHash<QString, bool> seenPostCodes;
  const Recordset rows =
      business.RunSQL(Sql("SELECT DISTINCT Suburb, Post_Code FROM Clients ORDER BY Suburb;"));
  for (const Record row : rows) {
    const QString suburb = row[u"Suburb"].ToText().trimmed();
    const QString postCode = row[u"Post_Code"].ToText().trimmed();
    if (!suburb.isEmpty()) {
      const QString key = suburb.toUpper();
      if (!choices.postCodeOfSuburb.contains(key)) choices.suburbs += suburb;
      QString& known = choices.postCodeOfSuburb[key];
      if (known.isEmpty()) known = postCode;
    }
    if (postCode.isEmpty() || seenPostCodes.contains(postCode)) continue;
    seenPostCodes[postCode] = true;
    choices.postCodes += postCode;
  }
  return choices;
}

std::vector<Site> LoadSites(Business& business, Id<Client> payer) {
  std::vector<Site> sites;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Client_ID, Display_Name, First_Name, Surname FROM Clients WHERE {}",
          IsPaidBy("Clients", payer)));
  for (const Record row : rows)
    sites.push_back({Id<Client>(row[u"Client_ID"].ToLong()), row[u"Display_Name"].ToText(),
                     row[u"First_Name"].ToText(), row[u"Surname"].ToText()});
  return sites;
}

}  // namespace quillary::clients
