#include "BillingFixture.h"
#include "PageFixture.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <functional>

namespace quillary::documents {
namespace {

class BillingDocumentsTest : public BillingFixture {
 protected:
  static QString FileOf(const ReportDocument& document) {
    EXPECT_TRUE(QFile::exists(document.docFile)) << document.docFile.toStdString();
    return document.docFile;
  }
  static QByteArray BytesOf(const ReportDocument& document) {
    QFile file(FileOf(document));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  QStringList FilesIn(const QString& name) const {
    return QDir(folder.filePath(name)).entryList(QDir::Files | QDir::Hidden);
  }
  ReportDocument PrintPdf(TaxMode mode = TaxMode::Included) {
    return Print(BillingKind::Invoice, BillingForm::Pdf, mode, "Ann Able");
  }
  static void ExpectSlipInOnePiece(const std::vector<PdfText>& texts) {
    const auto slip = std::find_if(texts.begin(), texts.end(),
                                   [](const auto& t) { return t.text == "[Please cut here]"; });
    ASSERT_NE(slip, texts.end());
    EXPECT_EQ(slip->page, texts.back().page) << "cut at " << slip->y;
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
  ExpectGolden("invoice-pdf", GoldenLines(InvoiceTexts()));
  ExpectGolden("invoice-less-tax-pdf", GoldenLines(InvoiceTexts(TaxMode::Excluded)));
  ExpectGolden("statement-pdf",
               GoldenLines(TextsOf(
                   FileOf(Print(BillingKind::Statement, BillingForm::Pdf, TaxMode::Included)))));
  ExpectGolden("reminder-pdf", GoldenLines(TextsOf(FileOf(Print(
                                   BillingKind::Reminder, BillingForm::Pdf, TaxMode::Excluded)))));
  ExpectGolden(
      "invoice-word",
      GoldenLines(Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included, "x").pages));
  ExpectGolden(
      "statement-word",
      GoldenLines(Print(BillingKind::Statement, BillingForm::Word, TaxMode::Included).pages));
  ExpectGolden(
      "reminder-word",
      GoldenLines(Print(BillingKind::Reminder, BillingForm::Word, TaxMode::Excluded).pages));
}

TEST_F(BillingDocumentsTest, FilesAreNamedAndShownByForm) {
  Select({AddFullInvoice()});
  const auto relative = [this](const ReportDocument& document) {
    return QDir(folder.path()).relativeFilePath(FileOf(document)).toStdString() + "|" +
           document.docTitle.toStdString();
  };
  EXPECT_EQ(relative(PrintPdf()), "Report Doc/Invoice - Ann Able 09-00-00.pdf|Invoice");
  EXPECT_EQ(relative(Print(BillingKind::Statement, BillingForm::Pdf, TaxMode::Included)),
            "Report Doc/Statement-09-00-00.pdf|Statement");
  const ReportDocument reminder = Print(BillingKind::Reminder, BillingForm::Pdf, TaxMode::Included);
  EXPECT_EQ(relative(reminder), "Report Doc/Reminder-09-00-00.pdf|Reminder");
  EXPECT_EQ(outside.desktop.opened.size(), 3);
  EXPECT_TRUE(outside.desktop.opened[0].startsWith("file:///"));
  EXPECT_TRUE(outside.desktop.opened[0].endsWith("Invoice%20-%20Ann%20Able%2009-00-00.pdf"));
  EXPECT_EQ(
      relative(Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included, "Ann\r\nAble")),
      "Report Doc/Invoice - Ann Able 09-00-00.rtf|Invoice");
  EXPECT_EQ(relative(Print(BillingKind::Statement, BillingForm::Word, TaxMode::Included)),
            "Report Doc/Statement.doc|Statement");
  EXPECT_EQ(relative(Print(BillingKind::Reminder, BillingForm::Word, TaxMode::Included)),
            "Report Doc/Reminder.doc|Reminder");
  EXPECT_EQ(outside.desktop.opened.size(), 3) << "the preview shows the other form";
  EXPECT_TRUE(BytesOf(reminder).contains("/Title (Statement)"));
}

TEST_F(BillingDocumentsTest, APdfOpensInTheChosenViewerWhileThereIsOne) {
  Select({AddFullInvoice()});
  struct Case {
    const char* chosen;
    bool isThere;
  };
  for (const Case& c : {Case{"", false}, Case{"/opt/reader", true}, Case{"/opt/gone", false}}) {
    outside.desktop.opened.clear();
    outside.desktop.startedWith.clear();
    outside.desktop.programsPresent = c.isThere ? QStringList(c.chosen) : QStringList();
    business().values.adobePath = c.chosen;
    const QString file = QDir::toNativeSeparators(FileOf(PrintPdf()));
    EXPECT_EQ(outside.desktop.startedWith, c.isThere ? QStringList(file) : QStringList());
    EXPECT_EQ(outside.desktop.opened.size(), c.isThere ? 0 : 1) << c.chosen;
  }
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
         {PrintPdf(), Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included, "x")}) {
      EXPECT_EQ(document.troubles.size(), 1) << document.docFile.toStdString();
      EXPECT_FALSE(BytesOf(document).contains("INCLUDEPICTURE"));
    }
  }
}

