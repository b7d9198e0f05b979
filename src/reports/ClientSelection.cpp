#include "reports/ClientSelection.h"

#include <algorithm>
#include <stdexcept>

namespace quillary::reports {
namespace {

Sql WithTable(const char* pattern, const char* table) {
  return Sql(qUtf8Printable(QString::fromLatin1(pattern).arg(QLatin1StringView(table))));
}

void SelectClientsToPrint(Business& business, const std::vector<Id<Client>>& clients) {
  Transaction selection(business);
  business.Write(Sql("DELETE FROM lstClientsToPrint;"));
  for (const Id<Client> client : clients)
    business.Write(Sql("INSERT INTO lstClientsToPrint (Client_ID) VALUES ({});", client));
  selection.Commit();
}

}  // namespace

GroupKey ClientOfRow(const Record& row) {
  return {row[u"Display_Name"].ToText(QStringLiteral("(client is gone)")),
          row[u"Client_ID"].ToLong()};
}

Sql ChosenClients(Business& business, const std::vector<Id<Client>>& clients, const char* table) {
  if (clients.empty())
    return WithTable("(%1 LEFT JOIN Clients ON %1.Client_ID = Clients.Client_ID) ", table);
  SelectClientsToPrint(business, clients);
  return WithTable(
      "((lstClientsToPrint INNER JOIN Clients ON lstClientsToPrint.Client_ID = "
      "Clients.Client_ID) INNER JOIN %1 ON Clients.Client_ID = %1.Client_ID) ",
      table);
}

std::vector<Sql> PortionsOfClients(Business& business) {
  constexpr size_t kFirst = 40;  // clients
  constexpr size_t kMost = 320;
  std::vector<Sql> portions;
  const Recordset gone = business.RunSQL(
      Sql("SELECT DISTINCT Diary.Client_ID FROM Diary LEFT JOIN Clients ON Diary.Client_ID = "
          "Clients.Client_ID WHERE Clients.Client_ID IS NULL"));
  if (gone.HasRows()) portions.emplace_back("Clients.Client_ID IS NULL AND ");
  QStringList ids;
  size_t size = kFirst;
  const auto close = [&] {
    if (ids.isEmpty()) return;
    portions.push_back(
        Sql("Diary.Client_ID IN ({}) AND ", Sql(qUtf8Printable(ids.join(QStringLiteral(", "))))));
    ids.clear();
    size = std::min(kMost, size * 2);
  };
  for (const Record row :
       business.RunSQL(Sql("SELECT Client_ID FROM Clients ORDER BY Display_Name, Client_ID"))) {
    ids += QString::number(row[u"Client_ID"].ToLong());
    if (static_cast<size_t>(ids.size()) == size) close();
  }
  close();
  return portions;
}

QString EmployeeWords(Business& business, const std::optional<Id<Employee>>& employee) {
  if (!employee) return QStringLiteral("All employees");
  const Value name = business.FirstField(
      Sql("SELECT Employee_Name FROM Employees WHERE Employee_ID = {}", *employee));
  if (name.IsNull()) throw std::invalid_argument("This employee is not there.");
  return QStringLiteral("Employee: ") + name.ToText();
}

}  // namespace quillary::reports
