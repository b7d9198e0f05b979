#include "clients/ClientList.h"

#include "base/Text.h"

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
  return {record[u"Client_ID"].ToLong(),
          text(u"Status"),
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
  statement = statement + (query.status.compare(u"All", Qt::CaseInsensitive) == 0
                               ? Sql("WHERE LEFT(Clients.Status, 1) <> 'Q'")
                               : Sql("WHERE UCASE(Clients.Status) = {}", query.status.toUpper()));
  if (query.kinds == ClientKinds::RegularOnly) {
    statement = statement + Sql(" AND Clients.Client_ID IN "
                                "(SELECT Client_ID FROM Client_Services WHERE Status = 'Regular')");
  }
  return statement + Sql(" ORDER BY Clients.Display_Name, Clients.Surname, Clients.First_Name;");
}

void DeleteLinesOfClient(Business& business, qint64 clientId) {
  const Recordset entries =
      business.RunSQL(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {}; ", clientId));
  for (const Record entry : entries) {
    business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}", entry[u"Diary_ID"]));
  }
}

void DeleteLedgerEntriesOfClient(Business& business, qint64 clientId) {
  const Recordset payments =
      business.RunSQL(Sql("SELECT Payment_ID FROM Payments WHERE Client_ID = {}; ", clientId));
  for (const Record payment : payments) {
    business.Write(
        Sql("DELETE FROM General_Ledger_Entries WHERE Payment_ID = {}", payment[u"Payment_ID"]));
  }
}

}  // namespace

QStringList ClientListStatuses() {
  return {QStringLiteral("All"),        QStringLiteral("Active"),
          QStringLiteral("Bad debtor"), QStringLiteral("Billing address"),
          QStringLiteral("Cancelled"),  QStringLiteral("Transferred")};
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
                                           std::optional<qint64> clientId) {
  if (clientId) return std::nullopt;
  return Refusal{command == ClientListCommand::View
                     ? QStringLiteral("Please select a client to view/edit.")
                     : QStringLiteral("Please select a record to delete."),
                 {}};
}

bool DeleteClientAfterAsking(Business& business, Prompter& prompter, qint64 clientId) {
  const QString name =
      business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", clientId))
          .ToText();
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you really sure you want to delete ") + name +
      QStringLiteral("?\n\n There will be absolutely no record of this client afterwards and may "
                     "affect your GST/Profit and Loss report!"));
  if (answer != Answer::Yes) return false;
  Transaction deletion(business);
  business.Write(Sql("DELETE FROM Clients WHERE Client_ID = {};", clientId), Rows::Exactly(1));
  business.Write(Sql("DELETE FROM Client_Services WHERE Client_ID = {};", clientId));
  DeleteLinesOfClient(business, clientId);
  DeleteLedgerEntriesOfClient(business, clientId);
  deletion.Commit();
  return true;
}

}  // namespace quillary::clients
