#include "clients/ClientList.h"

#include "base/Text.h"
#include "domain/JobType.h"

#include <algorithm>

namespace quillary::clients {
namespace {

QString DigitsOf(const QString& text) {
  QString digits;
  for (const QChar character : text) {
    if (character >= u'0' && character <= u'9') digits += character;
  }
  return digits;
}

/// Whether the text has nothing but what phone numbers are written with.
bool LooksLikePhone(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar character) {
    return QStringView(u"0123456789+()-/.").contains(character);
  });
}

QStringList WordsOf(const QString& typed) {
  QStringList words;
  for (const QString& word : FoldedForSearch(typed).split(u' ', Qt::SkipEmptyParts)) {
    const QString digits = DigitsOf(word);
    words += LooksLikePhone(word) && !digits.isEmpty() ? digits : word;
  }
  return words;
}

ClientListRow RowOf(const Record& record) {
  const auto text = [&](const char16_t* column) { return record[column].ToText(); };
  return {Id<Client>(record[u"Client_ID"].ToLong()),
          StoredClientStatus(text(u"Status")),
          text(u"Display_Name"),
          text(u"First_Name"),
          text(u"Surname"),
          text(u"Street_Number"),
          text(u"Street"),
          text(u"Suburb"),
          text(u"Post_Code"),
          text(u"Phone_1") + QStringLiteral("; ") + text(u"Phone_2"),
          text(u"Fax"),
          text(u"Email")};
}

/// The line ends keep a word from being found across two fields.
QString SearchedOf(const ClientListRow& row) {
  QString phoneDigits;
  for (const QString& phone : row.phones.split(u';')) phoneDigits += u'\n' + DigitsOf(phone);
  return FoldedForSearch(row.displayName + u'\n' + row.firstName + u'\n' + row.surname + u'\n' +
                         row.streetNumber + u' ' + row.street + u'\n' + row.suburb + u'\n' +
                         row.email + u'\n' + row.phones + phoneDigits);
}

Sql ListStatement(const ClientListQuery& query) {
  Sql statement(
      "SELECT Clients.Client_ID, Clients.Status, Clients.Display_Name, Clients.First_Name, "
      "Clients.Surname, Clients.Street_Number, Clients.Street, Clients.Suburb, "
      "Clients.Post_Code, Clients.Phone_1, Clients.Phone_2, Clients.Fax, Clients.Email "
      "FROM (Clients) ");
  statement = statement + (query.status ? Sql("WHERE UCASE(Clients.Status) = {}",
                                              TextOf(*query.status).toUpper())
                                        : Sql("WHERE {}", IsNoProspect("Clients.Status")));
  if (query.kinds == ClientKinds::RegularOnly)
    statement = statement + Sql(" AND Clients.Client_ID IN "
                                "(SELECT Client_ID FROM Client_Services WHERE Status = {})",
                                JobType::Regular);
  return statement + Sql(" ORDER BY Clients.Display_Name, Clients.Surname, Clients.First_Name;");
}

}  // namespace

QStringList ClientListStatuses() {
  return QStringList("All") + WordsIn<ClientStatus>(ClientGroup::OfferedByHand);
}

std::optional<ClientStatus> ClientListStatusOf(const QString& word) {
  return FromText<ClientStatus>(word);
}

ClientList ClientList::Load(Business& business, const ClientListQuery& query) {
  const BusyWhile busy(business.World().busy);
  ClientList list;
  const Recordset records = business.RunSQL(ListStatement(query));
  list.rows_.reserve(records.RowCount());
  list.searched_.reserve(records.RowCount());
  for (const Record record : records) {
    list.rows_.push_back(RowOf(record));
    list.searched_.push_back(SearchedOf(list.rows_.back()));
  }
  return list;
}

std::vector<size_t> ClientList::Search(const QString& typed) const {
  const QStringList words = WordsOf(typed);
  std::vector<size_t> found;
  for (size_t row = 0; row < rows_.size(); ++row) {
    const bool hasAll = std::all_of(words.begin(), words.end(), [&](const QString& word) {
      return searched_[row].contains(word);
    });
    if (hasAll) found.push_back(row);
  }
  return found;
}

QString ListCountWords(size_t count) {
  return QStringLiteral("List Count = %1").arg(count);
}

std::optional<Refusal> CheckClientSelected(ClientListCommand command,
                                           std::optional<Id<Client>> client) {
  if (client) return std::nullopt;
  return Refusal{command == ClientListCommand::View
                     ? QStringLiteral("Please select a client to view/edit.")
                     : QStringLiteral("Please select a record to delete."),
                 {}};
}

}  // namespace quillary::clients
