#include "PageFixture.h"
#include "documents/reports/ReportOfList.h"
#include "support/BusinessTest.h"

#include <QDir>

namespace quillary::documents {
namespace {

class ReportTest : public BusinessTest {
 protected:
  ReportPlaces Places() const {
    return {.applicationFolder = folder.path(),
            .fontFolder = QStringLiteral(QUILLARY_BIN "/Fonts")};
  }
  static QByteArray FileOf(const ReportDocument& report) {
    QFile file(report.docFile);
    if (!file.open(QIODevice::ReadOnly)) ADD_FAILURE() << report.docFile.toStdString();
    return file.readAll();
  }
  ReportDocument Letter(const QString& name) {
    Report report(business(), Places());
    report.StartDocument(name);
    report.ImportPicture();
    report.DrawPict(report.Logo(), 1000);
    report.DrawPict(report.Logo(), 1000);
    report.DrawLineRTF(500, 10, 100, 20);
    return report.EndDocument();
  }
};

TEST_F(ReportTest, AReportWithoutRowsIsTitledAndWritten) {
  Report report(business(), Places());
  report.StartDocument("Bad Debtor.doc");
  report.StoreHeadings("BAD DEBTORS LIST", "All dates");
  report.StartTable("<+2in|>+1in").AddHeader({"Client", "Amount"});
  const double before = report.Page().CurrentY();
  report.EndTable();
  EXPECT_NEAR(report.Page().CurrentY() - before, 150 + 8 * 20 * 1.15 + 30, 0.01);
  report.StoreBreak();
  const ReportDocument done = report.EndDocument();
  EXPECT_EQ(TextsOf(done.pages.pages[0]),
            QStringList({"BAD DEBTORS LIST", "All dates", "Print date: Mon 02-Nov-2026", "Client",
                         "Amount"}));
  EXPECT_TRUE(FileOf(done).contains("BAD DEBTORS LIST"));
  EXPECT_TRUE(done.docFile.endsWith("/Report Doc/Bad Debtor.doc"));
  EXPECT_EQ(done.note,
            "This report has automatically been exported to an MS Word Compatible file with "
            "filename " +
                QDir::toNativeSeparators(done.docFile).toUpper() + ".");
  EXPECT_TRUE(done.troubles.isEmpty());
}

TEST_F(ReportTest, AMissingLogoIsToldOnceAndNotLinked) {
  business().values.divisionName = "La{w}ns";
  const ReportDocument done = Letter("Invoice.rtf");
  ASSERT_EQ(done.troubles.size(), 1);
  EXPECT_TRUE(done.troubles[0].contains("La{w}ns.jpg")) << done.troubles[0].toStdString();
  const QByteArray rtf = FileOf(done);
  EXPECT_FALSE(rtf.contains("INCLUDEPICTURE"));
  EXPECT_TRUE(
      rtf.contains("{\\shp{\\shpleft100\\shptop10\\shpright500\\shpbottom20"
                   "{\\sp{\\sn shapeType}{\\sv 20}}{\\sp{\\sn fFlipH}{\\sv 1}}"
                   "{\\sp{\\sn fFlipV}{\\sv 0}}"));
}

TEST_F(ReportTest, ALogoKeepsItsShapeAndIsLinked) {
  business().values.divisionName = "La{w}ns";
  ASSERT_TRUE(QDir(folder.path()).mkdir("Files"));
  ASSERT_TRUE(QFile::copy(QStringLiteral(QUILLARY_TEST_DATA "/../pdf/data/rgb.jpg"),
                          folder.filePath("Files/La{w}ns.jpg")));
  const ReportDocument done = Letter("Invoice.rtf");
  ASSERT_EQ(done.pages.pages[0].pictures.size(), 2u);
  const PagePicture second = done.pages.pages[0].pictures[1];  // 60 x 40 pixels
  EXPECT_NEAR(second.width, 1500, 0.01);
  EXPECT_NEAR(second.y, 725 + 1000, 0.01);
  EXPECT_TRUE(done.troubles.isEmpty());
  const QByteArray rtf = FileOf(done);
  EXPECT_TRUE(rtf.contains("{\\field{\\*\\fldinst { INCLUDEPICTURE \""));
  EXPECT_TRUE(rtf.contains(
      "/Files/La\\{w\\}ns.jpg\" \\\\* MERGEFORMATINET \\\\d }}{\\fldrslt {\\pict\\jpegblip"));
}

TEST_F(ReportTest, AFileThatCannotBeWrittenIsTold) {
  ASSERT_TRUE(QDir(folder.path()).mkpath("Report Doc/Invoice.rtf"));  // a folder in its place
  const ReportDocument done = Letter("Invoice.rtf");
  ASSERT_EQ(done.troubles.size(), 2);
  EXPECT_TRUE(done.troubles[1].contains("could not be written")) << done.troubles[1].toStdString();
  EXPECT_EQ(done.note, done.troubles[1]);
}

TEST_F(ReportTest, HeaderStringsAreReadFromTheBusiness) {
  Run(Sql("DELETE FROM infPersonalDetails"));
  EXPECT_EQ(SetHeaderVariable(business()).contact, " ");
  Run(
      Sql("INSERT INTO infPersonalDetails (Company_Name, First_Name, Surname, Street_Number, "
          "Street, Suburb, Post_Code, Phone_1, Phone_2, Email, ABN, Account_Name, Country_ID) "
          "VALUES ('Able Homes', 'Ann', 'Able', '1', 'Low St', 'Hill', '3000', '111', '222', "
          "'a@b.c', '99', ' Able ', 4711)"));
  const HeaderStrings header = SetHeaderVariable(business());
  EXPECT_EQ(header.contact, "Ann Able");
  EXPECT_EQ(header.address, "1 Low St \r\n" + QString(19, u' ') + "Hill 3000");
  EXPECT_EQ(header.plainAddress, "1 Low St \r\nHill 3000");
  EXPECT_EQ(header.phone, "111 or 222");
  EXPECT_EQ(header.emailLine, "EMAIL: a@b.c\r\n");
  EXPECT_EQ(header.faxLine, "");
  EXPECT_EQ(header.accountName, "Able");
  EXPECT_EQ(header.taxLine, " 99");  // a country that is not listed has no word for it
}

TEST_F(ReportTest, AListIsLaidOutByWhatItHolds) {
  PrintList list{
      .title = "Debtors: a/b", .headings = {"Client", "Suburb", "Post code", "Owing"}, .rows = {}};
  for (int i = 0; i < 300; ++i)
    list.rows.push_back({QString("Client | no %1").arg(i), "Hill", "3000", "$1,234.50"});
  const ReportDocument done = ComposeList(business(), Places(), list);
  EXPECT_TRUE(done.docFile.endsWith("/Debtors ab.doc")) << done.docFile.toStdString();
  EXPECT_FALSE(done.pages.setup.landscape);
  QStringList clients;
  for (const Page& page : done.pages.pages) clients += TextsOf(page).filter("Client | no");
  EXPECT_EQ(clients.size(), 300);
  const auto& table = std::get<TableBlock>(done.pages.blocks[3]).table;
  EXPECT_EQ(table.Columns()[2].align, Align::Left);
  EXPECT_EQ(table.Columns()[3].align, Align::Right);
  for (PrintList odd : {PrintList{}, PrintList{.title = "?", .headings = {}, .rows = {{"a"}, {}}}})
    EXPECT_EQ(ComposeList(business(), Places(), odd).pages.pages.size(), 1u);
}

TEST_F(ReportTest, AWideListLiesOnItsSideAndWraps) {
  PrintList list{.title = "Jobs", .headings = {}, .rows = {}};
  for (int i = 0; i < 14; ++i) list.headings.append(QString("Heading %1").arg(i));
  QStringList row(14, QString("some words "));
  row[3] = QString("long ").repeated(300);
  list.rows.push_back(row);
  const ReportDocument done = ComposeList(business(), Places(), list);
  EXPECT_TRUE(done.pages.setup.landscape);
  Composition body = done.pages;
  body.pages.SetFooter({});  // it lies in the margin
  ExpectTidy(body);
}

}  // namespace
}  // namespace quillary::documents
