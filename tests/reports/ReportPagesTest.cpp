#include "ReportsFixture.h"
#include "domain/Periods.h"
#include "reports/ListReport.h"
#include "reports/ReportForms.h"
#include "reports/ReportLayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quillary::reports {
namespace {

/// Every report as pages and as data.
class ReportPagesTest : public ReportsTest {
 protected:
  void SetUp() override {
    ReportsTest::SetUp();
    Load(kDemo);
    WriteDeposit();
  }

  /// Cash that was banked as a round sum, three cheques and a card.
  void WriteDeposit() {
    Run(
        Sql("INSERT INTO Bank_Accounts (Bank_Account_Name, Bank_Account_Number) VALUES "
            "('Working account', '12-345')"));
    Run(
        Sql("INSERT INTO Bankings (Bank_Account_ID, Banking_Date, Cash_Banked, Cash_Unbanked, "
            "Total_Banked) SELECT MAX(Bank_Account_ID), {}, 200, 12.5, 351.5 FROM Bank_Accounts",
            QDate(2026, 11, 1)));
    deposit = Run(Sql("SELECT MAX(Banking_ID) FROM Bankings")).Field(size_t{0}).ToLong();
    const auto pay = [&](const char* method, double amount) {
      Run(
          Sql("INSERT INTO Payments (Client_ID, Payment_Date, Payment_Method, Amount, Banking_ID, "
              "Cheque_Number, Bank) VALUES (1, {}, {}, {}, {}, '000117', 'Harbour')",
              QDate(2026, 10, 30), method, amount, deposit));
    };
    pay("CASH", 212.5);
    pay("Cheque", 50.5);
    pay("CHEQUE", 1);
    pay("CHEQUE", 50);
    pay("VISA", 50);
  }
  ReportCriteria CriteriaFor(const ReportKind& kind) {
    ReportCriteria criteria{.days = {QDate(2026, 8, 1), QDate(2026, 11, 30)}};
    if (kind.asks == Asks::Client) criteria.record = 1;
    if (kind.asks == Asks::Quote) criteria.record = 1;
    if (kind.asks == Asks::Deposit) criteria.record = deposit;
    return criteria;
  }
  documents::ReportPlaces Places(documents::Paper paper) {
    return {.applicationFolder = folder.path(),
            .fontFolder = QStringLiteral(QUILLARY_BIN "/Fonts"),
            .paper = paper};
  }

