// The import of the older product at 100,000 jobs, beside a raw loop that lets the same reader read
// the same file and puts each job straight into the two tables by prepared statements. It keeps no
// copy, checks nothing and computes nothing. They take turns; medians of the rounds. What the
// memory of the process grew by from a fifth of the jobs to all of them is printed beside.

#include "BenchPorts.h"
#include "RawFile.h"
#include "Timing.h"
#include "data/access/AccessFile.h"
#include "data/schema/Schema.h"
#include "older/ImportOlder.h"

#include <QCoreApplication>
#include <QFile>
#include <QMap>

#include <sys/resource.h>

#include <cstdio>

namespace quillary::bench {
namespace {

constexpr int kJobs = 100'000;
constexpr int kRounds = 3;
constexpr double kMost = 3;
constexpr double kMostMiB = 16;

const QDate kToday(2026, 11, 2);

// Where things lie in a Jet 4 file.
constexpr qsizetype kPage = 4096;
constexpr qsizetype kOwner = 4;
constexpr qsizetype kRowsOfTable = 16;
constexpr qsizetype kUsageMap = 55;
constexpr qsizetype kRowOffsets = 14;
constexpr quint32 kOffsetMask = 0x1fff;

quint32 Number(const QByteArray& file, qsizetype at, int bytes = 4) {
  quint32 number = 0;
  for (int byte = bytes; byte-- > 0;)
    number = number << 8 | static_cast<quint8>(file.at(at + byte));
  return number;
}
void PutNumber(QByteArray& file, qsizetype at, quint32 number) {
  for (int byte = 0; byte < 4; ++byte, number >>= 8) file[at + byte] = static_cast<char>(number);
}

/// The sample with the pages of its jobs repeated until there are so many.
void Grow(const QString& sample, const QString& path, int jobs) {
  QFile original(sample);
  if (!original.open(QIODevice::ReadOnly)) std::exit(1);
  QByteArray file = original.readAll();
  QMap<quint32, QList<qsizetype>> pages;  // of each table
  for (qsizetype at = 0; at < file.size(); at += kPage)
    if (file.at(at) == 1) pages[Number(file, at + kOwner)] += at;
  quint32 table = 0;
  const auto rowsOf = [&](quint32 owner) { return Number(file, owner * kPage + kRowsOfTable); };
  for (const quint32 owner : pages.keys())
    if (static_cast<qsizetype>(owner) * kPage < file.size() && file.at(owner * kPage) == 2 &&
        (table == 0 || rowsOf(owner) > rowsOf(table)))
      table = owner;  // the jobs are the largest
  const quint32 rows = rowsOf(table);
  QByteArray more;
  for (const qsizetype at : pages[table]) more += file.mid(at, kPage);
  const quint32 times = (static_cast<quint32>(jobs) + rows - 1) / rows;
  // A map of a kind that nobody knows makes the reader look at every page.
  const quint32 map = Number(file, table * kPage + kUsageMap);
  const qsizetype mapPage = static_cast<qsizetype>(map >> 8) * kPage;
  const qsizetype row = Number(file, mapPage + kRowOffsets + 2 * (map & 0xff), 2) & kOffsetMask;
  file[mapPage + row] = 2;
  PutNumber(file, table * kPage + kRowsOfTable, rows * times);
  for (quint32 time = 1; time < times; ++time) file += more;
  QFile grown(path);
  if (!grown.open(QIODevice::WriteOnly) || grown.write(file) != file.size()) std::exit(1);
}

/// Puts jobs into the business as they come.
class RawLoop : public AccessVisitor {
 public:
  explicit RawLoop(const QString& path)
      : file_(OpenRaw(path)),
        entry_(Prepare(file_.get(),
                       "INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, "
                       "Description, Notes, Total_Price, Total_GST) "
                       "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)")),
        line_(Prepare(file_.get(),
                      "INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) "
                      "VALUES (?1, 1, ?2, ?3)")) {
    Check(sqlite3_exec(file_.get(), "BEGIN", nullptr, nullptr, nullptr));
  }
  void Commit() { Check(sqlite3_exec(file_.get(), "COMMIT", nullptr, nullptr, nullptr)); }

