#include "BillingFixture.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <functional>

namespace quillary {
namespace {

class BillingDocumentsTest : public BillingFixture {
 protected:
  static QString FileOf(const ReportDocument& document) {
    EXPECT_TRUE(QFile::exists(document.docFile)) << document.docFile.toStdString();
    return document.docFile;
  }
  ReportDocument PrintPdf(TaxMode mode = TaxMode::Included) {
    return PrintInvoicePDF(business(), places, "Ann Able", mode);
  }
  std::vector<PdfText> InvoiceTexts(TaxMode mode = TaxMode::Included) {
    return TextsOf(FileOf(PrintPdf(mode)));
  }
};

// The whole look of each document; what is odd in it is odd on purpose.
TEST_F(BillingDocumentsTest, EachDocumentLooksAsItDid) {
  const qint64 invoice = AddFullInvoice();
  const qint64 plain = AddInvoice(tenant, "1002", Cents(5500), Cents(500));
  AddJob(tenant, QDate(2026, 10, 20), Cents(5500), Cents(500), plain);
  Run(Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES ({}, {}, {})", payer,
          QDate(2026, 10, 12), Cents(8000)));
  Select({invoice, plain});
  const StatementDays days{QDate(2026, 9, 1), QDate(2026, 10, 31)};
  ExpectGolden("invoice-pdf", GoldenLines(InvoiceTexts()));
  ExpectGolden("invoice-less-tax-pdf", GoldenLines(InvoiceTexts(TaxMode::Excluded)));
  ExpectGolden("statement-pdf", GoldenLines(TextsOf(FileOf(PrintStatementForInvoicesPDF(
                                    business(), places, days, TaxMode::Included)))));
  ExpectGolden("reminder-pdf", GoldenLines(TextsOf(FileOf(PrintRemindersForInvoicesPDF(
                                   business(), places, TaxMode::Excluded)))));
  ExpectGolden("invoice-word",
               GoldenLines(PrintInvoice(business(), places, "x", TaxMode::Included).pages));
  ExpectGolden(
      "statement-word",
      GoldenLines(PrintStatementForInvoices(business(), places, days, TaxMode::Included).pages));
  ExpectGolden("reminder-word",
               GoldenLines(PrintRemindersForInvoices(business(), places, TaxMode::Excluded).pages));
}

TEST_F(BillingDocumentsTest, FilesAreNamedAndShownByForm) {
  Select({AddFullInvoice()});
  const StatementDays days{QDate(2026, 9, 1), QDate(2026, 10, 31)};
  const auto relative = [this](const ReportDocument& document) {
    return QDir(folder.path()).relativeFilePath(FileOf(document)).toStdString() + "|" +
           document.docTitle.toStdString();
  };
  EXPECT_EQ(relative(PrintPdf()), "Report Doc/Invoice - Ann Able 09-00-00.pdf|Invoice");
  EXPECT_EQ(relative(PrintStatementForInvoicesPDF(business(), places, days, TaxMode::Included)),
            "Report Doc/Statement-09-00-00.pdf|Statement");
  const ReportDocument reminder =
      PrintRemindersForInvoicesPDF(business(), places, TaxMode::Included);
  EXPECT_EQ(relative(reminder), "Report Doc/Reminder-09-00-00.pdf|Reminder");
  EXPECT_EQ(outside.desktop.opened.size(), 3);
  EXPECT_TRUE(outside.desktop.opened[0].startsWith("file:///"));
  EXPECT_TRUE(outside.desktop.opened[0].endsWith("Invoice%20-%20Ann%20Able%2009-00-00.pdf"));
  EXPECT_EQ(relative(PrintInvoice(business(), places, "Ann\r\nAble", TaxMode::Included)),
            "Report Doc/Invoice - Ann Able 09-00-00.rtf|Invoice");
  EXPECT_EQ(relative(PrintStatementForInvoices(business(), places, days, TaxMode::Included)),
            "Report Doc/Statement.doc|Statement");
  EXPECT_EQ(relative(PrintRemindersForInvoices(business(), places, TaxMode::Included)),
            "Report Doc/Reminder.doc|Reminder");
  EXPECT_EQ(outside.desktop.opened.size(), 3) << "the preview shows the other form";
  QFile file(reminder.docFile);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().contains("/Title (Statement)"));
}

