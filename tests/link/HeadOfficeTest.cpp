#include "link/AcquiredServices.h"
#include "link/CopyFromHeadOffice.h"
#include "link/DatabaseUpload.h"
#include "support/BusinessTest.h"
#include "support/Contents.h"
#include "support/HeadOfficeProcess.h"

#include <QCoreApplication>

namespace quillary::link {
namespace {

/// A business of one client and two services, and a head office that knows it otherwise.
class HeadOfficeTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    office.Start();
    Run(Sql("DELETE FROM Services"));
    Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Gutters', 'GUT')"));
    Run(Sql("INSERT INTO Clients (Surname, Status) VALUES ('Old', 'Active')"));
    Run(Sql("UPDATE infPersonalDetails SET FSE_Code = 'F77', ABN = '51 824'"));
  }
  HeadOfficeAccount Account() const { return {office.Url(), office.kUser, office.kPassword, {}}; }
  std::unique_ptr<Wexor> LoggedIn() {
    auto session = std::make_unique<Wexor>(outside.clock);
    session->Login(office.kUser, office.kPassword, office.Url(), ServerDatabase(), ServerData());
    return session;
  }
  QString Archive() const { return folder.filePath("Archive"); }
  UploadTools Tools() {
    return {.logIn = [this] { return LoggedIn(); },
            .archive = Archive(),
            .pickWorkArea = [this]() -> std::optional<QString> { return folder.path(); }};
  }
  CopyChoice Everything() const { return {office.kUser, office.kPassword, true, true, true}; }
  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }
  QString Name() { return QFileInfo(business().DatabaseFile()).fileName(); }

  int argc = 0;
  QCoreApplication application{argc, nullptr};
  HeadOfficeProcess office;
};

TEST_F(HeadOfficeTest, UploadArrivesByteForByte) {
  for (const bool compacts : {false, true}) {
    business().values.compactDatabaseBeforeUpload = compacts;
    business().values.databaseUploaded = false;
    outside.prompter.Expect("Are you sure you want to upload your database", Answer::Yes);
    EXPECT_TRUE(UploadDatabaseFile(business(), Tools()));
    EXPECT_EQ(outside.prompter.TakeTold().last(),
              "Upload of Database File : " + Name() + " succeeded.");
    EXPECT_EQ(Bytes(office.Path(Name())), Bytes(Archive() + "/" + Name()));
    EXPECT_TRUE(business().LookupField("infOptions.DatabaseUploaded").ToBool());
  }
  const auto requests = office.Requests();
  const auto upload = std::find_if(requests.begin(), requests.end(), [](const QJsonObject& each) {
    return each["method"] == "Quillary.asmx/Upload_File";
  });
  ASSERT_NE(upload, requests.end());
  EXPECT_EQ((*upload)["form"].toObject()["FSECode"], "F77");
  // The next one warns of what it overwrites, and No leaves it.
  outside.prompter.Expect("Doing so will overwrite your previous upload !!", Answer::No);
  EXPECT_FALSE(UploadDatabaseFile(business(), Tools()));
}

