#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "data/store/Integrity.h"
#include "maintenance/CheckBusiness.h"
#include "maintenance/Salvage.h"
#include "setup/demo/DemoBusiness.h"
#include "support/BusinessTest.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <map>

namespace quillary::maintenance {
namespace {

constexpr int kPage = 4096;

using RowCounts = std::map<QString, qint64>;

class SalvageTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    setup::WriteDemoBusiness(business(), {.clients = 60, .months = 6, .seed = 3});
    business().CloseConnection();
    whole_ = Bytes(business().DatabaseFile());
    counts_ = Counts(business().DatabaseFile());
  }

  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }
  QString Write(const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  }
  RowCounts Counts(const QString& path) {
    Business file(outside.Ports(), path);
    RowCounts counts;
    for (const QString& table : BusinessTables()) {
      counts[table] = file.RunSQL("SELECT Count(*) FROM " + table).Field(size_t{0}).ToLong();
    }
    file.CloseConnection();
    return counts;
  }
  /// A page of the table's tree; 0 is its root.
  int PageOf(const char* table, int number) {
    business().ConnectToDatabase();
    sqlite3_stmt* query = nullptr;
    const QByteArray text =
        QStringLiteral(
            "SELECT pageno FROM dbstat WHERE name = '%1' ORDER BY path LIMIT 1 OFFSET %2")
            .arg(QString(table))
            .arg(number)
            .toUtf8();
    sqlite3_prepare_v2(business().StoreConnection().Handle(), text.constData(), -1, &query,
                       nullptr);
    sqlite3_step(query);
    const int page = sqlite3_column_int(query, 0);
    sqlite3_finalize(query);
    business().CloseConnection();
    return page;
  }
  static QByteArray WithoutPage(QByteArray bytes, int page) {
    return bytes.replace((page - 1) * kPage, kPage, QByteArray(kPage, '\0'));
  }
  qint64 Lost(const SalvageReceipt& receipt, const char* table) {
    for (const SalvagedTable& entry : receipt.tables) {
      if (entry.table == QString(table)) return entry.lost;
    }
    return -1;
  }

  QByteArray whole_;
  RowCounts counts_;
};

TEST_F(SalvageTest, AWholeFileComesOutRowForRow) {
  const QString target = folder.filePath("NEW.MDB");
  const SalvageReceipt receipt = SalvageFile(business().DatabaseFile(), target);
  EXPECT_TRUE(receipt.LostNothing()) << SalvageLines(receipt).join('\n').toStdString();
  EXPECT_EQ(Counts(target), counts_);
  EXPECT_TRUE(CheckBusiness(outside.Ports(), target).empty());
}

TEST_F(SalvageTest, CountersGoOnWhereTheyStood) {
  business().ConnectToDatabase();
  Run(Sql("INSERT INTO Invoices (Client_ID) VALUES (1)"));
  const qint64 last = business().FirstField(Sql("SELECT Max(Invoice_ID) FROM Invoices")).ToLong();
  Run(Sql("DELETE FROM Invoices WHERE Invoice_ID = {}", last));
  business().CloseConnection();
  const QString target = folder.filePath("NEW.MDB");
  SalvageFile(business().DatabaseFile(), target);
  Business saved(outside.Ports(), target);
  saved.RunSQL(Sql("INSERT INTO Invoices (Client_ID) VALUES (1)"));
  EXPECT_EQ(saved.FirstField(Sql("SELECT Max(Invoice_ID) FROM Invoices")), Value(last + 1));
}

TEST_F(SalvageTest, OneBadPageCostsItsOwnRowsOnly) {
  for (const int number : {1, 3, 5, 6}) {
    SCOPED_TRACE(number);
    const QByteArray bytes = WithoutPage(whole_, PageOf("Diary", number));
    const QString damaged = Write("BAD.MDB", bytes);
    const QString target = folder.filePath(QStringLiteral("NEW%1.MDB").arg(number));
    const SalvageReceipt receipt = SalvageFile(damaged, target);
    EXPECT_EQ(Bytes(damaged), bytes);
    EXPECT_FALSE(receipt.damage.isEmpty());
    RowCounts saved = Counts(target);
    const qint64 lost = Lost(receipt, "Diary");
    EXPECT_GT(lost, 0);
    EXPECT_LT(lost, 150) << "a page holds no more";
    EXPECT_EQ(saved["Diary"] + lost, counts_["Diary"]);
    saved["Diary"] = counts_["Diary"];
    EXPECT_EQ(saved, counts_) << "no other table lost a row";
    EXPECT_EQ(FindDamage(target), QStringList());
  }
}