TEST_F(BillingDocumentsTest, AMissingOrBrokenLogoIsToldOnce) {
  Select({AddFullInvoice(), AddInvoice(tenant, "1002", Cents(100), Money())});
  EXPECT_TRUE(PrintPdf().troubles.isEmpty());
  for (const QByteArray& bytes : {QByteArray(), QByteArray("no picture")}) {
    QFile::remove(Logo());
    if (!bytes.isEmpty()) {
      QFile logo(Logo());
      ASSERT_TRUE(logo.open(QIODevice::WriteOnly));
      logo.write(bytes);
    }
    for (const ReportDocument& document :
         {PrintPdf(), PrintInvoice(business(), places, "x", TaxMode::Included)}) {
      EXPECT_EQ(document.troubles.size(), 1) << document.docFile.toStdString();
      FileOf(document);
    }
  }
}

TEST_F(BillingDocumentsTest, AFolderThatCannotBeWrittenIsAnError) {
  Select({AddFullInvoice()});
  places.folder = folder.filePath(QStringLiteral("nowhere/at/all"));
  EXPECT_THROW(PrintPdf(), PDFError);
}

TEST_F(BillingDocumentsTest, NoPositionRunsOffThePageOrLosesARow) {
  struct Case {
    const char* name;
    int jobs;
    int sites;
    int noteLines;
  };
  for (const Case& c : {Case{"short", 1, 1, 0}, Case{"sixty jobs", 60, 5, 3},
                        Case{"slip at the edge", 22, 1, 2}, Case{"all long", 400, 7, 120}}) {
    Transaction atOnce(business());
    Run(Sql("DELETE FROM Diary"));
    const qint64 invoice = AddInvoice(payer, "7", Money(), Money());
    for (int job = 0; job < c.jobs; ++job) {
      const qint64 site =
          job % c.sites == 0 ? payer : AddClient(QStringLiteral("Site %1").arg(job), payer);
      AddJob(site, QDate(2026, 1, 1).addDays(job), Cents(1000 + job), Cents(job), invoice);
    }
    const QString notes = QStringLiteral("a line of notes\r\n").repeated(c.noteLines);
    Run(Sql("UPDATE Invoices SET Invoice_Notes = {} WHERE Invoice_ID = {}", notes, invoice));
    Select({invoice});
    atOnce.Commit();
    const auto texts = InvoiceTexts();
    for (const PdfText& text : texts) {
      EXPECT_TRUE(text.y > 0.9 && text.y < 28.6 && text.x >= 1 && text.x < 20)
          << c.name << ": " << text.text.toStdString();
    }
    const QStringList words = Words(texts);
    const QStringList pages = Words(PrintInvoice(business(), places, "x", TaxMode::Included).pages);
    for (int job = 0; job < c.jobs; ++job) {
      const QString price = Cents(1000 + job).ToCurrencyText();
      EXPECT_TRUE(words.contains(price)) << c.name << " " << job;
      EXPECT_TRUE(pages.contains(price)) << c.name << " " << job;
    }
    EXPECT_EQ(words.count("a line of notes"), c.noteLines) << c.name;
    EXPECT_EQ(words.count("REMITTANCE SLIP:"), 1) << c.name;
    const int last = texts.back().page;
    if (c.jobs >= 60) {
      EXPECT_GT(words.count("Service"), 1) << "headings of further pages";
      EXPECT_TRUE(words.contains("Invoice No: 7 (continued)"));
    }
    const auto slip = std::find_if(texts.begin(), texts.end(),
                                   [](const auto& t) { return t.text == "[Please cut here]"; });
    EXPECT_EQ(slip->page, last) << c.name << ": the slip is in one piece";
  }
}

TEST_F(BillingDocumentsTest, TheSumsOnPaperAreThoseOfTheTables) {
  const qint64 invoice = AddFullInvoice();
  Select({invoice});
  for (const TaxMode mode : {TaxMode::Included, TaxMode::Excluded}) {
    const Value sum = business().FirstField(
        Sql(mode == TaxMode::Included ? "SELECT SUM(Price) FROM Diary_Services INNER JOIN Diary "
                                        "ON Diary_Services.Diary_ID = Diary.Diary_ID WHERE "
                                        "Invoice_ID = {}"
                                      : "SELECT SUM(Price - GST) FROM Diary_Services INNER JOIN "
                                        "Diary ON Diary_Services.Diary_ID = Diary.Diary_ID WHERE "
                                        "Invoice_ID = {}",
            invoice));
    const QStringList words = Words(InvoiceTexts(mode));
    EXPECT_TRUE(words.contains(sum.ToMoney().ToCurrencyText()));
  }
}

