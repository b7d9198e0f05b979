#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

/// One job on its whole road and back, as a script of commands on the invented business.
class JobRoadTest : public CompanionTest {
 protected:
  /// Gives a client who pays for itself, owes nothing and has no service a weekly one, and rolls.
  void AServiceMakesTheJob() {
    Done({"demo", "d.mdb", "--clients", "40", "--months=2", "--seed", "3"});
    client = Word(
        "SELECT MIN(Client_ID) FROM Clients WHERE Status = 'Active' AND Is_Billed_To = True AND "
        "Billing_Client_ID = Client_ID");
    for (const char* statement :
         {"DELETE FROM Client_Services WHERE Client_ID = %1",
          "DELETE FROM Diary WHERE Client_ID = %1", "DELETE FROM Payments WHERE Client_ID = %1",
          "INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
          "Frequency, Next_Visit) VALUES (%1, 1, 1, 'Regular', 55, 7, #2026/11/2#)"})
      Done({"sql", "d.mdb", QString(statement).arg(client)});
    Done({"balances", "d.mdb", "--client", client});
    Done({"roll", "d.mdb", "--client", client});
    job = Word("SELECT Diary_ID FROM Diary WHERE Schedule_Date = #2026/11/2# AND Client_ID = " +
               client);
  }
  QString Word(const QString& statement) {
    return Field("d.mdb", statement).toVariant().toString();
  }
  /// The job's status, invoice and payment, and the client's balance: negative when it owes.
  QString State() {
    return Word(
        "SELECT Diary.Status & ' ' & Invoice_ID & ' ' & Payment_ID & ' ' & "
        "Account_Balance FROM Diary INNER JOIN Clients ON Diary.Client_ID = "
        "Clients.Client_ID WHERE Diary_ID = " +
        job);
  }
  QString KeyOfMade(const char* column, const QStringList& command) {
    return QString::number(Json(command)[0][QLatin1StringView(column)].toInteger());
  }
  QString Bill() { return KeyOfMade("Invoice_ID", {"invoice", "d.mdb", "--job", job}); }

  QString client;
  QString job;
};

TEST_F(JobRoadTest, ThereAndBack) {
  AServiceMakesTheJob();
  EXPECT_EQ(State(), "J   0");
  Done({"done", "d.mdb", job});
  EXPECT_EQ(State(), "JD   -55");

  const QString first = Bill();
  EXPECT_EQ(State(), QStringLiteral("JI %1  -55").arg(first)) << "a bill moves no balance";
  EXPECT_EQ(Word("SELECT Total_Amount & ' ' & Total_GST FROM Invoices WHERE Invoice_ID = " + first),
            "55 5");
  const QString payment =
      KeyOfMade("Payment_ID", {"pay", "d.mdb", "--client", client, "--amount=55", "--job", job});
  EXPECT_EQ(State(), QStringLiteral("JD %1 %2 0").arg(first, payment));

  Done({"payment-delete", "d.mdb", payment});
  EXPECT_EQ(State(), QStringLiteral("JD %1  -55").arg(first));
  Done({"invoice-delete", "d.mdb", first});
  EXPECT_EQ(State(), "JD   -55");
  Done({"invoice-delete", "d.mdb", Bill()});
  EXPECT_EQ(State(), "JI   -55") << "deleted from the list, it goes on counting as invoiced";
  Done({"invoice-delete", "d.mdb", Bill(), "--from-client"});
  EXPECT_EQ(State(), "JD   -55");
}

}  // namespace
}  // namespace quillary::cli