TEST_F(SalvageTest, ALostHeadIsMadeAnew) {
  QByteArray bytes = whole_;
  bytes.replace(0, 100, QByteArray(100, '\0'));
  const QString target = folder.filePath("NEW.MDB");
  SalvageFile(Write("BAD.MDB", bytes), target);
  EXPECT_EQ(Counts(target), counts_);
}

TEST_F(SalvageTest, AOneRowTableThatIsLostStartsAnew) {
  const QByteArray bytes = WithoutPage(whole_, PageOf("infOptions", 0));
  const QString target = folder.filePath("NEW.MDB");
  const SalvageReceipt receipt = SalvageFile(Write("BAD.MDB", bytes), target);
  EXPECT_FALSE(receipt.LostNothing());
  EXPECT_EQ(Counts(target), counts_);
}

TEST_F(SalvageTest, WhatIsNoBusinessIsPastSaving) {
  const QByteArray cases[] = {"", "Dear Sir or Madam", QByteArray(40 * kPage, '\0'),
                              QByteArray(40 * kPage, '\xff')};
  for (const QByteArray& bytes : cases) {
    const QString damaged = Write("BAD.MDB", bytes);
    try {
      SalvageFile(damaged, folder.filePath("NEW.MDB"));
      ADD_FAILURE();
    } catch (const StorageFailure& failure) {
      EXPECT_TRUE(QString(failure.what()).contains("folder Archive")) << failure.what();
    }
    EXPECT_EQ(Bytes(damaged), bytes);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList({"BAD.MDB", "DATA.MDB"}));
  }
}

TEST_F(SalvageTest, RepairInPlaceKeepsTheDamagedFileInArchive) {
  const QByteArray bytes = WithoutPage(whole_, PageOf("Diary", 2));
  const QString damaged = Write("BAD.MDB", bytes);
  const RepairInPlaceResult result =
      RepairInPlace(damaged, folder.filePath("Archive"), "2026-11-02 09-00-00");
  EXPECT_EQ(result.keptAt, folder.filePath("Archive/BAD damaged 2026-11-02 09-00-00.MDB"));
  EXPECT_EQ(Bytes(result.keptAt), bytes);
  EXPECT_EQ(FindDamage(damaged), QStringList());
  EXPECT_EQ(Counts(damaged)["Clients"], counts_["Clients"]);
}

/// Files spoilt in many ways. QUILLARY_FAULT_POINTS asks for more than the suite tries.
TEST_F(SalvageTest, SpoiltFilesAreSavedOrRefusedAndNeverTouched) {
  const int rounds = std::max(25, qEnvironmentVariableIntValue("QUILLARY_FAULT_POINTS"));
  int saved = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    QRandomGenerator random(static_cast<quint32>(round));
    QByteArray bytes = whole_;
    const int size = static_cast<int>(bytes.size());
    switch (round % 4) {
      case 0:
        for (int i = random.bounded(1, 60); i > 0; --i) {
          const int at = random.bounded(size);
          bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.bounded(8)));
        }
        break;
      case 1:
        for (int i = random.bounded(1, 6); i > 0; --i) {
          bytes = WithoutPage(bytes, 1 + random.bounded(1, size / kPage));
        }
        break;
      case 2:
        bytes.truncate(random.bounded(1, size));
        break;
      default:
        for (int at = random.bounded(size), end = at + random.bounded(1, 9000); at < end; ++at) {
          bytes[at % size] = static_cast<char>(random.bounded(256));
        }
    }
    const QString damaged = Write("BAD.MDB", bytes);
    const QString target = folder.filePath("NEW.MDB");
    try {
      SalvageFile(damaged, target);
      ++saved;
      EXPECT_EQ(FindDamage(target), QStringList());
      QFile::remove(target);
    } catch (const StorageFailure& failure) {
      EXPECT_TRUE(QString(failure.what()).contains("BAD.MDB")) << failure.what();
    }
    EXPECT_EQ(Bytes(damaged), bytes);
    EXPECT_FALSE(QFile::exists(target));
  }
  EXPECT_GT(saved, rounds / 2);
  RecordProperty("files", rounds);
  RecordProperty("saved", saved);
}

}  // namespace
}  // namespace quillary::maintenance