TEST_F(HeadOfficeTest, UploadTellsWhyItFailed) {
  struct Case {
    const char* mood;
    const char* told;
  };
  for (const Case& each :
       {Case{"unauthorized", "There was an authorization problem : No room left."},
        Case{"failed", "Upload failed. Error Message : No room left."},
        Case{"other", "Upload failed - Error Message : No room left."},
        Case{"fail", "Upload failed. Web Service did not respond."},
        Case{"notxml", "Upload failed. Web Service did not respond."}}) {
    outside.prompter.Expect("Are you sure you want to upload your database", Answer::Yes);
    UploadTools tools = Tools();
    tools.logIn = [&] {
      auto session = LoggedIn();
      office.SetMoods({each.mood});
      return session;
    };
    EXPECT_FALSE(UploadDatabaseFile(business(), tools)) << each.mood;
    EXPECT_TRUE(outside.prompter.TakeTold().last().contains(each.told)) << each.mood;
    EXPECT_FALSE(business().values.databaseUploaded) << each.mood;
  }
  outside.prompter.Expect("Are you sure you want to upload your database", Answer::Yes);
  UploadTools cancelled = Tools();
  cancelled.progress = [](const HttpLine::Progress&) { return false; };
  EXPECT_FALSE(UploadDatabaseFile(business(), cancelled));
  EXPECT_TRUE(outside.prompter.TakeTold().last().contains("was cancelled"));
  Run(Sql("UPDATE infPersonalDetails SET FSE_Code = '[Not Set]'"));
  outside.prompter.Expect("Are you sure you want to upload your database", Answer::Yes);
  EXPECT_FALSE(UploadDatabaseFile(business(), Tools()));
  EXPECT_TRUE(outside.prompter.TakeTold().last().contains("Please ensure your FSE Code is set"));
}

