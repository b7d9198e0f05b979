#include "cli/CompanionFixture.h"
#include "support/HeadOfficeProcess.h"

namespace quillary {
namespace {

class HeadOfficeCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    office.Start();
    environment.insert("QUILLARY_PASSWORD", office.kPassword);
    Done({"demo", "a.mdb", "--clients", "3"});
  }
  QStringList Words(const QStringList& words) const {
    return QStringList{"headoffice", "a.mdb"} + words +
           QStringList{"--server", office.Url(), "--user", office.kUser};
  }
  HeadOfficeProcess office;
};

TEST_F(HeadOfficeCommandsTest, WorkAgainstAServer) {
  EXPECT_TRUE(Done(Words({"ping"})).contains("0123456789..."));
  EXPECT_EQ(office.Methods().last(), "Sessions.asmx/Log_Out");
  const QString details = Done(Words({"smtp-details"}));
  EXPECT_TRUE(details.contains("mail.group.test"));
  EXPECT_FALSE(details.contains("s3cret-of-mail"));
  EXPECT_EQ(Run(Words({"upload"})).exitCode, 1);
  EXPECT_TRUE(Done(Words({"upload", "--compact", "--yes"})).contains("a.mdb succeeded."));
  EXPECT_EQ(Bytes(office.Path("a.mdb")), Bytes(Path("Archive/a.mdb")));
  const QJsonValue before = Field("a.mdb", "SELECT COUNT(*) FROM Clients");
  EXPECT_EQ(Run(Words({"copy-down", "--clients", "--services"})).exitCode, 1);
  EXPECT_EQ(Field("a.mdb", "SELECT COUNT(*) FROM Clients"), before);
  Done(Words({"copy-down", "--clients", "--services", "--yes"}));
  EXPECT_EQ(Field("a.mdb", "SELECT COUNT(*) FROM Clients"), 40);
  EXPECT_EQ(Json(Words({"services", "--division", "2"})).array().size(), 1);
  Done(Words({"services", "--division", "2", "--download", "--yes"}));
  EXPECT_EQ(Field("a.mdb", "SELECT Service FROM Services"), "Windows inside");
}

TEST_F(HeadOfficeCommandsTest, FailWithTheLastErrorAndWithoutSecrets) {
  environment.insert("QUILLARY_PASSWORD", "not-the-pass");
  const Result refused = Run(Words({"ping"}));
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(refused.err.contains("Wrong user name or password."));
  EXPECT_FALSE(refused.err.contains("not-the-pass"));
  EXPECT_EQ(Run(Words({"dance"})).exitCode, 2);
  office.Stop();
  const Result nobody = Run(Words({"ping"}));
  EXPECT_EQ(nobody.exitCode, 1);
  EXPECT_TRUE(nobody.err.contains("Connection failed"));
}

}  // namespace
}  // namespace quillary
