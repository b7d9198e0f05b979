#include "maintenance/DatabaseVersion.h"

#include "data/ActivityLog.h"

#include <limits>

namespace quillary::maintenance {

void SetDatabaseVersion(Business& business) {
  const Outside& world = business.World();
  Prompter& prompter = world.prompter;
  if (prompter.AskBeforeLosing(
          QStringLiteral("Are you sure you want to reset your database version?")) != Answer::Yes) {
    return;
  }
  if (prompter.Ask(QStringLiteral("Please make sure that you have a backup copy of your database "
                                  "as this will make changes to your database.\nContinue?")) !=
      Answer::Yes) {
    return;
  }
  const QString current = business.RunSQL(QStringLiteral("SELECT * FROM infSystem;"))
                              .Field(u"Database_version")
                              .ToText();
  const auto typed = prompter.AskText(QStringLiteral("DB Version"),
                                      QStringLiteral("Please enter DB Version"), current);
  const qint64 version = typed ? typed->trimmed().toLongLong() : 0;
  if (version <= 0 || version > std::numeric_limits<qint32>::max()) return;
  LogActivity(business, QStringLiteral("Set DB Version"));
  business.RunSQL(Sql("UPDATE infSystem SET Database_Version = {}", version));
  if (prompter.Ask(QStringLiteral(
          "You need to restart for the changes to take effect. \n\nRestart?")) == Answer::No) {
    return;
  }
  business.CloseConnection();
  world.desktop.EndProcess(0);
}

}  // namespace quillary::maintenance
