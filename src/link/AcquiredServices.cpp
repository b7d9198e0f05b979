#include "link/AcquiredServices.h"

#include "base/OwnFiles.h"
#include "data/store/ProvenCopy.h"

#include <QDir>

#include <algorithm>

namespace quillary::link {

std::vector<OfferedService> GetServices(Wexor& session) {
  EasyXML reply = session.ExecuteXML(QStringLiteral("Get_Services"), QStringLiteral("Services"),
                                     {{QStringLiteral("Current_Only"), QStringLiteral("True")},
                                      {QStringLiteral("Service_Group_ID"), QString()}});
  if (!reply.IsReady())
    throw LinkError("EasyHTTP", QStringLiteral("The list of services could not be read."));
  std::vector<OfferedService> services;
  while (reply.RowCount() > 0 && reply.Read())
    services.push_back({reply.Field(QStringLiteral("Service_Group_ID")),
                        reply.Field(QStringLiteral("Service_Group_Name")),
                        reply.Field(QStringLiteral("Name")), reply.Field(QStringLiteral("Code"))});
  return services;
}

std::vector<OfferedService> GroupsOf(const std::vector<OfferedService>& services) {
  std::vector<OfferedService> groups;
  for (const OfferedService& service : services)
    if (std::none_of(groups.begin(), groups.end(),
                     [&](const OfferedService& group) { return group.groupId == service.groupId; }))
      groups.push_back(service);
  return groups;
}

std::vector<OfferedService> OfGroup(const std::vector<OfferedService>& services,
                                    const QString& groupId) {
  std::vector<OfferedService> found;
  for (const OfferedService& service : services)
    if (service.groupId == groupId) found.push_back(service);
  return found;
}

AcquireOutcome ReplaceServices(Business& business, const std::vector<OfferedService>& services,
                               const QString& groupId, const QString& archive) {
  const std::vector<OfferedService> chosen = OfGroup(services, groupId);
  if (groupId.isEmpty() || chosen.empty())
    return {Refusal{QStringLiteral("Please select a division."), QStringLiteral("division")}};
  const qint64 here = business.FirstField(Sql("SELECT COUNT(*) FROM Services")).ToLong();
  const qint64 jobs = business.FirstField(Sql("SELECT COUNT(*) FROM Diary_Services")).ToLong();
  QString question = QStringLiteral(
                         "Are you sure you want to do the download?\n\nServices: %1 here, %2 at "
                         "head office")
                         .arg(here)
                         .arg(chosen.size());
  if (jobs > 0)
    question +=
        QStringLiteral("\nServices entered for jobs, which will lose their name: %1").arg(jobs);
  Prompter& prompter = business.World().prompter;
  if (prompter.AskBeforeLosing(question) != Answer::Yes) return {};
  MakeOwnFolder(archive);
  const DateTime now = business.Now();
  business.ConnectToDatabase();
  CopyProven(business.StoreConnection(),
             QDir(archive).filePath(QStringLiteral("DATA_Before_Services_Download_%1.MDB")
                                        .arg(now.date.toString(QStringLiteral("yyyy-MM-dd ")) +
                                             now.time.toString(QStringLiteral("HHmmss")))));
  Transaction all(business);
  business.Write(Sql("DELETE FROM Services;"));
  for (const OfferedService& service : chosen)
    business.Write(Sql("INSERT INTO Services (Service, Service_Code) VALUES ({}, {})", service.name,
                       service.code),
                   Rows::Exactly(1));
  all.Commit();
  LoadDefaultService(business);
  prompter.Tell(Tone::Information, QStringLiteral("Done"));
  return {std::nullopt, true};
}

}  // namespace quillary::link