TEST_F(BillingDocumentsTest, AFolderThatCannotBeWrittenIsAnError) {
  Select({AddFullInvoice()});
  places.folder = folder.filePath(QStringLiteral("nowhere/at/all"));
  EXPECT_THROW(PrintPdf(), StorageFailure);
}

TEST_F(BillingDocumentsTest, AFailureLeavesNoHalfOfAFile) {
  Select({AddFullInvoice()});
  const QByteArray whole = BytesOf(PrintPdf());
  const QStringList files = FilesIn("Report Doc");
  outside.desktop.opened.clear();
  // A face that cannot be measured ends the document within its first page.
  places.report.fontFolder = folder.filePath(QStringLiteral("none"));
  EXPECT_THROW(PrintPdf(), PDFError);
  EXPECT_EQ(FilesIn("Report Doc"), files);
  EXPECT_TRUE(outside.desktop.opened.isEmpty());
  QFile older(folder.filePath("Report Doc/" + files.value(0)));
  ASSERT_TRUE(older.open(QIODevice::ReadOnly));
  EXPECT_EQ(older.readAll(), whole);
}

TEST_F(BillingDocumentsTest, AFolderOfItsOwnIsTheOnlyOneThatIsMade) {
  Select({AddFullInvoice()});
  places.folder = folder.filePath(QStringLiteral("out"));
  QDir().mkpath(places.folder);
  PrintPdf();
  Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included, "x");
  EXPECT_EQ(FilesIn("out").size(), 2);
  EXPECT_FALSE(QFile::exists(folder.filePath("Report Doc")));
}

TEST_F(BillingDocumentsTest, NotesOfAnyFontKeepTheirLabelWhole) {
  Select({AddFullInvoice()});
  for (const char* font : {"Arial", "Courier", "Times"}) {
    for (const char* size : {"8", "9.5", "14", "18", "40"}) {
      outside.settings.Write("Reports", "Notes Font", font);
      outside.settings.Write("Reports", "Notes Size", size);
      outside.settings.Write("Reports", "Notes Bold", "1");
      outside.settings.Write("Reports", "Notes Italic", "1");
      const ReportDocument word =
          Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included, "x");
      EXPECT_EQ(Words(word.pages).filter("NOTES:").size(), 1) << font << size;
      const auto& texts = word.pages.pages[0].texts;
      const auto note = std::find_if(texts.begin(), texts.end(), [](const TextRun& run) {
        return run.text.startsWith("The side gate");
      });
      ASSERT_NE(note, texts.end()) << font << size;
      EXPECT_EQ(note->font.size, QString(size).toDouble()) << font;
    }
  }
  outside.settings.Write("Reports", "Notes Size", "9.5");
  const auto texts = InvoiceTexts();
  const auto note = std::find_if(texts.begin(), texts.end(), [](const PdfText& text) {
    return text.text.startsWith("The side gate");
  });
  ASSERT_NE(note, texts.end());
  EXPECT_TRUE(note->font.endsWith(" 9")) << "whole points";
}

TEST_F(BillingDocumentsTest, ALetterheadShowsEveryLineOfTheStreet) {
  Run(Sql("UPDATE infPersonalDetails SET Street = {}", "Level 2\r\nWattlebird Gr"));
  Select({AddFullInvoice()});
  const QString blanks(20, u' ');
  const QStringList words = Words(InvoiceTexts());
  const qsizetype address = words.indexOf("ADDRESS: 12 Level 2");
  ASSERT_GE(address, 0);
  EXPECT_EQ(words.sliced(address + 1, 2),
            QStringList({blanks + "Wattlebird Gr ", blanks + "BLACKBURN 3130"}));
}

TEST_F(BillingDocumentsTest, TheLastStatementIsClosedWhateverItComesTo) {
  const qint64 nothing = AddInvoice(payer, "1", Money(), Money());
  const qint64 other = AddInvoice(tenant, "2", Money(), Money());
  SetFlag("StatementWithPayments", payer);
  SetFlag("StatementWithPayments", tenant);
  for (const qint64 client : {payer, tenant})
    Run(Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES ({}, {}, 5)", client,
            QDate(2026, 10, 12)));
  for (const std::vector<qint64>& chosen : {std::vector{nothing}, std::vector{nothing, other}}) {
    Select(chosen);
    const QStringList pdf =
        Words(TextsOf(FileOf(Print(BillingKind::Statement, BillingForm::Pdf, TaxMode::Included))));
    const QStringList word =
        Words(Print(BillingKind::Statement, BillingForm::Word, TaxMode::Included).pages);
    for (const QStringList& words : {pdf, word}) {
      EXPECT_EQ(words.count("PAYMENTS RECEIVED"), 1);
      EXPECT_EQ(words.filter("Thank you").size(), 1);
      EXPECT_EQ(words.count("Total"), 1) << "that of the payments";
    }
  }
}

