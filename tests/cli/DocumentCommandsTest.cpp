#include "CompanionFixture.h"

#include <QDir>
#include <QFileInfo>

namespace quillary::cli {
namespace {

class DocumentCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    file = Path("DATA.MDB");
    Done({"demo", file, "--clients", "30", "--months", "3"});
    ASSERT_TRUE(QDir(folder.path()).mkdir("Files"));
    Write("Files/Gardens.jpg", Bytes(QUILLARY_TEST_DATA "/../pdf/data/rgb.jpg"));
    invoice = QString::number(
        Field(file, "SELECT MAX(Invoice_ID) FROM Invoices WHERE Total_GST > 0").toInt());
  }
  QStringList Order(const QString& kind, const QStringList& more = {}) const {
    return QStringList{"document", file, kind, "--out", Path("out")} + more;
  }

  QString file;
  QString invoice;
};

TEST_F(DocumentCommandsTest, EachDocumentComesOutInBothFormsWhereItWasAskedFor) {
  struct Case {
    const char* kind;
    const char* format;
    const char* begins;
    const char* name;
  };
  for (const Case& c : {Case{"invoice", "pdf", "%PDF-", "Invoice - "},
                        Case{"invoice", "word", "{\\rtf", "Invoice - "},
                        Case{"statement", "pdf", "%PDF-", "Statement-"},
                        Case{"statement", "word", "{\\rtf", "Statement.doc"},
                        Case{"reminder", "pdf", "%PDF-", "Reminder-"},
                        Case{"reminder", "word", "{\\rtf", "Reminder.doc"}}) {
    const QString path = Done(Order(c.kind, {"--invoices", invoice, "--format", c.format}))
                             .trimmed()
                             .section('\n', -1);
    EXPECT_EQ(QFileInfo(path).absolutePath(), Path("out")) << path.toStdString();
    EXPECT_TRUE(QFileInfo(path).fileName().startsWith(c.name)) << path.toStdString();
    EXPECT_TRUE(Bytes(path).startsWith(c.begins)) << path.toStdString();
  }
}

TEST_F(DocumentCommandsTest, DesignAndPaperAreThoseAskedFor) {
  const auto bytes = [&](const QStringList& more) {
    return Bytes(Done(Order("invoice", QStringList{"--invoices", invoice} + more)).trimmed());
  };
  EXPECT_TRUE(bytes({"--design", "clean"}).contains("(REMITTANCE SLIP) Tj"));
  EXPECT_TRUE(bytes({"--design", "classic"}).contains("(REMITTANCE SLIP:) Tj"));
  EXPECT_TRUE(bytes({}).contains("(REMITTANCE SLIP:) Tj")) << "a business that sends invoices";
  Done({"settings", file, "Document Design", "CLEAN"});
  EXPECT_TRUE(bytes({}).contains("(REMITTANCE SLIP) Tj"));
  EXPECT_TRUE(bytes({"--paper", "letter"}).contains("[ 0 0 612.00 792.00]"));
  EXPECT_EQ(Run(Order("invoice", {"--invoices", invoice, "--paper", "a9"})).exitCode, 2);
  EXPECT_EQ(Run(Order("invoice", {"--invoices", invoice, "--design", "new"})).exitCode, 2);
}

TEST_F(DocumentCommandsTest, TheCountryDecidesSignAndPaper) {
  struct Case {
    const char* country;
    const char* sign;
    const char* paper;
  };
  constexpr const char* kA4 = "[ 0 0 595.28 841.89]";
  constexpr const char* kLetter = "[ 0 0 612.00 792.00]";
  const QString price = QString::number(
      Field(file, "SELECT Total_Amount FROM Invoices WHERE Invoice_ID = " + invoice).toDouble(),
      'f', 2);
  for (const Case& c : {Case{"UK", "£", kA4}, Case{"Canada", "$", kLetter},
                        Case{"U.S.", "$", kLetter}, Case{"New Zealand", "$", kA4}}) {
    SCOPED_TRACE(c.country);
    const int country =
        Field(file, QStringLiteral("SELECT Country_ID FROM Countries WHERE Country_Name = '%1'")
                        .arg(c.country))
            .toInt();
    Done({"settings", file, "Country_ID", QString::number(country)});
    const QByteArray pdf =
        Bytes(Done(Order("invoice", {"--invoices", invoice, "--design", "classic"})).trimmed());
    EXPECT_TRUE(pdf.contains(c.paper));
    const QByteArray sum =
        QString(QLatin1String("(") + QString::fromUtf8(c.sign) + price).toLatin1();
    EXPECT_TRUE(pdf.contains(sum)) << sum.toStdString();
    const QString report = Done({"report", file, "payments", "--from", "2026-08-01", "--to",
                                 "2026-10-31", "--format", "text", "--out", Path("out")});
    EXPECT_TRUE(QString::fromUtf8(Bytes(report.trimmed())).contains(QString::fromUtf8(c.sign)));
    EXPECT_EQ(QString::fromUtf8(Bytes(report.trimmed())).contains(u'$'), *c.sign == '$');
  }
}