TEST_F(HeadOfficeTest, CopiesDownWhatWasChosenAfterShowingWhatGoes) {
  outside.prompter.Expect("Services: 1 here, 2 at head office\nClients: 1 here, 40 at head office",
                          Answer::Yes);
  EXPECT_TRUE(CopyFromHeadOffice(business(), Account(), Everything(), Archive()));
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Finished copying data!"});
  const Recordset details = Run(Sql("SELECT * FROM infPersonalDetails"));
  EXPECT_EQ(details.Field(u"Company_Name").ToText(), "O'Brien & Sons");
  EXPECT_EQ(details.Field(u"Street_Number").ToText(), "2/14");
  EXPECT_EQ(details.Field(u"Post_Code").ToText(), "3101");
  EXPECT_EQ(details.Field(u"ABN").ToText(), "51 824");  // which head office did not send
  EXPECT_EQ(Count("Clients"), 40);
  EXPECT_EQ(Count("Services"), 2);
  const Recordset tenth = Run(Sql("SELECT * FROM Clients WHERE First_Name = 'Ann10'"));
  EXPECT_EQ(tenth.Field(u"Status").ToText(), "Cancelled");
  EXPECT_EQ(tenth.Field(u"Suburb").ToText(), "Ørsted");
  EXPECT_EQ(tenth.Field(u"Statement_Type").ToText(), "With Job");
  const Recordset service = Run(
      Sql("SELECT cs.Status, cs.Price, s.Service FROM (Client_Services cs INNER JOIN Clients c ON "
          "cs.Client_ID = c.Client_ID) INNER JOIN Services s ON cs.Service_ID = s.Service_ID "
          "WHERE c.First_Name = 'Ann1'"));
  EXPECT_EQ(service.Field(u"Service").ToText(), "Lawn mowing");
  EXPECT_EQ(service.Field(u"Status").ToText(), "Regular");
  EXPECT_EQ(service.Field(u"Price").ToMoney(), Money::FromUnits(455'000));
  EXPECT_EQ(Count("Client_Services"), 27);  // those whose service came down
  EXPECT_EQ(QDir(Archive()).entryList({"DATA_Before_Ostrel_Download_*.MDB"}).size(), 1);
}

TEST_F(HeadOfficeTest, CopyDownLeavesWhatWasWhenItIsNotWantedOrFails) {
  const auto without = [](Contents contents) {
    contents.rows.erase("infSystem");  // where the backup says what it is
    return contents;
  };
  const Contents before = without(ContentsOf(business()));
  outside.prompter.Expect("This will be replaced", Answer::No);
  EXPECT_FALSE(CopyFromHeadOffice(business(), Account(), Everything(), Archive()));
  EXPECT_EQ(without(ContentsOf(business())), before);
  // Every reply of the five may be the one that does not come, or cannot be read.
  for (const char* mood : {"fail", "cut", "notxml"}) {
    for (int at = 0; at < 5; ++at) {
      office.SetMoods(QStringList(at, "plain") + QStringList{mood});
      EXPECT_FALSE(CopyFromHeadOffice(business(), Account(), Everything(), Archive()))
          << mood << at;
      EXPECT_EQ(outside.prompter.TakeTold().size(), 1) << mood << at;
      EXPECT_EQ(without(ContentsOf(business())), before) << mood << at;
    }
  }
  HeadOfficeAccount wrong = Account();
  CopyChoice choice = Everything();
  choice.password = "wrong";
  EXPECT_FALSE(CopyFromHeadOffice(business(), wrong, choice, Archive()));
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Wrong user name or password."});
  EXPECT_EQ(CheckCopyChoice({" ", "x"})->field, "userName");
  EXPECT_EQ(CheckCopyChoice({"x", ""})->message, "Please enter your password.");
}

TEST_F(HeadOfficeTest, AnEmptyListOfClientsEmptiesThem) {
  office.SetMoods({"plain", "plain", "empty"});
  CopyChoice choice = Everything();
  choice.services = choice.details = false;
  outside.prompter.Expect("Clients: 1 here, 0 at head office", Answer::Yes);
  EXPECT_TRUE(CopyFromHeadOffice(business(), Account(), choice, Archive()));
  outside.prompter.TakeTold();
  EXPECT_EQ(Count("Clients"), 0);
  EXPECT_EQ(Count("Services"), 1);
}

TEST_F(HeadOfficeTest, ServicesOfADivisionReplaceTheCatalogue) {
  const auto session = LoggedIn();
  const auto offered = GetServices(*session);
  EXPECT_EQ(GroupsOf(offered).size(), 2);
  EXPECT_EQ(ReplaceServices(business(), offered, {}, Archive()).refusal->message,
            "Please select a division.");
  outside.prompter.Expect("Services: 1 here, 2 at head office", Answer::No);
  EXPECT_FALSE(ReplaceServices(business(), offered, "1", Archive()).done);
  EXPECT_EQ(Count("Services"), 1);
  outside.prompter.Expect("Are you sure you want to do the download?", Answer::Yes);
  EXPECT_TRUE(ReplaceServices(business(), offered, "1", Archive()).done);
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Done"});
  const Recordset services =
      Run(Sql("SELECT Service, Service_Code FROM Services ORDER BY Service"));
  EXPECT_EQ(services.Field(u"Service").ToText(), "Edges & paths");
}

TEST_F(HeadOfficeTest, TheProgramsSessionTellsAndLogs) {
  OstrelHeadOffice head(outside.clock, outside.prompter, folder.path());
  EXPECT_FALSE(head.IsConnected());  // nobody has entered an address
  EXPECT_FALSE(head.LogIn());
  head.Use(Account());
  head.SetFSECode("F77");
  head.LogQuillaryActivity("before the session");
  ASSERT_TRUE(head.LogIn());
  EXPECT_TRUE(head.Online());
  EXPECT_EQ(head.GetSMTPDetails().port, "587");
  EXPECT_TRUE(head.GetSMTPDetails().useAuthentication);
  head.LogQuillaryActivity("Diary");
  EXPECT_EQ(head.CallMessages("Upload_File", {{"FileName", "a"}, {"FileContent", "b"}}), "file-1");
  const auto requests = office.Requests();
  const auto activity = std::find_if(requests.begin(), requests.end(), [](const QJsonObject& each) {
    return each["method"] == "Quillary.asmx/LogQuillaryActivity";
  });
  ASSERT_NE(activity, requests.end());
  EXPECT_EQ((*activity)["form"].toObject(), (QJsonObject{{"Session_Key", "0123456789ABCDEFGHIJ"},
                                                         {"FSECode", "F77"},
                                                         {"Activity", "Diary"}}));
  office.SetMoods({"fail"});
  EXPECT_EQ(head.GetSMTPDetails().server, "");
  EXPECT_FALSE(head.Online());  // until the user reconnects
  EXPECT_TRUE(head.LogIn());
}

}  // namespace
}  // namespace quillary::link