TEST_F(BillingDocumentsTest, NoPositionRunsOffThePageOrLosesARow) {
  struct Case {
    const char* name;
    int jobs;
    int sites;
    int noteLines;
    int longWords;  // in descriptions and the account's name, which wrap
    Paper paper = Paper::A4;
  };
  for (const Case& c : {Case{"short", 1, 1, 0, 1}, Case{"sixty jobs", 60, 5, 3, 1},
                        Case{"on Letter", 60, 5, 3, 1, Paper::Letter},
                        Case{"slip at the edge", 22, 1, 2, 1}, Case{"all long", 400, 7, 120, 90}}) {
    Transaction atOnce(business());
    Run(Sql("DELETE FROM Diary"));
    const qint64 invoice = AddInvoice(payer, "7", Money(), Money());
    for (int job = 0; job < c.jobs; ++job) {
      const qint64 site =
          job % c.sites == 0 ? payer : AddClient(QStringLiteral("Site %1").arg(job), payer);
      AddJob(site, QDate(2026, 1, 1).addDays(job), Cents(1000 + job), Cents(job), invoice);
    }
    const QString notes = QStringLiteral("a line of notes\r\n").repeated(c.noteLines);
    const QString words = QStringLiteral("words ").repeated(c.longWords);
    Run(
        Sql("UPDATE Invoices SET Invoice_Notes = {}, Invoice_Description = {} WHERE Invoice_ID = "
            "{}",
            notes, words, invoice));
    Run(Sql("UPDATE infPersonalDetails SET Account_Name = {}", words.first(words.size() / 2)));
    Select({invoice});
    atOnce.Commit();
    places.report.paper = c.paper;
    const double foot = c.paper == Paper::Letter ? 26.8 : 28.6;
    const auto texts = InvoiceTexts();
    for (const PdfText& text : texts) {
      EXPECT_TRUE(text.y > 0.9 && text.y < foot && text.x >= 1 && text.x < 20)
          << c.name << ": " << text.text.toStdString();
    }
    const QStringList shown = Words(texts);
    const QStringList pages =
        Words(Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included, "x").pages);
    for (int job = 0; job < c.jobs; ++job) {
      const QString price = Cents(1000 + job).ToCurrencyText();
      EXPECT_TRUE(shown.contains(price)) << c.name << " " << job;
      EXPECT_TRUE(pages.contains(price)) << c.name << " " << job;
    }
    EXPECT_EQ(shown.count("a line of notes"), c.noteLines) << c.name;
    EXPECT_EQ(shown.count("REMITTANCE SLIP:"), 1) << c.name;
    if (c.jobs >= 60) {
      EXPECT_GT(shown.count("Service"), 1) << "headings of further pages";
      EXPECT_TRUE(!shown.filter("Invoice No: 7 (continued) - ").isEmpty());
    }
    ExpectSlipInOnePiece(texts);
  }
}

TEST_F(BillingDocumentsTest, ASlipWhoseLinesWrapIsNotCutInTwo) {
  const QString words = QStringLiteral("words ").repeated(60);
  Select({AddInvoice(payer, "1", Money(), Money())});
  Run(Sql("UPDATE Invoices SET Invoice_Description = {}", words));
  Run(Sql("UPDATE infPersonalDetails SET Company_Name = {}, Account_Name = {}", words, words));
  for (int lines = 0; lines < 30; ++lines) {
    Run(Sql("UPDATE Invoices SET Invoice_Notes = {}", QStringLiteral("note\n").repeated(lines)));
    ExpectSlipInOnePiece(InvoiceTexts());
  }
}