TEST_F(DocumentCommandsTest, AFileThatCannotBeWrittenIsAFailure) {
  ASSERT_TRUE(QDir(folder.path()).mkpath("out/Statement.doc/in the way"));
  const Result result = Run(Order("statement", {"--invoices", invoice, "--format", "word"}));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(result.err.contains("Statement.doc")) << result.err.toStdString();
}

TEST_F(DocumentCommandsTest, AMissingLogoIsToldBesideThePath) {
  QFile::remove(Path("Files/Gardens.jpg"));
  const Result result = Run(Order("invoice", {"--invoices", invoice}));
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(result.err.contains("Gardens.jpg was not found")) << result.err.toStdString();
  EXPECT_EQ(result.out.count('\n'), 1) << "a script reads the path and nothing else";
}

TEST_F(DocumentCommandsTest, WithoutTaxTheTotalIsLess) {
  const QString whole = Done(Order("invoice", {"--invoices", invoice})).trimmed().section('\n', -1);
  const QByteArray with = Bytes(whole);
  const QString less =
      Done(Order("invoice", {"--invoices", invoice, "--exclude-tax"})).trimmed().section('\n', -1);
  EXPECT_TRUE(with.contains("INVOICE TOTAL \\(GST inc.\\) : $"));
  EXPECT_TRUE(Bytes(less).contains("INVOICE TOTAL : $"));
}

TEST_F(DocumentCommandsTest, AStaleBalanceIsRecomputedWhereTheOwnerWantsThat) {
  for (const bool wanted : {false, true}) {
    Done({"sql", file,
          QStringLiteral("UPDATE infOptions SET RecalculateClientAmtsOwingOnPrint = %1")
              .arg(wanted ? "True" : "False")});
    Done(
        {"sql", file, "UPDATE Clients SET Account_Balance = -9999, InvoiceWithOutstanding = True"});
    const QString path = Done(Order("invoice", {"--invoices", invoice})).trimmed();
    EXPECT_EQ(Bytes(path.section('\n', -1)).contains("$9,999.00"), !wanted);
  }
}

TEST_F(DocumentCommandsTest, TheLogoIsThatOfTheDivision) {
  Write("Files/Night gardens.jpg", Bytes(QUILLARY_TEST_DATA "/../pdf/data/rgb.jpg"));
  Done({"sql", file, "UPDATE Divisions SET Division_Name = 'Night gardens'"});
  const auto bytes = [&](const char* format) {
    const QString out = Done(Order("invoice", {"--invoices", invoice, "--format", format}));
    EXPECT_FALSE(out.contains("without it")) << out.toStdString();
    return Bytes(out.trimmed().section('\n', -1));
  };
  EXPECT_TRUE(bytes("pdf").contains("/Subtype /Image"));
  EXPECT_TRUE(bytes("word").contains("/Night gardens.jpg"));
  EXPECT_FALSE(QFileInfo::exists(Path("Report Doc"))) << "the files go elsewhere";
}

TEST_F(DocumentCommandsTest, WhatCannotBeIsToldAndWritesNothing) {
  struct Case {
    QStringList order;
    int exitCode;
    const char* told;
  };
  const Case cases[] = {
      {Order("invoice", {"--invoices", invoice + ",99998,99999"}), 1, "99998, 99999"},
      {Order("invoice", {"--invoices", ","}), 2, "--invoices"},
      {Order("invoice"), 2, "--invoices"},
      {Order("invoice", {"--invoices", "x"}), 2, "x"},
      {Order("receipt", {"--invoices", invoice}), 2, "receipt"},
      {Order("invoice", {"--invoices", invoice, "--format", "html"}), 2, "pdf or word"},
      {{"document", file, "invoice", "--invoices", invoice}, 2, "--out"},
      {Order("statement", {"--invoices", invoice, "--from", "2026-10-31", "--to", "2026-10-01"}), 1,
       "before its first"},
      {{"document", file, "invoice", "--invoices", invoice, "--out", file + "/below"},
       1,
       "cannot be made"}};
  for (const Case& c : cases) {
    const Result result = Run(c.order);
    EXPECT_EQ(result.exitCode, c.exitCode) << c.order.join(" ").toStdString();
    EXPECT_TRUE(result.err.contains(c.told)) << result.err.toStdString();
    EXPECT_EQ(result.out, "") << c.order.join(" ").toStdString();
  }
  EXPECT_FALSE(QFileInfo::exists(Path("out")));
}

}  // namespace
}  // namespace quillary::cli
