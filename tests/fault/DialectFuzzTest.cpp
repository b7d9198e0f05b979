#include "FaultFiles.h"
#include "StatementMaker.h"
#include "data/store/Connection.h"
#include "setup/demo/DemoBusiness.h"

#include <QDir>

#include <time.h>

#include <fstream>

namespace quillary {
namespace {

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// A business file that runs one statement after the other and keeps nothing of them.
class FuzzedFile {
 public:
  explicit FuzzedFile(const QString& path)
      : connection_(path, [] { return DateTime(QDate(2026, 11, 2), QTime(14, 7, 9)); }) {
    connection_.Open(OpenMode::Existing);
    // A join of everything with everything is no fault of the dialect; it is broken off.
    sqlite3_progress_handler(
        connection_.Handle(), 10'000,
        [](void* self) {
          return ProcessorSeconds() > static_cast<FuzzedFile*>(self)->end_ ? 1 : 0;
        },
        this);
  }

  struct Outcome {
    QString text;  // rows, or why there are none
    int changes = 0;
    bool brokenOff = false;
    bool done = false;
  };

  Outcome Run(const std::string& statement) {
    constexpr double kMost = 0.3;
    Outcome outcome;
    connection_.Begin();
    const int before = sqlite3_total_changes(connection_.Handle());
    end_ = ProcessorSeconds() + kMost;
    try {
      outcome.text = Shown(connection_.Run(statement));
      outcome.done = true;
    } catch (const StatementRefused& refused) {
      outcome.text = QString::fromUtf8(refused.what());
    }
    outcome.brokenOff = ProcessorSeconds() > end_ || outcome.text == u"interrupted";
    outcome.changes = sqlite3_total_changes(connection_.Handle()) - before;
    end_ = ProcessorSeconds() + 1e9;
    connection_.Rollback();
    return outcome;
  }

  /// Undoing a change of the schema empties the cache.
  void ForgetStatements() {
    connection_.Begin();
    connection_.Run("CREATE TABLE Forgets (A LONG)");
    connection_.Rollback();
  }

 private:
  static QString Shown(const Recordset& rows) {
    QString text;
    for (const jet::ResultColumn& column : rows.Columns()) text += column.name + u',';
    for (const Record row : rows) {
      for (size_t i = 0; i < row.Size(); ++i) text += u'|' + row[i].ToText("null");
      text += u'\n';
    }
    return text;
  }

  Connection connection_;
  double end_ = 1e300;
};

/// Statements that nobody wrote. QUILLARY_FUZZ_SECONDS lets it run longer than the suite does.
class DialectFuzzTest : public FaultTest {
 protected:
  static std::vector<std::string> RealStatements() {
    std::ifstream stream(QUILLARY_TEST_DATA "/jet/statements.sql");
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }
};

TEST_F(DialectFuzzTest, ColdAndWarmAgreeAndNothingBreaks) {
  setup::WriteDemoBusiness(business(), {.clients = 12, .months = 1, .seed = 8});
  business().CloseConnection();
  const QString folderBefore = QDir::currentPath();
  QDir::setCurrent(folder.path());  // statements that name other files find none of value
  const QString copy = Write("COLD.MDB", Bytes(business().DatabaseFile()));
  FuzzedFile warm(business().DatabaseFile());
  FuzzedFile cold(copy);
  const int seconds = std::max(4, qEnvironmentVariableIntValue("QUILLARY_FUZZ_SECONDS"));
  constexpr double kLongest = 1.0;
  const double end = ProcessorSeconds() + seconds;
  StatementMaker maker(RealStatements(), 20261102);
  int statements = 0;
  int done = 0;
  int brokenOff = 0;
  while (ProcessorSeconds() < end && !HasFailure()) {
    const std::string statement = maker.Next();
    SCOPED_TRACE(statement.substr(0, 2000));
    ++statements;
    const double start = ProcessorSeconds();
    const auto first = warm.Run(statement);
    const auto second = warm.Run(statement);
    EXPECT_LT(ProcessorSeconds() - start, 2 * kLongest);
    const auto afresh = cold.Run(statement);
    if (afresh.done) cold.ForgetStatements();  // what is refused is not kept
    done += first.done ? 1 : 0;
    if (first.brokenOff || second.brokenOff || afresh.brokenOff) {
      ++brokenOff;
    } else {
      EXPECT_EQ(first.text, second.text);
      EXPECT_EQ(first.text, afresh.text);
      EXPECT_EQ(first.changes, second.changes);
      EXPECT_EQ(first.done, afresh.done);
    }
  }
  QDir::setCurrent(folderBefore);
  EXPECT_GT(done, statements / 20) << "too few of them mean anything";
  RecordProperty("statements", statements);
  RecordProperty("done", done);
  RecordProperty("broken_off", brokenOff);
}

}  // namespace
}  // namespace quillary