TEST_F(BillingDocumentsTest, PaperIsThatOfThePrinterUnlessItIsTooSmall) {
  Select({AddFullInvoice()});
  struct Case {
    Paper printer;
    Paper used;
    const char* box;
  };
  for (const Case& c :
       {Case{Paper::A3, Paper::A3, "841.89 1190.55]"}, Case{Paper::A5, Paper::A4, "595.28 841.89]"},
        Case{Paper::Legal, Paper::Legal, "612.00 1008.00]"}}) {
    places.report.paper = c.printer;
    EXPECT_TRUE(BytesOf(PrintPdf()).contains(c.box)) << c.box;
    const ReportDocument word =
        Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included, "x");
    EXPECT_EQ(word.pages.setup.paper, c.used) << c.box;
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
         {Print(BillingKind::Invoice, BillingForm::Pdf, TaxMode::Included, text),
          Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Excluded, text)}) {
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

TEST_F(BillingDocumentsTest, TheSlipForTheWordProcessorStaysInOnePiece) {
  const qint64 invoice = AddFullInvoice();
  for (const int terms : {1, 12, 26, 40}) {
    Run(Sql("UPDATE infOptions SET TermsOfTrade = {}",
            QStringList(terms, "Please pay [AMOUNT].").join("\r\n")));
    Select({invoice});
    const ReportDocument made = Print(BillingKind::Invoice, BillingForm::Word, TaxMode::Included);
    int pagesOfSlip = 0;
    for (const Page& page : made.pages.pages) {
      bool holds = false;
      for (const TextRun& run : page.texts) {
        holds = holds || run.text == "[Please cut here]" || run.text == "Please pay $253.50.";
        EXPECT_LE(run.top, made.pages.setup.Height() - 280) << run.text.toStdString();
      }
      pagesOfSlip += holds ? 1 : 0;
    }
    EXPECT_EQ(pagesOfSlip, 1) << terms << " lines of terms";
    const QByteArray rtf = BytesOf(made);
    EXPECT_EQ(rtf.count("\\trkeep"), rtf.count("\\trowd")) << "a row is cut by no page";
    EXPECT_TRUE(rtf.contains("\\jpegblip")) << "the logo for who does not follow its link";
  }
}

TEST_F(BillingDocumentsTest, WithoutAViewerThePathIsTold) {
  Select({AddFullInvoice()});
  outside.desktop.hasViewer = false;
  const ReportDocument made = PrintPdf();
  ASSERT_EQ(made.troubles.size(), 1);
  EXPECT_TRUE(made.troubles[0].contains(made.docFile)) << made.troubles[0].toStdString();
}

TEST_F(BillingDocumentsTest, ANameStandsAsItIsWrittenAndOneThatCannotIsTold) {
  const qint64 invoice = AddInvoice(payer, "1", Money(), Money());
  const QString name = QStringLiteral("Café Nguyễn 樹");
  Run(Sql("UPDATE Invoices SET Made_Out_To = {}", name));
  Select({invoice});
  const ReportDocument shown = PrintPdf();
  EXPECT_EQ(shown.troubles, QStringList());
  if (const auto text = Ask("pdftotext", {FileOf(shown), "-"})) {
    EXPECT_TRUE(text->contains(name)) << text->toStdString();
  }
  const char32_t cuneiform = 0x12000;
  Run(Sql("UPDATE Invoices SET Made_Out_To = {}", "Ann " + QString::fromUcs4(&cuneiform, 1)));
  const QStringList told = PrintPdf().troubles;
  ASSERT_EQ(told.size(), 1);
  EXPECT_TRUE(told[0].contains("Ann " + QString::fromUcs4(&cuneiform, 1))) << told[0].toStdString();
}

TEST_F(BillingDocumentsTest, ALongNameOfAnotherScriptBreaksWithinItsColumn) {
  const PageFonts fonts(places.report.fontFolder);
  const PageFont font{.size = 8};
  for (const char* text :
       {"Nguyễn Thị Hồng Phúc and family of the old garden", "山本山本山本山本山本"}) {
    for (const double width : {900.0, 1500.0}) {
      for (const QString& line : fonts.Wrap(QString::fromUtf8(text), font, width))
        EXPECT_LE(fonts.WidthOf(line, font), width) << line.toStdString();
    }
  }
}

TEST(InvoiceFileNameTest, IsCutBetweenCharactersAndHoldsTheTime) {
  const DateTime moment(QDate(2026, 11, 2), QTime(14, 7, 9));
  EXPECT_EQ(InvoiceFileName("Ann: \"A/B\"?\r\n50%", moment), "Invoice - Ann \"AB\"  50- 14-07-09");
  EXPECT_EQ(InvoiceFileName("", moment), "Invoice -  14-07-09");
  const QString flag = QString::fromUtf8("\xF0\x9F\x87\xA6\xF0\x9F\x87\xBA");  // one of two letters
  const QString name = InvoiceFileName(flag.repeated(60), moment);
  const qsizetype ending = QByteArray(".pdf.01234567.tmp").size();
  EXPECT_LE(name.toUtf8().size() + ending, 255);
  EXPECT_GT(name.toUtf8().size() + ending, 255 - 8);
  EXPECT_EQ((name.toUtf8().size() - QByteArray("Invoice -  14-07-09").size()) % 8, 0);
}

}  // namespace
}  // namespace quillary::documents
