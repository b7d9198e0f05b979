#include "lists/SuburbPositions.h"

namespace quillary::lists {

std::vector<SuburbPosition> ListSuburbPositions(Business& business) {
  std::vector<SuburbPosition> suburbs;
  for (const Record row : business.RunSQL(
           Sql("SELECT Suburb_Name, Position FROM Suburb_Position ORDER BY Position;"))) {
    suburbs.push_back({row[u"Suburb_Name"].ToText(), static_cast<int>(row[u"Position"].ToLong())});
  }
  return suburbs;
}

int AcquireSuburbsFromClients(Business& business) {
  Transaction acquisition(business);
  qint64 position =
      business.FirstField(Sql("SELECT MAX(Position) + 1 FROM Suburb_Position")).ToLong(1);
  int acquired = 0;
  for (const Record row : business.RunSQL(
           Sql("SELECT DISTINCT Clients.Suburb, Suburb_Position.Suburb_Name "
               "FROM Clients LEFT JOIN Suburb_Position "
               "ON Clients.Suburb = Suburb_Position.Suburb_Name "
               "WHERE IsNull(Suburb_Position.Suburb_Name) OR Suburb_Position.Suburb_Name = '' "
               "ORDER BY Clients.Suburb;"))) {
    const QString suburb = row[u"Suburb"].ToText();
    // Clients without a suburb would add a row that no one could name again, at every call.
    if (suburb.trimmed().isEmpty()) continue;
    business.Write(Sql("INSERT INTO Suburb_Position (Suburb_Name, Position) VALUES ({}, {})",
                       suburb, position++));
    ++acquired;
  }
  acquisition.Commit();
  return acquired;
}

void StoreSuburbOrder(Business& business, const QStringList& suburbNames) {
  Transaction order(business);
  int position = 0;
  for (const QString& suburb : suburbNames) {
    ++position;
    // Files hold rows without a name, which no statement can mean.
    if (!suburb.isEmpty()) ChangeSuburbPosition(business, suburb, position);
  }
  order.Commit();
}

void ChangeSuburbPosition(Business& business, const QString& suburbName, int position) {
  business.Write(
      Sql("UPDATE Suburb_Position SET Position = {} WHERE Suburb_Name = {};", position, suburbName),
      Rows::AtLeast(1));
}

std::optional<Refusal> RemoveSuburb(Business& business, Prompter& prompter,
                                    const std::optional<QString>& suburbName) {
  if (!suburbName) {
    return Refusal{QStringLiteral("Please select the suburb you want to remove."), {}};
  }
  const Answer answer = prompter.Ask(
      QStringLiteral("Are you sure you want to remove %1 from the list?").arg(*suburbName));
  if (answer == Answer::Yes) {
    business.Write(Sql("DELETE FROM Suburb_Position WHERE Suburb_Name = {};", *suburbName),
                   Rows::AtLeast(1));
  }
  return std::nullopt;
}

}  // namespace quillary::lists
