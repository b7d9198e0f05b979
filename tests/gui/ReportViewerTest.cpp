#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "documents/screens/DocumentScreens.h"
#include "documents/screens/PagePrinting.h"
#include "documents/screens/frmReportViewer.h"
#include "gui/ScreenFixture.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPrinter>
#include <QSpinBox>
#include <QTimer>

namespace quillary {
namespace {

class ReportViewerTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    qputenv("QUILLARY_HOME", folder.path().toUtf8());
    documents::RegisterDocumentScreens(business(), {navigator, host, runner});
  }
  static PrintList ManyClients() {
    PrintList list{.title = "Clients", .headings = {"Client", "Owing"}, .rows = {}};
    for (int i = 1; i <= 300; ++i) list.rows.push_back({QString("Client %1.").arg(i), "$5.00"});
    return list;
  }
  documents::frmReportViewer& OpenViewer() {
    auto& viewer = dynamic_cast<documents::frmReportViewer&>(OpenTab(ManyClients()));
    viewer.resize(1000, 600);
    viewer.show();
    QTest::qWait(1);
    return viewer;
  }
  /// Answers the file dialog that the button opens.
  static void SaveUnder(QWidget& viewer, const char* button, const QString& file) {
    QTimer::singleShot(0, &viewer, [file] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      Find<QLineEdit>(dialog, "fileNameEdit")->setText(file);
      dialog->setResult(QDialog::Accepted);
      QMetaObject::invokeMethod(dialog, "accept");
    });
    ClickOn(&viewer, button);
  }
  QByteArray Bytes(const QString& name) const {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
};

TEST_F(ReportViewerTest, APrintedListIsShownAndItsFileNamed) {
  documents::frmReportViewer& viewer = OpenViewer();
  EXPECT_EQ(viewer.windowTitle(), "Report Preview");
  const QString file = folder.filePath("Report Doc/Clients.doc");
  EXPECT_TRUE(QFile::exists(file));
  EXPECT_TRUE(Find<QLabel>(&viewer, "lblNote")->text().endsWith(file.toUpper() + "."));
  EXPECT_EQ(Find<documents::PagePreview>(&viewer, "vsPr")->Zoom(), 100);
  EXPECT_EQ(Find<QComboBox>(&viewer, "cmbZoom")->currentText(), "100 %");
  EXPECT_TRUE(Find<QPushButton>(&viewer, "cmdEmailFileAsAttachment")->isHidden());
}

TEST_F(ReportViewerTest, LeafsThroughPages) {
  documents::frmReportViewer& viewer = OpenViewer();
  auto* page = Find<QSpinBox>(&viewer, "spnPage");
  auto* preview = Find<documents::PagePreview>(&viewer, "vsPr");
  const int last = static_cast<int>(viewer.Shown().pages.pages.size());
  ASSERT_GT(last, 3);
  EXPECT_FALSE(Find<QPushButton>(&viewer, "cmdPreviousPage")->isEnabled());
  ClickOn(&viewer, "cmdNextPage");
  EXPECT_EQ(page->value(), 2);
  QTest::keyClick(preview, Qt::Key_End);
  EXPECT_EQ(page->value(), last);
  EXPECT_FALSE(Find<QPushButton>(&viewer, "cmdNextPage")->isEnabled());
  page->setFocus();
  page->selectAll();
  QTest::keyClicks(page, "3");
  QTest::keyClick(page, Qt::Key_Return);
  EXPECT_EQ(preview->CurrentPage(), 2);
  ClickOn(&viewer, "cmdZoomIn");
  EXPECT_EQ(preview->Zoom(), 125);
  EXPECT_EQ(preview->CurrentPage(), 2);
  auto* zoom = Find<QComboBox>(&viewer, "cmbZoom");
  for (const auto& [typed, percent] : {std::pair{"60", 60}, {"nonsense", 60}, {"9999 %", 400}}) {
    EnterField(zoom);
    zoom->lineEdit()->selectAll();
    TypeKeys(typed);
    PressKey(Qt::Key_Return);
    EXPECT_EQ(preview->Zoom(), percent) << typed;
  }
}