  qint64 deposit = 0;
};

/// No text over another or beyond the margins.
void ExpectTidy(const documents::Composition& document, const std::string& what) {
  const double right = document.setup.Width() - document.setup.margins.right;
  for (const documents::Page& page : document.pages) {
    for (size_t i = 0; i < page.texts.size(); ++i) {
      const documents::TextRun& a = page.texts[i];
      EXPECT_GE(a.x, document.setup.margins.left - 0.5) << what << ": " << a.text.toStdString();
      EXPECT_LE(a.x + a.width, right + 0.5) << what << ": " << a.text.toStdString();
      for (size_t j = i + 1; j < page.texts.size(); ++j) {
        const documents::TextRun& b = page.texts[j];
        const bool apart = a.x + a.width <= b.x + 0.5 || b.x + b.width <= a.x + 0.5 ||
                           a.top + a.height <= b.top + 0.5 || b.top + b.height <= a.top + 0.5;
        EXPECT_TRUE(apart) << what << ": " << a.text.toStdString() << " / " << b.text.toStdString();
      }
    }
  }
}

TEST_F(ReportPagesTest, EveryReportIsTidyOnEitherPaperAndOverwritesItsFile) {
  for (const ReportKind& kind : ReportKinds()) {
    const ReportData data = CollectReport(business(), kind, CriteriaFor(kind));
    for (const auto paper : {documents::Paper::A4, documents::Paper::Letter}) {
      const LaidReport laid =
          LayOutReport(business(), {.places = Places(paper), .file = FileNameOf(kind, data)}, data);
      ExpectTidy(laid.document.pages, kind.name);
      EXPECT_EQ(laid.document.docFile, folder.filePath("Report Doc/" + FileNameOf(kind, data)));
      QFile file(laid.document.docFile);
      ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << kind.name;
      EXPECT_TRUE(file.readAll().startsWith("{\\rtf")) << kind.name;
      EXPECT_FALSE(data.sections.empty()) << kind.name;
      int links = 0;
      for (const documents::Page& page : laid.document.pages.pages)
        for (const documents::TextRun& run : page.texts)
          if (run.link >= 0) {
            ASSERT_LT(static_cast<size_t>(run.link), laid.links.size());
            ++links;
          }
      EXPECT_EQ(links > 0, !laid.links.empty()) << kind.name;
    }
  }
}

TEST_F(ReportPagesTest, RowsAddUpToGroupsAndGroupsToTheWhole) {
  for (const ReportKind& kind : ReportKinds()) {
    for (const ReportSection& section :
         CollectReport(business(), kind, CriteriaFor(kind)).sections) {
      for (size_t at = 0; at < section.columns.size(); ++at) {
        const ReportColumn& column = section.columns[at];
        Money all;
        for (const ReportGroup& group : section.groups) {
          ASSERT_TRUE(group.totals.empty() || group.totals.size() == section.columns.size());
          Money rows;
          for (const ReportRow& row : group.rows) {
            ASSERT_EQ(row.cells.size(), section.columns.size()) << kind.name;
            rows += row.cells[at].ToMoney();
          }
          if (column.total == Total::Sum && !group.totals.empty()) {
            EXPECT_EQ(group.totals[at].ToMoney(), rows) << kind.name;
          }
          all += rows;
        }
        if (column.total == Total::Sum && !section.totals.empty()) {
          EXPECT_EQ(section.totals[at].ToMoney(), all) << kind.name;
        }
      }
    }
  }
}

TEST_F(ReportPagesTest, OtherProgramsReadWhatThePagesShow) {
  for (const ReportKind& kind : ReportKinds()) {
    const ReportData data = CollectReport(business(), kind, CriteriaFor(kind));
    QJsonParseError error;
    const QJsonObject json = QJsonDocument::fromJson(WriteReportJson(data), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << kind.name;
    EXPECT_EQ(json["columns"].toArray().size(),
              static_cast<qsizetype>(data.sections.front().columns.size()));
    qsizetype rows = 0;
    for (const QJsonValue group : json["groups"].toArray())
      rows += group.toObject()["rows"].toArray().size();
    qsizetype expected = 0;
    for (const ReportSection& section : data.sections)
      for (const ReportGroup& group : section.groups)
        expected += static_cast<qsizetype>(group.rows.size());
    EXPECT_EQ(rows, expected) << kind.name;
    EXPECT_FALSE(WriteReportText(data).isEmpty());
    EXPECT_EQ(WriteReportCsv(data).count('$'), 0) << kind.name << ": amounts are plain digits";
  }
}

TEST_F(ReportPagesTest, ThePayInSlipIsTheDeposit) {
  const ReportData slip = Collect("pay-in-slip", {.record = deposit});
  EXPECT_EQ(slip.sections[1].totals[0].ToText(), "Total Cheque Amount");
  EXPECT_EQ(slip.sections[1].totals[4].ToMoney(), Money::Parse(u"101.5"));
  EXPECT_EQ(slip.sections[2].totals[4].ToMoney(), Money::FromWhole(50));
  EXPECT_EQ(slip.sections.back().groups[0].rows[0].cells[1].ToMoney(), Money::Parse(u"351.5"));
}

TEST_F(ReportPagesTest, DaysOfAWeekStandUnderTheirNames) {
  const ReportData data =
      Collect("diary-totals", {.days = {QDate(2026, 10, 28), QDate(2026, 11, 3)}});
  qint64 jobs = 0;
  Money amount;
  for (const Books::Row& row : (*books)["Diary"]) {
    if (!IsWithin(row.at("Schedule_Date"), {QDate(2026, 10, 28), QDate(2026, 11, 3)})) continue;
    if (!IsDone(row) && row.at("Status").ToText() != "J") continue;
    ++jobs;
    amount += row.at("Total_Price").ToMoney();
  }
  EXPECT_EQ(data.sections[0].totals[1].ToLong(), jobs);
  EXPECT_EQ(data.sections[0].totals[2].ToMoney(), amount);
  const auto& weeks = data.printed.front().groups.front().rows;
  ASSERT_EQ(weeks.size(), 2U);
  EXPECT_TRUE(weeks[0].cells[0].IsNull()) << "the range begins on a Wednesday";
  EXPECT_TRUE(weeks[0].cells[2].ToText().startsWith("28-Oct-2026\n"));
  EXPECT_TRUE(weeks[1].cells[0].ToText().startsWith("02-Nov-2026\n"));
}

TEST_F(ReportPagesTest, EmptyDaysGiveATitledPageAndTotalsOfNothing) {
  const DateRange never{QDate(1990, 1, 1), QDate(1990, 1, 2)};
  for (const ReportKind& kind : ReportKinds()) {
    if (kind.asks != Asks::Days && kind.asks != Asks::DaysAndClients) continue;
    const ReportData data = CollectReport(business(), kind, {.days = never});
    const LaidReport laid =
        LayOutReport(business(), {.places = Places(documents::Paper::A4), .file = kind.file}, data);
    ASSERT_EQ(laid.document.pages.pages.size(), 1U + data.parts.size()) << kind.name;
    EXPECT_EQ(laid.document.pages.pages[0].texts.front().text, data.title) << kind.name;
    for (const ReportSection& section : data.sections)
      for (size_t at = 0; at < section.totals.size(); ++at)
        if (section.columns[at].total == Total::Sum) {
          EXPECT_EQ(section.totals[at].ToMoney(), Money()) << kind.name;
        }
  }
}

TEST_F(ReportPagesTest, WhatCannotBeIsRefusedInWords) {
  struct Case {
    const char* report;
    ReportCriteria criteria;
    const char* why;
  };
  const DateRange month = DateRange::MonthOf(QDate(2026, 10, 1));
  const Case cases[] = {
      {"gst", {.days = {month.to, month.from}}, "valid date range"},
      {"payments", {.days = month, .sort = "colour"}, "colour"},
      {"jobs", {.days = month, .option = "summary"}, "no options"},
      {"quote", {.record = 99999}, "no longer there"},
      {"quote", {.clients = {Id<Client>(99999)}}, "select and load a quote"},
      {"pay-in-slip", {.record = 99999}, "no longer there"},
      {"account-of-client", {.record = 99999}, "no longer there"},
      {"job-summary", {.days = month, .employee = Id<Employee>(99)}, "employee"},
      {"profit-loss",
       {.days = {QDate(2020, 1, 1), QDate(2026, 1, 1)}, .option = "with-tax-months"},
       "12 months"}};
  for (const Case& c : cases) {
    try {
      Collect(c.report, c.criteria);
      ADD_FAILURE() << c.report << " was made";
    } catch (const std::invalid_argument& refused) {
      EXPECT_TRUE(QString(refused.what()).contains(c.why)) << refused.what();
    }
  }
}

class PackTest : public ReportsTest, public ::testing::WithParamInterface<quint32> {
 protected:
  ReportData Pack() {
    return Collect("accountant-pack", {.days = {QDate(2026, 3, 1), QDate(2026, 11, 2)}});
  }
};

TEST_P(PackTest, TiesOnAnyBusinessByEitherMethod) {
  setup::WriteDemoBusiness(BusinessTest::business(),
                           {.clients = 40, .months = 6, .seed = GetParam()});
  LoadSharedValues(business());
  for (const char* method : {"Cash", "Accrual"}) {
    business().values.accountingMethod = method;
    const ReportData pack = Pack();
    EXPECT_TRUE(pack.troubles.isEmpty()) << pack.troubles.join('|').toStdString();
    ASSERT_EQ(pack.parts.size(), 7U);
    int amounts = 0;
    for (const ReportRow& row : pack.sections.front().groups.front().rows)
      amounts += row.cells[1].ToMoney() != Money();
    EXPECT_GE(amounts, 9) << "figures of nothing tie by themselves";
  }
}
INSTANTIATE_TEST_SUITE_P(Seeds, PackTest, ::testing::Range(11U, 21U));

class UntiedPackTest : public PackTest {};

TEST_F(UntiedPackTest, SaysAloudWhatDoesNotTieAndWhereEachPartBegins) {
  Load(kDemo);
  Run(
      Sql("UPDATE General_Ledger_Entries SET GL_Amount = GL_Amount + 1 WHERE GL_Entry_ID = (SELECT "
          "MAX(GL_Entry_ID) FROM General_Ledger_Entries WHERE Purchase_ID IS NOT NULL AND "
          "Entry_Date < {})",
          QDate(2026, 11, 1)));
  const ReportData pack = Pack();
  ASSERT_EQ(pack.troubles.size(), 1) << pack.troubles.join('|').toStdString();
  EXPECT_TRUE(pack.troubles.front().contains("what the ledger holds of them do not tie"));
  const LaidReport laid =
      LayOutReport(business(),
                   {.places = {.applicationFolder = folder.path(),
                               .fontFolder = QStringLiteral(QUILLARY_BIN "/Fonts")},
                    .file = "Accountant Pack.doc"},
                   pack);
  EXPECT_EQ(laid.document.troubles, pack.troubles);
  const auto& pages = laid.document.pages.pages;
  const auto& first = pages.front().texts;
  for (const ReportData& part : pack.parts) {
    const auto entry = std::find_if(first.begin(), first.end(), [&](const documents::TextRun& run) {
      return run.text == part.title;
    });
    ASSERT_NE(entry, first.end()) << part.title.toStdString();
    const int number = std::next(entry)->text.toInt();
    ASSERT_GT(number, 1);
    EXPECT_EQ(pages[static_cast<size_t>(number - 1)].texts.front().text, part.title);
  }
}

TEST(PeriodsTest, ProposedPeriodsBeginAndEndWhereAnOwnerExpects) {
  struct Case {
    QDate today;
    QDate yearStarting;
    const char* words;
    DateRange days;
  };
  const QDate july(2019, 7, 1);
  const Case cases[] = {
      {{2026, 11, 2}, july, "This month", {{2026, 11, 1}, {2026, 11, 30}}},
      {{2026, 1, 31}, july, "Last month", {{2025, 12, 1}, {2025, 12, 31}}},
      {{2026, 11, 2}, july, "This quarter", {{2026, 10, 1}, {2026, 12, 31}}},
      {{2026, 2, 2}, july, "Last quarter", {{2025, 10, 1}, {2025, 12, 31}}},
      {{2026, 2, 2}, july, "Last year", {{2025, 1, 1}, {2025, 12, 31}}},
      {{2026, 11, 2}, july, "This financial year", {{2026, 7, 1}, {2027, 6, 30}}},
      {{2026, 6, 30}, july, "This financial year", {{2025, 7, 1}, {2026, 6, 30}}},
      {{2026, 6, 30}, july, "Last financial year", {{2024, 7, 1}, {2025, 6, 30}}},
      {{2026, 4, 1}, {2020, 4, 6}, "This financial year", {{2026, 4, 1}, {2027, 3, 31}}},
      {{2026, 6, 30}, {}, "This financial year", {{2025, 7, 1}, {2026, 6, 30}}}};
  for (const Case& c : cases) {
    for (const NamedPeriod& period : ProposedPeriods(c.today, c.yearStarting))
      if (period.words == c.words) {
        EXPECT_EQ(period.days, c.days) << c.words;
      }
  }
  EXPECT_EQ(YearBefore({{2024, 2, 1}, {2024, 2, 29}}), (DateRange{{2023, 2, 1}, {2023, 2, 28}}));
  EXPECT_EQ(YearBefore({{2025, 2, 1}, {2025, 2, 28}}), (DateRange{{2024, 2, 1}, {2024, 2, 29}}));
}

}  // namespace
}  // namespace quillary::reports
