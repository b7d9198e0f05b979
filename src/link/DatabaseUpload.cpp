#include "link/DatabaseUpload.h"

#include "base/OwnFiles.h"
#include "base/Text.h"
#include "data/ActivityLog.h"
#include "data/store/ProvenCopy.h"
#include "maintenance/Compaction.h"

#include <QDir>
#include <QFileInfo>

namespace quillary::link {
namespace {

QString UploadTitle(const Business& business) {
  return SystemTitle() + (business.values.compactDatabaseBeforeUpload
                              ? QStringLiteral(" (Upload with Compaction)")
                              : QStringLiteral(" (Upload without Compaction)"));
}

bool UserWantsIt(Business& business) {
  Prompter& prompter = business.World().prompter;
  const QString title = UploadTitle(business);
  if (business.values.databaseUploaded)
    return prompter.AskBeforeLosing(
               QStringLiteral("You have previously uploaded your database to the Ostrel 4 Server\n"
                              "Are you sure you want upload your database again?\n\n"
                              "Doing so will overwrite your previous upload !!"),
               title) == Answer::Yes;
  return prompter.Ask(QStringLiteral(
                          "Are you sure you want to upload your database to the Ostrel 4 Server "),
                      title) == Answer::Yes;
}

void LogFailure(Business& business, int reason) {
  LogActivity(business, QStringLiteral("Upload Database File Failed: %1").arg(reason));
}

QString StoredFSECode(Business& business) {
  return business.FirstField(Sql("SELECT FSE_Code FROM infPersonalDetails")).ToText().trimmed();
}

/// The copy that goes out; nothing when it could not be made, which was told.
std::optional<QString> CopyToUpload(Business& business, const UploadTools& tools,
                                    const QString& name) {
  MakeOwnFolder(tools.archive);
  const QString copy = QDir(tools.archive).filePath(name);
  if (QFileInfo(copy) == QFileInfo(business.DatabaseFile())) {
    business.World().prompter.Tell(
        Tone::Exclamation,
        QStringLiteral("Cannot create backup as the source and destination folder is the same."));
    return std::nullopt;
  }
  business.ConnectToDatabase();
  CopyProven(business.StoreConnection(), copy);
  if (!business.values.compactDatabaseBeforeUpload) return copy;
  business.CloseConnection();
  const auto compaction = maintenance::CompactDatabase(
      business.DatabaseFile(), {tools.archive, tools.pickWorkArea}, business.World().prompter);
  business.ConnectToDatabase();
  if (!compaction.done) return std::nullopt;
  CopyProven(business.StoreConnection(), copy);
  return copy;
}

/// Tells what head office made of it; true when it took the file.
bool TakeReply(Business& business, const EasyXML& reply, const QString& name) {
  Prompter& prompter = business.World().prompter;
  const QString result = reply.Field(QStringLiteral("result"));
  const QString why = reply.Field(QStringLiteral("error_message"));
  if (result == u"success") {
    business.Write(Sql("UPDATE infOptions SET DatabaseUploaded = True;"));
    business.values.databaseUploaded = true;
    LogActivity(business, name + QStringLiteral(" Completed"));
    prompter.Tell(Tone::Information,
                  QStringLiteral("Upload of Database File : %1 succeeded.").arg(name));
    return true;
  }
  if (result == u"unauthorized") {
    prompter.Tell(
        Tone::Stop,
        QStringLiteral("Upload failed. There was an authorization problem : %1\n\nContact Dyvane")
            .arg(why));
    LogFailure(business, 5);
  } else if (result == u"failed") {
    prompter.Tell(Tone::Stop,
                  QStringLiteral("Upload failed. Error Message : %1\n\nContact Dyvane").arg(why));
  } else {
    prompter.Tell(Tone::Stop,
                  QStringLiteral("Upload failed - Error Message : %1\n\nContact Dyvane").arg(why));
  }
  return false;
}

void TellNoReply(Business& business) {
  business.World().prompter.Tell(
      Tone::Stop,
      QStringLiteral(
          "Upload failed. Web Service did not respond.\n"
          " This is usually due to one of two problems\n"
          "1. The Ostrel4 Web Method is not available.\n"
          "2. Your database file size is too large. In this case Check your 'Compact database "
          "before database upload' in Miscellaneous Settings and try again.\n"
          "If this still fails contact Dyvane"));
  LogFailure(business, 4);
}

bool Send(Business& business, const UploadTools& tools, Wexor& session, const QString& fseCode,
          const QString& copy, const QString& name) {
  Prompter& prompter = business.World().prompter;
  try {
    const EasyXML reply =
        session.ExecuteXML(QStringLiteral("Upload_File"), QStringLiteral("Quillary"),
                           {{QStringLiteral("FSECode"), fseCode},
                            {QStringLiteral("FileName"), name},
                            {QStringLiteral("FileContent"), FileContent{copy}}},
                           tools.progress);
    if (reply.IsReady()) return TakeReply(business, reply, name);
    TellNoReply(business);
  } catch (const CallCancelled&) {
    prompter.Tell(Tone::Information,
                  QStringLiteral("The upload was cancelled. Head office keeps what it had."));
  } catch (const FormError& error) {
    prompter.Tell(
        Tone::Stop,
        QString::fromUtf8(error.what()) +
            QStringLiteral("\n\nIf attempting to upload a database file Check your 'Compact "
                           "database before database upload' in Miscellaneous Settings and try "
                           "again "),
        QStringLiteral("Database Upload Error"));
  } catch (const LinkError&) {
    TellNoReply(business);
  }
  return false;
}

}  // namespace

bool UploadDatabaseFile(Business& business, const UploadTools& tools) {
  Prompter& prompter = business.World().prompter;
  if (!UserWantsIt(business)) return false;
  const std::unique_ptr<Wexor> session = tools.logIn();
  if (!session) return false;
  const QString fseCode = StoredFSECode(business);
  if (fseCode.isEmpty() || fseCode == u"[Not Set]") {
    prompter.Tell(
        Tone::Exclamation,
        QStringLiteral("Please ensure your FSE Code is set in your Personal Information."));
    LogFailure(business, 7);
    return false;
  }
  LogActivity(business, QStringLiteral("Upload Database File Start"));
  const QString name = FileNameOfPath(business.DatabaseFile());
  if (name.isEmpty()) {
    prompter.Tell(Tone::Stop, QStringLiteral("Database file name is missing.\n\nContact Dyvane"));
    LogFailure(business, 1);
    return false;
  }
  const auto copy = CopyToUpload(business, tools, name);
  return copy && Send(business, tools, *session, fseCode, *copy, name);
}

}  // namespace quillary::link
