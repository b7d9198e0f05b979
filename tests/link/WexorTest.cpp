#include "link/Wexor.h"
#include "support/HeadOfficeProcess.h"
#include "support/Literals.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QTimer>

#include <zlib.h>

namespace quillary::link {
namespace {

class FixedClock : public Clock {
 public:
  DateTime Now() const override { return {{2026, 11, 2}, {9, 5, 7, 120}}; }
};

/// A session of its own with a head office of its own.
class WexorTest : public ::testing::Test {
 protected:
  void SetUp() override { office.Start(); }
  void LogIn(Wexor& session) const {
    session.Login(office.kUser, office.kPassword, office.Url(), "Kelvane Live", "Ostrel4 Live");
    ASSERT_TRUE(session.IsLoggedOn()) << session.LastError().toStdString();
  }
  QString SmtpServer(Wexor& session) const {
    return session.ExecuteXML("GetSMTPDetails", "Quillary", {}).Field("SMTP_Server");
  }

  int argc = 0;
  QCoreApplication application{argc, nullptr};
  FixedClock clock;
  HeadOfficeProcess office;
};

TEST_F(WexorTest, SaysWhatTheServerExpects) {
  Wexor session(clock);
  LogIn(session);
  EXPECT_EQ(SmtpServer(session), "mail.group.test");
  session.LogOut();
  EXPECT_EQ(session.SessionKey(), "");
  EXPECT_THROW(session.LogOut(), LinkError);
  const auto requests = office.Requests();
  ASSERT_EQ(office.Methods(), (QStringList{"Sessions.asmx/Log_In", "Quillary.asmx/GetSMTPDetails",
                                           "Sessions.asmx/Log_Out"}));
  EXPECT_EQ(requests[0]["form"].toObject(), (QJsonObject{{"Database_Name", "Kelvane Live"},
                                                         {"User_Name", "quillary"},
                                                         {"Password", "m4t7wz"},
                                                         {"Data", "Ostrel4 Live"}}));
  QJsonObject headers;
  for (const QJsonValue each : requests[1]["headers"].toArray())
    headers[each.toArray()[0].toString()] = each.toArray()[1];
  EXPECT_EQ(headers["Session_Key"], "0123456789ABCDEFGHIJ");
  EXPECT_EQ(headers["User-Agent"], "Quillary");
  EXPECT_EQ(headers["Accept-Encoding"], "deflate");
  EXPECT_EQ(headers["Content-Type"], "application/x-www-form-urlencoded");
  EXPECT_FALSE(headers.contains("Expect"));
}

TEST_F(WexorTest, ReadsRepliesInEveryFormThatServersUse) {
  Wexor session(clock);
  LogIn(session);
  for (const char* mood :
       {"deflate", "rawdeflate", "chunked", "continue", "lower", "slow", "close", "closefirst"}) {
    office.SetMoods({mood});
    EXPECT_EQ(SmtpServer(session), "mail.group.test") << mood;
    // A connection that the server closed without a word is opened again, once.
    EXPECT_EQ(SmtpServer(session), "mail.group.test") << mood;
  }
}

TEST_F(WexorTest, TellsWhatWentWrong) {
  struct Case {
    const char* mood;
    const char* source;
    const char* words;
  };
  for (const Case& each :
       {Case{"fail", "EasyHTTP", "The database is asleep."},
        Case{"fail", "EasyHTTP", "HTTP/1.1 500 Internal Server Error"},
        Case{"badchunk", "EasyHTTP", "ChunkLength of "}, Case{"cut", "Wexor", "remaining"}}) {
    Wexor session(clock);
    LogIn(session);
    office.SetMoods({each.mood});
    try {
      SmtpServer(session);
      ADD_FAILURE() << each.mood;
    } catch (const LinkError& error) {
      EXPECT_STREQ(error.Source(), each.source) << each.mood;
      EXPECT_NE(std::string(error.what()).find(each.words), std::string::npos) << error.what();
    }
    EXPECT_EQ(SmtpServer(session), "mail.group.test") << "after " << each.mood;
  }
  Wexor session(clock);
  LogIn(session);
  office.SetMoods({"notxml"});
  EXPECT_EQ(SmtpServer(session), "");
  EXPECT_THROW(session.Login("a", "b", office.Url(), "c", "d"), LinkError);  // open already
}

TEST_F(WexorTest, KeepsOutWhoIsNotKnownAndTellsThatNobodyAnswers) {
  Wexor wrong(clock);
  wrong.Login("quillary", "wrong", office.Url(), "Kelvane Live", "Ostrel4 Live");
  EXPECT_FALSE(wrong.IsLoggedOn());
  EXPECT_EQ(wrong.LastError(), "Wrong user name or password.");
  office.SetMoods({"notxml"});
  wrong.Login("quillary", "m4t7wz", office.Url(), "Kelvane Live", "Ostrel4 Live");
  EXPECT_TRUE(wrong.LastError().contains("could not be read"));
  const QString url = office.Url();
  office.Stop();
  Wexor nobody(clock);
  QStringList statuses;
  QObject::connect(&nobody, &Wexor::statusChanged, [&](const QString& text) { statuses += text; });
  nobody.Login("quillary", "m4t7wz", url, "Kelvane Live", "Ostrel4 Live");
  EXPECT_FALSE(nobody.IsLoggedOn());
  EXPECT_TRUE(nobody.LastError().startsWith("Connection failed - "));
  EXPECT_EQ(statuses.last(), "Connection failed");
  nobody.Login("a", "b", "gopher://x/", "c", "d");
  EXPECT_EQ(nobody.LastError(), "Unknown protocol. Please use HTTP or HTTPS.");
}

TEST_F(WexorTest, TrustsOnlyCertificatesThatAreRight) {
  HeadOfficeProcess secured;
  secured.Start(true);
  Wexor doubtful(clock);
  doubtful.Login(office.kUser, office.kPassword, secured.Url(), "a", "b");
  EXPECT_TRUE(doubtful.LastError().contains("certificate")) << doubtful.LastError().toStdString();
  EXPECT_TRUE(secured.Methods().isEmpty());  // and the password did not leave
  Wexor otherName(clock, secured.Certificate());
  otherName.Login(office.kUser, office.kPassword,
                  QString(secured.Url()).replace("localhost", "127.0.0.1"), "a", "b");
  EXPECT_FALSE(otherName.IsLoggedOn());
  Wexor trusting(clock, secured.Certificate());
  trusting.Login(office.kUser, office.kPassword, secured.Url(), "a", "b");
  EXPECT_TRUE(trusting.IsLoggedOn()) << trusting.LastError().toStdString();
}

TEST_F(WexorTest, QueuesWhatIsAskedMeanwhile) {
  Wexor session(clock);
  LogIn(session);
  const EasyXML first = session.StartXML("GetSMTPDetails", "Quillary", {});
  const EasyXML second = session.StartXML("Get_Services", "Services", {});
  // The one that waits drives those before it.
  EXPECT_EQ(SmtpServer(session), "mail.group.test");
  EXPECT_EQ(first.Field("SMTP_Port"), "");  // its cursor is as it was before the reply
  EasyXML read = first;
  read.InitializeRowCursor();
  EXPECT_EQ(read.Field("SMTP_Port"), "587");
  EXPECT_EQ(second.RowCount(), 3);
  EXPECT_EQ(office.Methods().mid(1),
            (QStringList{"Quillary.asmx/GetSMTPDetails", "Services.asmx/Get_Services",
                         "Quillary.asmx/GetSMTPDetails"}));
}

TEST_F(WexorTest, AsksForMoreFromWithinAWaitWithoutLosingEither) {
  Wexor session(clock);
  LogIn(session);
  office.SetMoods({"slow"});
  QString nested;
  QTimer::singleShot(20, &session, [&] { nested = SmtpServer(session); });
  EXPECT_EQ(SmtpServer(session), "mail.group.test");
  EXPECT_EQ(nested, "mail.group.test");
}

TEST_F(WexorTest, PingsWhenItWasQuiet) {
  Wexor session(clock);
  session.SetKeepAlive(30, 10);
  LogIn(session);
  for (int turn = 0; turn < 300 && !office.Methods().contains("Sessions.asmx/Ping"); ++turn)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_TRUE(office.Methods().contains("Sessions.asmx/Ping"));
}

TEST_F(WexorTest, TracesWithoutSecrets) {
  Wexor session(clock);
  session.SetLogFile(office.Path("Log.txt"));
  LogIn(session);
  session.ExecuteXML("Send_Email_Message_Quillary", "Messages",
                     {{"Message", QString("Dear Ann\r\nfaked line")},
                      {"SMTP_Password", QString("s3cret-of-mail")},
                      {"Subject", QString("Invoice\nfaked line")}});
  QFile file(office.Path("Log.txt"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString log = QString::fromUtf8(file.readAll());
  for (const char* secret :
       {"m4t7wz", "0123456789ABC", "s3cret-of-mail", "Dear Ann", "\nfaked line"})
    EXPECT_FALSE(log.contains(secret)) << secret << "\n" << log.toStdString();
  EXPECT_TRUE(log.contains("LogIn() Success - Session_Key starts with 0123456789..."));
  EXPECT_TRUE(log.startsWith("2026.11.02 09:05:07.12 ")) << log.left(40).toStdString();
  EXPECT_TRUE(log.contains("pwd-len=6"));
  EXPECT_EQ(QFileInfo(file).permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
            QFileDevice::Permissions());
}

TEST_F(WexorTest, StopsWhenTheUserCancels) {
  Wexor session(clock);
  LogIn(session);
  office.SetMoods({"slow"});
  const auto never = [](const HttpLine::Progress&) { return false; };
  EXPECT_THROW(session.ExecuteXML("Get_Services", "Services", {}, never), CallCancelled);
  EXPECT_EQ(SmtpServer(session), "mail.group.test");
}

TEST(AddressTest, IsTakenApart) {
  struct Case {
    const char* text;
    const char* host;
    int port;
    const char* path;
  };
  for (const Case& each :
       {Case{"https://a.b/", "a.b", 443, ""}, Case{"HTTP://a.b:8080/c/d/", "a.b", 8080, "c/d/"},
        Case{"http://a.b", "a.b", 80, ""}}) {
    const ServerAddress address = ParseURL(each.text);
    EXPECT_EQ(address.host, each.host);
    EXPECT_EQ(address.port, each.port);
    EXPECT_EQ(address.path, each.path);
  }
  for (const char* wrong : {"ftp://a/", "a.b", "", "http://a:0/", "http://a:65536/", "http://a:x/"})
    EXPECT_THROW(ParseURL(wrong), LinkError) << wrong;
}

TEST(FormBodyTest, EncodesEachKindOfValue) {
  EasyXML document;
  document.LoadXml("<a>Ørsted</a>");
  FormBody body({{"Na me", QString("a b&c=Ø+\r\n")},
                 {"When", DateTime({2026, 11, 2}, {9, 5, 7})},
                 {"Doc", document}});
  QByteArray sent(static_cast<qsizetype>(body.Size()) + 10, '\0');
  sent.truncate(static_cast<qsizetype>(body.Read(sent.data(), sent.size())));
  EXPECT_EQ(sent.size(), body.Size());
  const QList<QByteArray> parts = sent.split('&');
  EXPECT_EQ(parts[0], "Na+me=a+b%26c%3D%C3%98%2B%0D%0A");
  EXPECT_EQ(parts[1], "When=2026%2D11%2D02+09%3A05%3A07");
  const QByteArray packed =
      QByteArray::fromBase64(QByteArray::fromPercentEncoding(parts[2].mid(4)));
  QByteArray text(100, '\0');
  uLongf size = 100;
  ASSERT_EQ(uncompress(reinterpret_cast<Bytef*>(text.data()), &size,
                       reinterpret_cast<const Bytef*>(packed.constData()),
                       static_cast<uLong>(packed.size())),
            Z_OK);
  EXPECT_EQ(QString::fromUtf8(text.left(static_cast<qsizetype>(size))), "<a>Ørsted</a>");
}

}  // namespace
}  // namespace quillary::link