TEST_F(ReportViewerTest, SearchGoesAroundTheReport) {
  documents::frmReportViewer& viewer = OpenViewer();
  auto* find = Find<QLineEdit>(&viewer, "txtFind");
  auto* hits = Find<QLabel>(&viewer, "lblHits");
  QTest::keyClicks(find, "client 30");
  EXPECT_EQ(hits->text(), "1 of 2");  // 30 and 300
  QTest::keyClick(find, Qt::Key_Return);
  EXPECT_EQ(hits->text(), "2 of 2");
  EXPECT_EQ(Find<QSpinBox>(&viewer, "spnPage")->value(),
            static_cast<int>(viewer.Shown().pages.pages.size()));
  ClickOn(&viewer, "cmdFindNext");
  EXPECT_EQ(hits->text(), "1 of 2");
  ClickOn(&viewer, "cmdFindPrevious");
  EXPECT_EQ(hits->text(), "2 of 2");
  QTest::keyClicks(find, "x");
  EXPECT_EQ(hits->text(), "Not found");
  find->clear();
  EXPECT_EQ(hits->text(), "");
}

TEST_F(ReportViewerTest, SavesInOtherForms) {
  documents::frmReportViewer& viewer = OpenViewer();
  SaveUnder(viewer, "cmdSaveAsPDF", folder.filePath("out.pdf"));
  EXPECT_TRUE(Bytes("out.pdf").startsWith("%PDF-"));
  SaveUnder(viewer, "cmdSaveTablesAsCSV", folder.filePath("out.csv"));
  EXPECT_TRUE(
      Bytes("out.csv").startsWith("\xEF\xBB\xBF"
                                  "Client,Owing\r\nClient 1.,$5.00\r\n"));
  SaveUnder(viewer, "cmdSaveTablesAsCSV", folder.filePath("no/such/out.csv"));
  EXPECT_EQ(outside.errors.TakeReports().size(), 1);
}

TEST_F(ReportViewerTest, PrintsTheChosenPages) {
  documents::frmReportViewer& viewer = OpenViewer();
  const documents::Composition& pages = viewer.Shown().pages;
  struct Case {
    int from, to, printed;
  };
  for (const Case& c : {Case{0, 0, static_cast<int>(pages.pages.size())}, Case{2, 3, 2}}) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath("paper.pdf"));
    documents::FitPrinter(printer, pages);
    printer.setFromTo(c.from, c.to);
    documents::PrintPages(printer, pages);
    EXPECT_EQ(Bytes("paper.pdf").count("/Type /Page\n"), c.printed);
  }
}

TEST_F(ReportViewerTest, MailsTheFileWhenSomebodyCan) {
  outside.headOffice.sessionKey = "key";
  Find<QPushButton>(&OpenViewer(), "cmdEmailFileAsAttachment");
  EXPECT_FALSE(Find<QPushButton>(host.shown.get(), "cmdEmailFileAsAttachment")->isEnabled());

  bool leaves = false;
  QStringList sent;
  navigator.Register<EmailFile>([&](const EmailFile& mail) {
    sent += mail.subject + u'|' + mail.file;
    return leaves;
  });
  host.shown.reset();  // what can be opened is seen by a viewer made from here on
  documents::frmReportViewer& viewer = OpenViewer();
  auto* button = Find<QPushButton>(&viewer, "cmdEmailFileAsAttachment");
  outside.headOffice.connected = true;
  Click(button);
  EXPECT_EQ(sent, QStringList("Clients|" + viewer.Shown().docFile));
  EXPECT_EQ(Told(), "");
  EXPECT_TRUE(button->isVisible());
  leaves = true;
  Click(button);
  EXPECT_EQ(Told(), "Email has been sent.\r\nInvoice can be viewed in Reports->Send Documents");
  EXPECT_TRUE(button->isHidden());
  button->show();
  leaves = false;
  outside.headOffice.connected = false;
  Click(button);
  EXPECT_TRUE(button->isHidden()) << "there is no way left";
  button->show();
  business().values.emailOption = "VBSENDMAIL";
  Click(button);
  EXPECT_TRUE(button->isVisible()) << "the machine's mail program needs no head office";
}

}  // namespace
}  // namespace quillary
