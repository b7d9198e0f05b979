#include "ConvertFixture.h"

#include <QElapsedTimer>

#include <map>

namespace quillary {
namespace {

struct StatusFigure {
  const char* status;
  qint64 count;
  const char* total;  // of Diary.Total_Price; clients have none
};

/// What an independent export tool read from the sample.
struct Figures {
  int version;
  std::map<QString, qint64> rows;  // tables that are not listed are empty
  std::vector<StatusFigure> diary;
  std::vector<StatusFigure> clients;
  const char* payments;
  const char* purchases;
};

const std::vector<Figures>& AllFigures() {
  static const std::vector<Figures> figures = {
      {12,
       {{"Clients", 60},
        {"Client_Services", 86},
        {"Diary", 1119},
        {"Diary_Services", 1119},
        {"Invoices", 376},
        {"Invoice_Items", 376},
        {"Payments", 831},
        {"Bank_Accounts", 1},
        {"Purchases", 31},
        {"Suppliers", 5},
        {"General_Ledger_Accounts", 7},
        {"General_Ledger_Entries", 235},
        {"Services", 5},
        {"Employees", 2},
        {"lstBanks", 4},
        {"lstFrequencies", 6},
        {"lstPayment_Methods", 6},
        {"infOptions", 1},
        {"infPersonalDetails", 1},
        {"infSystem", 1}},
       {{"JC", 47, "3644.35"},
        {"JD", 408, "32404.75"},
        {"JI", 376, "30230.3"},
        {"JP", 156, "12829.2"},
        {"JU", 132, "11284.75"}},
       {{"Active", 49, ""},
        {"Bad debtor", 1, ""},
        {"Billing address", 3, ""},
        {"Cancelled", 3, ""},
        {"Quote only", 2, ""},
        {"Transferred", 2, ""}},
       "67460.05",
       "4981"},
      {44,
       {{"Clients", 120},
        {"Client_Services", 173},
        {"Diary", 3405},
        {"Diary_Services", 3405},
        {"Invoices", 1109},
        {"Payments", 2594},
        {"Bank_Accounts", 1},
        {"Purchases", 46},
        {"Suppliers", 5},
        {"General_Ledger_Accounts", 7},
        {"General_Ledger_Entries", 710},
        {"Services", 5},
        {"Employees", 2},
        {"Holiday", 2},
        {"Suburb_Position", 10},
        {"Divisions", 1},
        {"Countries", 5},
        {"lstBanks", 4},
        {"lstFrequencies", 6},
        {"lstPayment_Methods", 6},
        {"infOptions", 1},
        {"infPersonalDetails", 1},
        {"infSystem", 1}},
       {{"JC", 130, "10468.75"},
        {"JD", 1325, "107252.45"},
        {"JI", 1109, "88918.8"},
        {"JP", 411, "33128.8"},
        {"JU", 430, "34695.35"}},
       {{"Active", 99, ""},
        {"Bad debtor", 3, ""},
        {"Billing address", 6, ""},
        {"Cancelled", 5, ""},
        {"Quote only", 4, ""},
        {"Transferred", 3, ""}},
       "209586.5",
       "7413"},
      {57,
       {{"Clients", 200},
        {"Client_Services", 270},
        {"Diary", 7289},
        {"Diary_Services", 7289},
        {"Invoices", 2284},
        {"Payments", 5567},
        {"Bank_Accounts", 1},
        {"Purchases", 61},
        {"Suppliers", 5},
        {"General_Ledger_Accounts", 7},
        {"General_Ledger_Entries", 1389},
        {"Services", 5},
        {"Employees", 2},
        {"Holiday", 2},
        {"Suburb_Position", 10},
        {"Divisions", 1},
        {"Countries", 5},
        {"lstBanks", 4},
        {"lstFrequencies", 6},
        {"lstPayment_Methods", 6},
        {"infOptions", 1},
        {"infPersonalDetails", 1},
        {"infSystem", 1}},
       {{"JC", 293, "21845.7"},
        {"JD", 2826, "217668.6"},
        {"JI", 2284, "172951.4"},
        {"JP", 951, "73660.95"},
        {"JU", 935, "70845.35"}},
       {{"Active", 163, ""},
        {"Bad debtor", 6, ""},
        {"Billing address", 9, ""},
        {"Cancelled", 9, ""},
        {"Quote only", 7, ""},
        {"Transferred", 6, ""}},
       "425879",
       "9914"},
  };
  return figures;
}

void PrintTo(const Figures& figures, std::ostream* out) {
  *out << "version " << figures.version;
}

class FiguresTest : public ConvertTest, public ::testing::WithParamInterface<Figures> {
 protected:
  void CheckStatuses(Connection& file, const char* statement,
                     const std::vector<StatusFigure>& expected) {
    const Recordset rows = file.Run(statement);
    ASSERT_EQ(rows.RowCount(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
      const Record row = rows.Row(i);
      EXPECT_EQ(row[size_t{0}].ToText(), expected[i].status);
      EXPECT_EQ(row[size_t{1}].ToLong(), expected[i].count) << expected[i].status;
      if (row.Size() > 2) {
        EXPECT_EQ(row[size_t{2}].ToText(), expected[i].total) << expected[i].status;
      }
    }
  }
};

TEST_P(FiguresTest, EveryRowAndEveryAmountArrives) {
  const Figures& figures = GetParam();
  const QByteArray original = Bytes(Sample(figures.version));
  QElapsedTimer timer;
  timer.start();
  const ConversionReceipt receipt = ConvertAccessFile(Sample(figures.version), Path("DATA.MDB"));
  EXPECT_LT(timer.elapsed(), 20'000);

  EXPECT_EQ(receipt.version, figures.version);
  EXPECT_TRUE(receipt.IsClean()) << receipt.Findings().join("\n").toStdString();
  const auto file = Open(Path("DATA.MDB"));
  for (const TableReceipt& table : receipt.tables) {
    const auto expected = figures.rows.find(table.table);
    const qint64 rows = expected == figures.rows.end() ? 0 : expected->second;
    EXPECT_EQ(table.written, rows) << table.table.toStdString();
    EXPECT_EQ(First(*file, ("SELECT Count(*) FROM " + table.table.toStdString()).c_str()).ToLong(),
              rows);
  }
  CheckStatuses(*file,
                "SELECT Status, Count(*), Sum(Total_Price) FROM Diary GROUP BY Status "
                "ORDER BY Status",
                figures.diary);
  CheckStatuses(*file, "SELECT Status, Count(*) FROM Clients GROUP BY Status ORDER BY Status",
                figures.clients);
  EXPECT_EQ(First(*file, "SELECT Sum(Amount) FROM Payments").ToText(), figures.payments);
  EXPECT_EQ(First(*file, "SELECT Sum(Amount) FROM Purchases").ToText(), figures.purchases);
  EXPECT_EQ(Bytes(Sample(figures.version)), original);
  file->Close();
  EXPECT_EQ(Made({}), QStringList{"DATA.MDB"}) << "one single file";
}

TEST_P(FiguresTest, CountersGoOnWhereTheyStood) {
  ConvertAccessFile(Sample(GetParam().version), Path("DATA.MDB"));
  const auto file = Open(Path("DATA.MDB"));
  const qint64 highest = First(*file, "SELECT Max(Diary_ID) FROM Diary").ToLong();
  file->Run("DELETE FROM Diary WHERE Diary_ID = " + std::to_string(highest));
  file->Run("INSERT INTO Diary (Status) VALUES ('J')");
  EXPECT_EQ(First(*file, "SELECT Max(Diary_ID) FROM Diary").ToLong(), highest + 1);
}

INSTANTIATE_TEST_SUITE_P(Samples, FiguresTest, ::testing::ValuesIn(AllFigures()),
                         [](const auto& entry) {
                           return "v" + std::to_string(entry.param.version);
                         });

TEST_F(ConvertTest, AnOldFileKeepsItsOwnColumns) {
  ConvertAccessFile(Sample(12), Path("DATA.MDB"));
  const auto file = Open(Path("DATA.MDB"));
  const jet::Table* clients = file->Schema().FindTable(u"Clients");
  ASSERT_NE(clients, nullptr);
  EXPECT_NE(clients->Find(u"Billing_Name"), nullptr);
  EXPECT_EQ(clients->Find(u"Display_Name"), nullptr);
}

TEST_F(ConvertTest, ColumnsKeepTheirTypesAndValuesTheirWorth) {
  ConvertAccessFile(Sample(57), Path("DATA.MDB"));
  const auto file = Open(Path("DATA.MDB"));
  const struct {
    const char16_t* table;
    const char16_t* column;
    jet::ColumnType type;
    int width;
  } columns[] = {
      {u"Clients", u"Client_ID", jet::ColumnType::Counter, 0},
      {u"Clients", u"Display_Name", jet::ColumnType::Text, 100},
      {u"Clients", u"Is_Billed_To", jet::ColumnType::YesNo, 0},
      {u"Clients", u"Notes", jet::ColumnType::Memo, 0},
      {u"Clients", u"Account_Balance", jet::ColumnType::Currency, 0},
      {u"Diary", u"Schedule_Date", jet::ColumnType::Date, 0},
      {u"Diary", u"Employee_ID", jet::ColumnType::Long, 0},
      {u"infOptions", u"GST_Percentage", jet::ColumnType::Single, 0},
  };
  for (const auto& expected : columns) {
    const jet::Column* column = file->Schema().FindTable(expected.table)->Find(expected.column);
    ASSERT_NE(column, nullptr);
    EXPECT_EQ(column->type, expected.type) << QString::fromUtf16(expected.column).toStdString();
    EXPECT_EQ(column->width, expected.width) << QString::fromUtf16(expected.column).toStdString();
  }
  EXPECT_EQ(First(*file, "SELECT GST_Percentage FROM infOptions").ToDouble(), 0.1)
      << "a single widened bit by bit is no tenth";
  EXPECT_GT(First(*file, "SELECT Count(*) FROM Clients WHERE Surname = 'O''Brien'").ToLong(), 0);
  EXPECT_GT(First(*file, "SELECT Count(*) FROM Clients WHERE First_Name = 'Siobhán'").ToLong(), 0)
      << "letters beyond ASCII";
}

}  // namespace
}  // namespace quillary