TEST_F(BillingDocumentsTest, AmountsOfAColumnEndBelowEachOther) {
  const qint64 invoice = AddInvoice(payer, "1", Money(), Money());
  for (const qint64 cents : {5, 550, 123456, 9999999})
    AddJob(payer, QDate(2026, 10, 5), Cents(cents), Money(), invoice);
  Select({invoice});
  const PageFonts fonts(places.report.fontFolder);
  int amounts = 0;
  for (const PdfText& text : InvoiceTexts()) {
    if (!text.text.startsWith(u'$') || text.x > 14 || text.y > 14 || text.font.startsWith("F2"))
      continue;
    const double width = fonts.WidthOf(text.text, {.size = 8}) / kTwipsPerCentimetre;
    EXPECT_NEAR(text.x + width, 13.9, 0.02) << text.text.toStdString();
    ++amounts;
  }
  EXPECT_EQ(amounts, 4);
}

TEST_F(BillingDocumentsTest, HostileTextsNeitherBreakAFileNorLeaveTheFolder) {
  const QString hostile[] = {
      QStringLiteral("../../../etc/passwd"),
      QStringLiteral("..\\..\\boot.ini"),
      QStringLiteral("{\\rtf1 }} \\par ) Tj ET (( \\\\"),
      QStringLiteral("O'Brien \"quoted\" `rm` $(x) ; DROP TABLE Clients --"),
      QString(QStringLiteral("a\tb") + QChar(0x01) + QChar(0x1b) + QChar(0x7f) + u'c'),
      QString::fromUtf8("\xF0\x9F\x8C\xB3 garden \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xE6\xA8\xB9"),
      QString(QStringLiteral("broken ") + QChar(0xD800)),
      QStringLiteral("name ").repeated(200),
      QString::fromUtf8("\xF0\x9F\x8C\xB3").repeated(200),
      QStringLiteral("W").repeated(2000)};
  const QString qpdf = QStandardPaths::findExecutable(QStringLiteral("qpdf"));
  const qint64 invoice = AddFullInvoice();
  Select({invoice});
  for (const QString& text : hostile) {
    Run(Sql("UPDATE Clients SET Display_Name = {}, Street = {}", text, text));
    Run(Sql("UPDATE Services SET Service = {}", text));
    Run(
        Sql("UPDATE Invoices SET Made_Out_To = {}, Invoice_Notes = {}, Invoice_Number = {}, "
            "Invoice_Description = {}",
            text, text, text, text));
    Run(Sql("UPDATE infPersonalDetails SET Company_Name = {}, Account_Name = {}", text, text));
    Run(Sql("UPDATE infOptions SET TermsOfTrade = {}", text));
    business().values.taxName = text;
    for (const ReportDocument& document :
         {PrintInvoicePDF(business(), places, text, TaxMode::Included),
          PrintInvoice(business(), places, text, TaxMode::Excluded)}) {
      const QFileInfo file(FileOf(document));
      EXPECT_EQ(file.absolutePath(), folder.filePath("Report Doc")) << text.toStdString();
      EXPECT_LE(file.fileName().toUtf8().size(), 255) << text.toStdString();
      if (file.suffix() != u"pdf" || qpdf.isEmpty()) continue;
      QProcess check;
      check.start(qpdf, {QStringLiteral("--check"), file.filePath()});
      ASSERT_TRUE(check.waitForFinished());
      EXPECT_EQ(check.exitCode(), 0) << check.readAll().toStdString();
    }
  }
}

TEST_F(BillingDocumentsTest, ACharacterThatThePdfLacksIsSeenToBeMissing) {
  const qint64 invoice = AddInvoice(payer, "1", Money(), Money());
  Run(Sql("UPDATE Invoices SET Invoice_Description = {}",
          QString::fromUtf8("Caf\xC3\xA9 \xE6\xA8\xB9")));
  Select({invoice});
  EXPECT_TRUE(Words(InvoiceTexts()).contains(QString::fromUtf8("Caf\xC3\xA9 ?")));
}

TEST(InvoiceFileNameTest, IsCutBetweenCharactersAndHoldsTheTime) {
  const DateTime moment(QDate(2026, 11, 2), QTime(14, 7, 9));
  EXPECT_EQ(InvoiceFileName("Ann: \"A/B\"?\r\n50%", moment), "Invoice - Ann \"AB\"  50- 14-07-09");
  EXPECT_EQ(InvoiceFileName("", moment), "Invoice -  14-07-09");
  const QString flag = QString::fromUtf8("\xF0\x9F\x87\xA6\xF0\x9F\x87\xBA");  // one of two letters
  const QString name = InvoiceFileName(flag.repeated(60), moment);
  EXPECT_LE(name.toUtf8().size() + 4, 255);
  EXPECT_GT(name.toUtf8().size() + 4, 255 - 8);
  EXPECT_EQ((name.toUtf8().size() - QByteArray("Invoice -  14-07-09").size()) % 8, 0);
}

}  // namespace
}  // namespace quillary