  void OnTables(const std::vector<AccessTable>&) override {}
  void OnRow(const AccessTable& table, const std::vector<Value>& cells) override {
    if (table.schema.name != u"tblJobs") return;
    const auto cell = [&](const char* name) -> const Value& {
      for (size_t at = 0; at < cells.size(); ++at)
        if (table.schema.columns[at].name == QLatin1StringView(name)) return cells[at];
      std::exit(1);
    };
    const double price = cell("Charged_Amount").ToMoney().ToDouble();
    const double tax = cell("GST_Charged_Amount").ToMoney().ToDouble();
    sqlite3_stmt* entry = entry_.get();
    sqlite3_bind_int64(entry, 1, cell("ClientID").ToLong());
    sqlite3_bind_int64(entry, 2, cell("TrailerID").ToLong());
    BindText(entry, 3, QStringLiteral("JD"));
    BindText(entry, 4, ToIsoText(cell("Job_Date").ToDate()));
    BindText(entry, 5, cell("Job_Type_Code").ToText());
    BindText(entry, 6, cell("Job_Notes").ToText());
    sqlite3_bind_double(entry, 7, price);
    sqlite3_bind_double(entry, 8, tax);
    Check(sqlite3_step(entry), SQLITE_DONE);
    sqlite3_reset(entry);
    ++jobs;
    for (const char* amount : {"Charged_Amount", "Charged_Amount1", "Charged_Amount2"}) {
      if (cell(amount).IsNull()) continue;
      sqlite3_bind_int64(line_.get(), 1, jobs);
      sqlite3_bind_double(line_.get(), 2, cell(amount).ToMoney().ToDouble());
      sqlite3_bind_double(line_.get(), 3, tax);
      Check(sqlite3_step(line_.get()), SQLITE_DONE);
      sqlite3_reset(line_.get());
    }
  }
  void OnBadRow(const AccessTable&, const QString&) override {}
  void OnTableEnd(const AccessTable&) override {}

  qint64 jobs = 0;

 private:
  static void BindText(sqlite3_stmt* statement, int place, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(statement, place, bytes.constData(), static_cast<int>(bytes.size()),
                      SQLITE_TRANSIENT);
  }
  Handle file_;
  Prepared entry_;
  Prepared line_;
};

double PeakMiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

int Run() {
  const QTemporaryDir folder;
  const QString empty = folder.filePath(QStringLiteral("EMPTY.MDB"));
  const QString less = folder.filePath(QStringLiteral("less.mdb"));
  const QString older = folder.filePath(QStringLiteral("older.mdb"));
  CreateEmptyBusiness(empty);
  const QString sample = QStringLiteral(QUILLARY_TEST_DATA "/older-product.mdb");
  Grow(sample, less, kJobs / 2);
  Grow(sample, older, kJobs);
  BenchPorts ports(kToday);
  qint64 jobs = 0;
  const auto import = [&](const QString& from) {
    const QString path = FreshCopy(folder, empty);
    return Seconds([&] {
      Business business(ports.Ports(), path);
      older::ImportOlder(business, from, folder.filePath(QStringLiteral("Archive")));
      jobs = business.FirstField(Sql("SELECT Count(*) FROM Diary")).ToLong();
      business.CloseConnection();
    });
  };
  import(less);
  const double before = PeakMiB();
  std::vector<double> imports;
  std::vector<double> loops;
  for (int round = 0; round < kRounds; ++round) {
    imports.push_back(import(older));
    const QString path = FreshCopy(folder, empty);
    loops.push_back(Seconds([&] {
      RawLoop loop(path);
      ReadAccessFile(older, loop);
      loop.Commit();
    }));
  }
  const double grown = PeakMiB() - before;
  const double ratio = Median(imports) / Median(loops);
  std::printf("Import of the older product, %lld jobs, medians of %d rounds\n",
              static_cast<long long>(jobs), kRounds);
  std::printf("  raw loop %.2f s, import %.2f s: %.2f, at most %.0f: %s\n", Median(loops),
              Median(imports), ratio, kMost, ratio <= kMost ? "yes" : "NO");
  std::printf("  %.1f MiB more than at half of the jobs, at most %.0f: %s\n", grown, kMostMiB,
              grown <= kMostMiB ? "yes" : "NO");
  return ratio <= kMost && grown <= kMostMiB && jobs > kJobs * 9 / 10 ? 0 : 1;
}

}  // namespace
}  // namespace quillary::bench

int main(int count, char** words) {
  const QCoreApplication application(count, words);
  return quillary::bench::Run();
}
