#include "cli/CompanionFixture.h"

namespace quillary {
namespace {

TEST_F(CompanionTest, AListOfClientsIsPreviewedFirstAndToldRowByRow) {
  const QString file = Path("business.mdb");
  const QString list = Path("list.csv");
  Done({"demo", file, "--clients", "5"});
  QFile csv(list);
  ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
  csv.write("Customer;Town;Extra\n\"Zimmer; Zelda\";Rye;barks\n;Rye;\n");
  csv.close();
  const auto count = [&] { return Field(file, "SELECT COUNT(*) AS N FROM Clients").toInt(); };
  const int before = count();
  const QStringList command = {"import-clients", file, list, "--map", "Extra=Notes"};
  const QJsonObject preview = Json(command).object();
  EXPECT_FALSE(preview["written"].toBool());
  EXPECT_EQ(preview["clients"].toInt(), 1);
  EXPECT_EQ(preview["passed_over"].toArray()[0].toObject()["row"].toInt(), 3) << "as in the file";
  EXPECT_EQ(count(), before);
  Done(command + QStringList{"--yes"});
  EXPECT_EQ(count(), before + 1);
  EXPECT_EQ(Field(file, "SELECT Notes FROM Clients WHERE Display_Name = 'Zimmer; Zelda'"), "barks");
  EXPECT_EQ(Run({"import-clients", file, list, "--map", "Hat=Notes"}).exitCode, 1);
  EXPECT_EQ(Run({"import-clients", file, list, "--map", "Extra"}).exitCode, 2);
  EXPECT_EQ(Run({"import-clients", file, Path("none.csv")}).exitCode, 1);
}

}  // namespace
}  // namespace quillary
