#include "base/ports/requests/Billing.h"
#include "gui/DeskTest.h"

#include <QDir>
#include <QUrl>

namespace quillary {
namespace {

/// Prints invoices, statements and reminders from the real main window, by keys.
class PrintingTest : public DeskTest {
 protected:
  void SetUp() override {
    qputenv("QUILLARY_HOME", folder.path().toUtf8());
    DeskTest::SetUp();
  }
  Screen* InvoiceList() {
    Command("mnuInvoicesList")->trigger();
    return Find<Screen>(&Window(), "frmInvoicesList");
  }
  QStringList Printed(const QString& pattern) const {
    return QDir(folder.filePath("Report Doc")).entryList({pattern}, QDir::Files);
  }
  QByteArray StartOf(const QString& name) const {
    QFile file(folder.filePath("Report Doc/" + name));
    return file.open(QIODevice::ReadOnly) ? file.read(5) : QByteArray("(none)");
  }
};

struct Document {
  const char* what;
  Qt::Key letter;
  const char* wordFile;
  const char* pdfFile;
};
const Document kDocuments[] = {
    {"invoices", Qt::Key_P, "Invoice - True *.rtf", "Invoice - True *.pdf"},
    {"statements", Qt::Key_T, "Statement.doc", "Statement-*.pdf"},
    {"reminders", Qt::Key_M, "Reminder.doc", "Reminder-*.pdf"},
};

TEST_F(PrintingTest, TheTickedInvoicesComeOutInBothForms) {
  Screen* list = InvoiceList();
  auto* from = Find<QLineEdit>(list, "dtFrom");
  from->setFocus();
  from->selectAll();
  Keys("1/10/2026");
  PressAlt(list, Qt::Key_L);
  const auto* grid = Find<Grid>(list, "fgInvoices");
  ASSERT_GT(grid->model()->rowCount(), 1);
  Find<Grid>(list, "fgInvoices")->SelectFirst();
  Find<Grid>(list, "fgInvoices")->setFocus();
  Key(Qt::Key_Space);
  const QString totals = Find<QLabel>(list, "lblTotals")->text();
  EXPECT_TRUE(totals.endsWith("1 ticked")) << totals.toStdString();

  for (const Document& document : kDocuments) {
    PressAlt(InvoiceList(), document.letter);
    const QStringList files = Printed(document.wordFile);
    ASSERT_EQ(files.size(), 1) << document.what;
    EXPECT_TRUE(StartOf(files.front()).startsWith("{\\rtf")) << document.what;
    EXPECT_TRUE(Find<Screen>(&Window(), "frmReportViewer")->isVisible()) << document.what;
    EXPECT_EQ(Find<QLabel>(list, "lblTotals")->text(), totals)
        << "the ticks wait for the next document";
  }

  program->OpenBusiness().values.invoicePrintingFormat = "PDF";
  for (const Document& document : kDocuments) {
    PressAlt(InvoiceList(), document.letter);
    const QStringList files = Printed(document.pdfFile);
    ASSERT_EQ(files.size(), 1) << document.what;
    EXPECT_EQ(StartOf(files.front()), "%PDF-") << document.what;
    ASSERT_FALSE(outside.desktop.opened.isEmpty());
    EXPECT_TRUE(QUrl(outside.desktop.opened.back()).fileName() == files.front()) << document.what;
  }
}

TEST_F(PrintingTest, WithNothingTickedNothingIsWritten) {
  for (const Document& document : kDocuments) {
    PressAlt(InvoiceList(), document.letter);
    const QStringList told = outside.prompter.TakeTold();
    ASSERT_EQ(told.size(), 1) << document.what;
    EXPECT_TRUE(told[0].startsWith("There is nothing to print.")) << told[0].toStdString();
    EXPECT_EQ(Printed(document.wordFile).size(), 0) << document.what;
  }
}

TEST_F(PrintingTest, AnInvoiceIsStoredAndPrintedFromItsScreen) {
  const Recordset job = Run(Sql(
      "SELECT MIN(Diary_ID) AS first FROM Diary WHERE Status = 'JI' AND Invoice_ID IS NOT NULL"));
  const Recordset invoice =
      Run(Sql("SELECT Invoices.* FROM Invoices INNER JOIN Diary ON Invoices.Invoice_ID = "
              "Diary.Invoice_ID WHERE Diary_ID = {}",
              job.Field(size_t{0})));
  ASSERT_TRUE(invoice.HasRows());
  Then("frmInvoice", [&](QDialog& screen) {
    auto* description = Find<QLineEdit>(&screen, "txtInvoiceDescription");
    description->setFocus();
    description->selectAll();
    Keys("SPRING CLEAN");
    bool isSeen = false;
    Then("wndReportPreview", [&](QDialog& preview) {
      isSeen = Find<Screen>(&preview, "frmReportViewer")->isVisible() && preview.isActiveWindow();
      preview.accept();
    });
    PressAlt(&screen, Qt::Key_I);
    EXPECT_TRUE(isSeen) << "the preview opens before the dialog that asked for it";
  });
  navigator.Open(EditInvoice{Id<Invoice>(invoice.Field(u"Invoice_ID").ToLong())});
  EXPECT_EQ(Run(Sql("SELECT Invoice_Description FROM Invoices WHERE Invoice_ID = {}",
                    invoice.Field(u"Invoice_ID")))
                .Field(size_t{0})
                .ToText(),
            "SPRING CLEAN");
  EXPECT_EQ(Printed("Invoice - *.rtf").size(), 1);
}

}  // namespace
}  // namespace quillary
