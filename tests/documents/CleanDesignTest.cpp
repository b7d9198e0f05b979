#include "BillingFixture.h"
#include "PageFixture.h"

#include <QRegularExpression>

namespace quillary::documents {
namespace {

struct Look {
  const char* name;
  int jobs = 1;
  int longWords = 1;
  int noteLines = 0;
  int termLines = 1;
  bool hasDetails = true;
  Paper paper = Paper::A4;
};
void PrintTo(const Look& look, std::ostream* out) {
  *out << look.name;
}

class CleanDesignTest : public BillingFixture, public ::testing::WithParamInterface<Look> {
 protected:
  void SetUp() override {
    BillingFixture::SetUp();
    design = BillingDesign::Clean;
  }
  qint64 AddLook(const Look& look) {
    const QString words = QStringLiteral("words ").repeated(look.longWords);
    const QStringList notes(look.noteLines, "a line of notes " + words);
    const QStringList terms(look.termLines, "Please pay [AMOUNT] " + words);
    const qint64 invoice = AddInvoice(payer, "7", Cents(5500), Cents(500));
    Run(Sql("UPDATE Invoices SET Invoice_Description = {}, Invoice_Notes = {}", words,
            notes.join("\r\n")));
    Run(Sql("UPDATE infOptions SET TermsOfTrade = {}", terms.join("\r\n")));
    Run(Sql("UPDATE Services SET Service = {} WHERE Service_ID = 1", words.left(50)));
    Run(Sql("UPDATE Clients SET Display_Name = {}", "Client of " + words.left(80)));
    if (!look.hasDetails) Run(Sql("DELETE FROM infPersonalDetails"));
    for (int job = 0; job < look.jobs; ++job)
      AddJob(payer, QDate(2026, 10, 1), Cents(1000 + job), Cents(100), invoice);
    places.report.paper = look.paper;
    return invoice;
  }
  static QStringList Amounts(const std::vector<PdfText>& texts) {
    static const QRegularExpression amount("-?\\$[\\d,]+\\.\\d\\d");
    QStringList amounts;
    for (const PdfText& text : texts) {
      auto found = amount.globalMatch(text.text);
      while (found.hasNext()) amounts += found.next().captured();
    }
    amounts.removeDuplicates();
    amounts.sort();
    return amounts;
  }
};

TEST_P(CleanDesignTest, SaysWhatTheClassicOneSaysWithinItsEdges) {
  const Look& look = GetParam();
  Select({AddLook(look)});
  const ReportDocument clean = Print(BillingKind::Invoice, BillingForm::Pdf, TaxMode::Included);
  const auto texts = TextsOf(clean.docFile);
  design = BillingDesign::Classic;
  const auto classic =
      TextsOf(Print(BillingKind::Invoice, BillingForm::Pdf, TaxMode::Included, "classic").docFile);
  EXPECT_EQ(Amounts(texts), Amounts(classic));

  const QStringList words = Words(texts);
  EXPECT_EQ(words.filter("a line of notes").size(), look.noteLines);
  EXPECT_EQ(words.count("REMITTANCE SLIP"), 1);
  EXPECT_EQ(words.filter("Please pay").size(), look.termLines);
  const int pages = texts.back().page;
  for (int page = 1; page <= pages; ++page)
    EXPECT_EQ(words.count(QStringLiteral("Page %1 of %2").arg(page).arg(pages)), 1) << page;
  for (const PdfText& text : texts) {
    if (text.text == "[Please cut here]") {
      EXPECT_EQ(text.page, pages) << "the slip is on the last page";
    }
  }
  EXPECT_EQ(clean.troubles.filter("no name yet").size(), look.hasDetails ? 0 : 1);
  for (const char* label : {"TO", "EFT", "ABN: ", " · "})
    EXPECT_TRUE(look.hasDetails || !words.contains(label)) << "a lone label: " << label;

  const auto boxes = Ask("pdftotext", {"-bbox", clean.docFile, "-"});
  if (!boxes) return;
  static const QRegularExpression place(
      "<word xMin=\"([\\d.]+)\" yMin=\"[\\d.]+\" xMax=\"([\\d.]+)\" "
      "yMax=\"([\\d.]+)\"");
  constexpr double kEdge = 1.7 / 2.54 * 72;
  const double width = look.paper == Paper::Letter ? 612 : 595.28;
  const double height = look.paper == Paper::Letter ? 792 : 841.89;
  auto found = place.globalMatch(*boxes);
  EXPECT_TRUE(found.hasNext());
  while (found.hasNext()) {
    const auto word = found.next();
    EXPECT_GE(word.captured(1).toDouble(), kEdge - 0.5);
    EXPECT_LE(word.captured(2).toDouble(), width - kEdge + 0.5);
    EXPECT_LE(word.captured(3).toDouble(), height - 20);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Looks, CleanDesignTest,
    ::testing::Values(Look{"one line"}, Look{"sixty lines", 60},
                      Look{"sixty on Letter", 60, 1, 0, 1, true, Paper::Letter},
                      Look{"long words", 3, 60},
                      Look{"long on Letter", 3, 60, 2, 2, true, Paper::Letter},
                      Look{"notes of a page", 2, 1, 60}, Look{"no company", 2, 1, 1, 1, false},
                      Look{"no company on Letter", 30, 1, 1, 1, false, Paper::Letter},
                      Look{"26 lines of terms", 1, 1, 0, 26}, Look{"no job", 0},
                      Look{"just a page", 17}, Look{"a page and a little", 24, 1, 3, 4}));

TEST_F(CleanDesignTest, EverySectionOfEveryDocumentIsThere) {
  const qint64 invoice = AddFullInvoice();
  Run(Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES ({}, {}, {})", payer,
          QDate(2026, 10, 12), Cents(8000)));
  SetFlag("InvoiceWithOutstanding", payer);
  Run(Sql("UPDATE Clients SET Account_Balance = -290 WHERE Client_ID = {}", payer));
  Select({invoice});
  const auto words = [&](BillingKind kind) {
    return Words(TextsOf(Print(kind, BillingForm::Pdf, TaxMode::Included).docFile));
  };
  const auto expect = [](const QStringList& shown, std::initializer_list<const char*> wanted) {
    for (const char* text : wanted) EXPECT_TRUE(shown.contains(text)) << text;
  };
  expect(words(BillingKind::Invoice),
         {"WORK DONE", "UNPAID PAST JOBS", "Next Job", "Order : W-88",
          "Outstanding before this invoice", "$36.50", "TOTAL AMOUNT PAYABLE", "$290.00", "NOTES"});
  expect(words(BillingKind::Statement),
         {"STATEMENT", "INVOICES ISSUED", "UNPAID PAST JOBS", "PAYMENTS RECEIVED", "$80.00",
          "01-Sep-2026", "31-Oct-2026"});
  expect(words(BillingKind::Reminder),
         {"REMINDER", "REMINDER: Invoice(s) issued but not paid", "$231.00", "02-Nov-2026"});
}

}  // namespace
}  // namespace quillary::documents
