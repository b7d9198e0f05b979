#include "data/access/wire/AccessValues.h"
#include "data/access/wire/Frames.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillary {
namespace {

TEST(AccessDates, ToTheSecondAndWithinTheCalendar) {
  const double infinite = std::numeric_limits<double>::infinity();
  const struct {
    const char* fault;
    double days;
    const char* moment;  // "" for none
  } cases[] = {
      {"the first day", 0, "1899-12-30 00:00:00"},
      {"a plain day", 46328, "2026-11-02 00:00:00"},
      {"noon", 46328.5, "2026-11-02 12:00:00"},
      {"a second that no fraction hits", 46328 + 50829.0 / 86400, "2026-11-02 14:07:09"},
      {"the last second", 46328 + 86399.0 / 86400, "2026-11-02 23:59:59"},
      {"just before midnight is the next day", 46328.9999999, "2026-11-03 00:00:00"},
      {"before the first day the time still runs forward", -1.25, "1899-12-29 06:00:00"},
      {"negative with no whole day", -0.5, "1899-12-30 12:00:00"},
      {"the earliest", -657434, "0100-01-01 00:00:00"},
      {"the latest", 2958465, "9999-12-31 00:00:00"},
      {"too early", -657435, ""},
      {"too late", 2958466, ""},
      {"rounds over the end of the calendar", 2958465.9999999, ""},
      {"not a number", std::nan(""), ""},
      {"infinite", infinite, ""},
      {"minus infinite", -infinite, ""},
  };
  for (const auto& entry : cases) {
    const auto moment = AccessDate(entry.days);
    EXPECT_EQ(moment ? ToIsoText(*moment) : QString(), entry.moment) << entry.fault;
  }
}

TEST(AccessTexts, PlainAndCompressed) {
  const struct {
    const char* fault;
    QByteArray bytes;
    std::optional<QString> text;
  } cases[] = {
      {"plain", QByteArray("A\0b\0", 4), "Ab"},
      {"beyond Latin", QByteArray("\xac\x20", 2), "€"},
      {"compressed",
       QByteArray("\xff\xfe"
                  "Ab",
                  4),
       "Ab"},
      {"compressed Latin",
       QByteArray("\xff\xfe"
                  "\xe1",
                  3),
       "á"},
      {"switches to plain and back",
       QByteArray("\xff\xfe"
                  "A\0\xac\x20\0b",
                  8),
       "A€b"},
      {"empty", QByteArray(), ""},
      {"half a letter", QByteArray("A\0b", 3), std::nullopt},
      {"half a letter in compressed",
       QByteArray("\xff\xfe"
                  "A\0\xac",
                  5),
       std::nullopt},
      {"half a pair", QByteArray("\x00\xd8", 2), std::nullopt},
  };
  for (const auto& entry : cases) EXPECT_EQ(AccessText(entry.bytes), entry.text) << entry.fault;
}

TEST(Frames, RowsComeBackAsTheyWere) {
  const std::vector<Value> cells = {Value(),
                                    Value(qint64{-7}),
                                    Value(0.25),
                                    Value(Money::FromUnits(-12345)),
                                    Value(true),
                                    Value(DateTime(QDate(2026, 11, 2), QTime(14, 7, 9))),
                                    Value(QStringLiteral("Siobhán\r\n"))};
  wire::RowPacker packer;
  packer.Add(cells);
  packer.Add(cells);
  const auto rows = wire::UnpackRows(packer.Take(), cells.size());
  ASSERT_TRUE(rows);
  EXPECT_EQ(*rows, (std::vector<std::vector<Value>>{cells, cells}));
  EXPECT_EQ(packer.Size(), 0);
}

TEST(Frames, NonsenseIsNeverBelieved) {
  AccessTable table;
  table.schema = {"Clients", {{"Client_ID", jet::ColumnType::Counter, 0}}};
  wire::RowPacker packer;
  packer.Add({Value(QStringLiteral("text")), Value(DateTime(QDate(2026, 11, 2)))});
  const QByteArray rows = packer.Take();
  const QByteArray tables = wire::PackTables({table});
  EXPECT_FALSE(wire::UnpackRows(rows, 0)) << "rows of a table without columns would never end";
  EXPECT_FALSE(wire::UnpackRows(rows, 3));
  EXPECT_FALSE(wire::UnpackTables(tables + 'x'));
  for (qsizetype size = 1; size < rows.size(); ++size) {
    EXPECT_FALSE(wire::UnpackRows(rows.left(size), 2)) << size;
  }
  for (qsizetype size = 0; size < tables.size(); ++size) {
    EXPECT_FALSE(wire::UnpackTables(tables.left(size))) << size;
  }
  QRandomGenerator random(7);
  for (int round = 0; round < 2000; ++round) {
    QByteArray spoilt = round % 2 == 0 ? rows : tables;
    spoilt[random.bounded(spoilt.size())] = static_cast<char>(random.bounded(256));
    wire::UnpackRows(spoilt, 2);
    wire::UnpackTables(spoilt);
  }
}

}  // namespace
}  // namespace quillary
