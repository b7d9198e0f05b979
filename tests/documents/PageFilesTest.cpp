#include "PageFixture.h"
#include "documents/forms/Csv.h"
#include "documents/forms/Pdf.h"
#include "pdf/PDFTypes.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace quillary::documents {
namespace {

const DateTime kNow(QDate(2026, 11, 2), QTime(9, 5));

TEST(Csv, QuotesWhatNeedsIt) {
  Composer composer(TestFonts(), {});
  Table table("<+1in|<+1in|>+1in");
  table.AddHeader({"Client", "Note", "Owing"});
  table.AddRow({"Able, Ann", "says \"hi\"", "-$5.00"});
  table.AddRow({"two\r\nlines", "=HYPERLINK(\"x\")", "+61 2 9000 0000"});
  table.AddRow({"@SUM(A1)", "-x", "($3.00)"});
  table.AddRow({"Zoë", "", "1"}).Span(0, 2);
  composer.AddText("no table");
  composer.AddTable(table);
  Table second("<+1in");
  second.AddRow({"x"});
  composer.AddTable(second);
  EXPECT_EQ(WriteCsv(composer.Finish({})),
            QByteArray("\xEF\xBB\xBF"
                       "Client,Note,Owing\r\n"
                       "\"Able, Ann\",\"says \"\"hi\"\"\",-$5.00\r\n"
                       "\"two\r\nlines\",\"'=HYPERLINK(\"\"x\"\")\",+61 2 9000 0000\r\n"
                       "'@SUM(A1),'-x,($3.00)\r\n"
                       "Zo\xC3\xAB,,1\r\n"
                       "\r\n"
                       "x\r\n"));
}

Composition ThreePages() {
  Composer composer(TestFonts(), {.landscape = true});
  composer.SetBold(true);
  composer.SetItalic(true);
  composer.AddText("Heading (of all) \\ pages");
  composer.SetFont({.size = 8.5});
  Table table("<+3in|>+1in");
  table.AddHeader({"Client", "Amount"});
  for (int i = 0; i < 120; ++i) table.AddRow({QString("Client no %1").arg(i), "$1,234.50"});
  composer.AddTable(table);
  composer.AddPicture({.file = "/no/such/logo.jpg", .x = 1000, .y = 1000, .width = 9, .height = 9});
  return composer.Finish("Clients – 2026");
}

TEST(Pdf, OtherReadersTakeThePages) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("Größe.pdf");
  const Composition document = ThreePages();
  ASSERT_EQ(document.pages.size(), 3u);
  WritePdf(document, file, kNow);
  int exitCode = 0;
  if (const auto said = Ask("qpdf", {"--check", file}, &exitCode)) {
    EXPECT_EQ(exitCode, 0) << said->toStdString();
  }
  if (const auto info = Ask("pdfinfo", {file})) {
    EXPECT_TRUE(info->contains(QRegularExpression("Pages: +3"))) << info->toStdString();
    EXPECT_TRUE(info->contains(QRegularExpression("Page size: +841.9 x 595.3")))
        << info->toStdString();
    EXPECT_TRUE(info->contains("Clients – 2026")) << info->toStdString();
    EXPECT_TRUE(info->contains(kNow.time.toString("HH:mm:ss"))) << info->toStdString();
  }
  if (const auto text = Ask("pdftotext", {"-layout", file, "-"})) {
    EXPECT_TRUE(text->contains("Heading (of all) \\ pages"));
    EXPECT_EQ(text->count("Client no "), 120);
    EXPECT_EQ(text->count(QRegularExpression("Client +Amount")), 3);
    EXPECT_TRUE(text->contains(QRegularExpression("Client no 119 +\\$1,234.50")));
  }
}

TEST(Pdf, AFailureKeepsTheOlderFile) {
  const QTemporaryDir folder;
  EXPECT_THROW(WritePdf(ThreePages(), folder.filePath("no/such/folder.pdf"), kNow), StorageFailure);
  const QString file = folder.filePath("report.pdf");
  QFile older(file);
  ASSERT_TRUE(older.open(QIODevice::WriteOnly));
  older.write("older");
  older.close();
  Composition document = ThreePages();
  document.fonts = std::make_shared<const PageFonts>(folder.path());  // without metrics
  EXPECT_THROW(WritePdf(document, file, kNow), PDFError);
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"report.pdf"});
  ASSERT_TRUE(older.open(QIODevice::ReadOnly));
  EXPECT_EQ(older.readAll(), "older");
}

}  // namespace
}  // namespace quillary::documents
