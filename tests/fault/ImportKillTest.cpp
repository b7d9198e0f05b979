#include "FaultFiles.h"
#include "data/store/Integrity.h"

#include <QProcess>

namespace quillary {
namespace {

/// The import of the older product, killed at points spread over all it writes. QUILLARY_KILLS asks
/// for more of them than the suite tries.
class ImportKillTest : public FaultTest {
 protected:
  /// The rows, without the mark that the backup leaves in the one-row table.
  QStringList Look() {
    Business file(outside.Ports(), business().DatabaseFile());
    QStringList rows;
    for (const QString& row : Dump(file))
      if (!row.startsWith(u"infSystem")) rows += row;
    return rows;
  }
  /// The number of operations when the worker lived; nothing when it was killed.
  std::optional<int> Work(int operation) {
    QProcess process;
    process.start(QStringLiteral(QUILLARY_BIN "/fault_worker"),
                  {"import", business().DatabaseFile(), QString::number(operation),
                   QStringLiteral(QUILLARY_TEST_DATA "/older-product.mdb")});
    EXPECT_TRUE(process.waitForFinished(60'000));
    if (process.exitStatus() == QProcess::CrashExit) return std::nullopt;
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().trimmed().toInt();
  }
};

TEST_F(ImportKillTest, LeavesTheBusinessBeforeOrAfter) {
  Run(Sql("INSERT INTO Clients (Display_Name) VALUES ('Was here before')"));
  business().CloseConnection();
  const QByteArray start = Bytes(business().DatabaseFile());
  const auto begin = [&] {
    Remove(business().DatabaseFile());
    Write("DATA.MDB", start);
  };
  const QStringList before = Look();
  begin();
  const int operations = Work(0).value_or(0);
  ASSERT_GT(operations, 50);
  const QStringList after = Look();
  ASSERT_NE(before, after);
  const int kills = std::max(24, qEnvironmentVariableIntValue("QUILLARY_KILLS"));
  int undone = 0;
  for (int kill = 0; kill < kills; ++kill) {
    const int operation = 1 + kill * (operations - 1) / (kills - 1);
    SCOPED_TRACE("killed at operation " + std::to_string(operation));
    begin();
    ASSERT_FALSE(Work(operation)) << "it lived";
    ASSERT_EQ(FindDamage(business().DatabaseFile()), QStringList());
    const QStringList left = Look();
    ASSERT_TRUE(left == before || left == after) << "pieces of an import";
    undone += left == before;
  }
  EXPECT_GT(undone, 0);
  EXPECT_LT(undone, kills) << "the last operations come after the commit";
}

}  // namespace
}  // namespace quillary
