#include "clients/ClientFinder.h"

#include "base/Text.h"
#include "domain/EntryStatus.h"

#include <algorithm>

namespace quillary::clients {
namespace {

QString AddressOf(const ClientListRow& client) {
  QStringList lines = {(client.streetNumber + u' ' + client.street).trimmed(),
                       (client.suburb + u' ' + client.postCode).trimmed()};
  lines.removeAll(QString());
  return lines.join(QStringLiteral(", "));
}

}  // namespace

ClientFinder::ClientFinder(Business& business)
    : business_(business),
      listed_(ClientList::Load(business)),
      prospects_(ClientList::Load(business, {.status = ClientStatus::QuoteOnly})) {}

std::vector<FoundClient> ClientFinder::Clients(const QString& typed, size_t most) const {
  const QString words = typed.trimmed();
  if (words.isEmpty()) return {};
  std::vector<FoundClient> found;
  for (const ClientList* list : {&listed_, &prospects_}) {
    for (const size_t at : list->Search(words)) {
      const ClientListRow& client = list->Rows()[at];
      found.push_back({client.client, client.displayName, AddressOf(client)});
    }
  }
  std::stable_partition(found.begin(), found.end(), [&](const FoundClient& client) {
    return FoldedForSearch(client.name).startsWith(FoldedForSearch(words));
  });
  if (found.size() > most)
    found.erase(found.begin() + static_cast<std::ptrdiff_t>(most), found.end());
  return found;
}

std::vector<FoundJob> ClientFinder::Jobs(Id<Client> client) const {
  std::vector<FoundJob> jobs;
  const auto take = [&](const Sql& which, const QString& words) {
    const Recordset job = business_.RunSQL(
        Sql("SELECT TOP 1 Diary_ID, Schedule_Date, Description, Total_Price FROM Diary "
            "WHERE Client_ID = {} AND ",
            client) +
        which);
    if (!job.HasRows()) return;
    jobs.push_back({Id<Entry>(job.Field(u"Diary_ID").ToLong()),
                    words.arg(ToShortDateText(job.Field(u"Schedule_Date").ToDate()),
                              job.Field(u"Description").ToText(),
                              job.Field(u"Total_Price").ToMoney().ToCurrencyText())});
  };
  take(Sql("Status = {} AND Schedule_Date >= {} ORDER BY Schedule_Date, Diary_ID",
           EntryStatus::JobOpen, business_.Today()),
       QStringLiteral("Job on %1: %2, %3"));
  take(
      Sql("Status IN {} ORDER BY Schedule_Date DESC, Diary_ID DESC", CodesOf(EntryGroup::WorkDone)),
      QStringLiteral("Job done on %1: %2, %3"));
  return jobs;
}

}  // namespace quillary::clients
