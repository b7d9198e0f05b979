#pragma once

#include "billing/invoices/InvoicePrint.h"
#include "documents/billing/BillingDocuments.h"
#include "pdf/PDFTypes.h"
#include "support/BusinessTest.h"

#include <QFile>
#include <QStringList>

#include <array>
#include <cstdlib>

namespace quillary {

/// A text of a PDF page: where it starts, in centimetres from the left and upper edges.
struct PdfText {
  int page = 0;
  double x = 0;
  double y = 0;
  QString font;  // as its page calls it, and the size
  QString text;
};

/// The texts of a file that our writer made, in the order in which they were written.
inline std::vector<PdfText> TextsOf(const QString& path) {
  constexpr double kPoint = 2.54 / 72;
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  const QByteArray bytes = file.readAll();
  const QByteArray box = bytes.mid(bytes.indexOf("/MediaBox [ 0 0 ") + 16, 20);
  const double pageHeight = box.first(box.indexOf(']')).split(' ').last().toDouble();
  std::vector<PdfText> texts;
  PdfText next;
  bool isNewStream = false;
  int page = 0;
  for (const QByteArray& line : bytes.split('\n')) {
    const QByteArray text = line.trimmed();
    if (text == "stream") isNewStream = true;
    const auto words = text.split(' ');
    if (text.endsWith(" Td")) {
      if (isNewStream) ++page;
      isNewStream = false;
      next.page = page;
      next.x = words[0].toDouble() * kPoint;
      next.y = (pageHeight - words[1].toDouble()) * kPoint;
    } else if (text.endsWith(" Tf")) {
      next.font = QString::fromLatin1(words[0].mid(1) + ' ' + words[1]);
    } else if (text.endsWith(") Tj")) {
      QByteArray shown;
      for (qsizetype i = 1; i < text.size() - 4; ++i) {
        if (text[i] == '\\') ++i;
        shown += text[i];
      }
      next.text = QString::fromLatin1(shown);
      texts.push_back(next);
    }
  }
  return texts;
}

inline QStringList Words(const std::vector<PdfText>& texts) {
  QStringList words;
  for (const PdfText& text : texts) words += text.text;
  return words;
}

/// The texts of composed pages, in the order in which they were placed.
inline QStringList Words(const documents::Composition& document) {
  QStringList words;
  for (const documents::Page& page : document.pages) {
    for (const documents::TextRun& run : page.texts) words += run.text;
  }
  return words;
}

/// Compares with a text kept beside the tests; QUILLARY_REFRESH_GOLDEN=1 writes it anew instead, to
/// be read before it is kept.
inline void ExpectGolden(const char* name, const QStringList& lines) {
  const QString path = QStringLiteral(QUILLARY_DOCUMENT_DATA "/%1.txt").arg(QLatin1String(name));
  QFile file(path);
  if (std::getenv("QUILLARY_REFRESH_GOLDEN")) {
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write((lines.join(u'\n') + u'\n').toUtf8());
    return;
  }
  ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "missing: " << path.toStdString();
  const QStringList kept = QString::fromUtf8(file.readAll()).trimmed().split(u'\n');
  for (qsizetype i = 0; i < std::max(kept.size(), lines.size()); ++i)
    ASSERT_EQ(lines.value(i).toStdString(), kept.value(i).toStdString()) << name << ":" << i + 1;
}

inline QStringList GoldenLines(const std::vector<PdfText>& texts) {
  QStringList lines;
  for (const PdfText& text : texts) {
    lines += QStringLiteral("%1 %2 %3 %4 %5")
                 .arg(text.page)
                 .arg(text.x, 6, 'f', 2)
                 .arg(text.y, 6, 'f', 2)
                 .arg(text.font, -5)
                 .arg(text.text);
  }
  return lines;
}

inline QStringList GoldenLines(const documents::Composition& document) {
  QStringList lines;
  int number = 0;
  for (const documents::Page& page : document.pages) {
    ++number;
    for (const documents::TextRun& run : page.texts) {
      lines += QStringLiteral("%1 %2 %3 %4%5 %6")
                   .arg(number)
                   .arg(run.x, 6, 'f', 0)
                   .arg(run.baseline, 6, 'f', 0)
                   .arg(run.font.size)
                   .arg(run.font.bold ? u'b' : u' ')
                   .arg(run.text);
    }
  }
  return lines;
}

/// A gardener with two clients, of whom the first pays for both; invoices are made by hand.
class BillingFixture : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    Run(
        Sql("UPDATE infPersonalDetails SET Company_Name = 'Greenleaf Garden Care', First_Name = "
            "'Robin', Surname = 'Vale', Street_Number = '12', Street = 'Wattlebird Gr', Suburb = "
            "'BLACKBURN', Post_Code = '3130', Phone_1 = '03 9555 0142', Phone_2 = '0412 555 142', "
            "Email = 'robin.vale@example.com', ABN = '00 000 000 000', Account_Name = 'Greenleaf "
            "Garden Care', BSB_Account_Number = '000-000 1234 5678', Country_ID = 1"));
    Run(Sql("UPDATE infOptions SET Invoice_Notes = {}, TermsOfTrade = {}",
            "Thank you for having us in your garden.",
            "Please pay [AMOUNT] within 14 days.\r\nOverdue accounts bear interest."));
    for (const char* service : {"Lawn mowing", "Hedge trimming"})
      Run(Sql("INSERT INTO Services (Service) VALUES ({})", service));
    payer = AddClient("Ann Able", 0);
    tenant = AddClient("Tenant's Cottage", payer);
    places.report.applicationFolder = folder.path();
    places.report.fontFolder = QStringLiteral(QUILLARY_BIN "/Fonts");
    QDir(folder.path()).mkpath(QStringLiteral("Files"));
    QFile::copy(QStringLiteral(QUILLARY_PICTURES "/rgb.jpg"), Logo());
  }

  QString Logo() const { return folder.filePath(QStringLiteral("Files/.jpg")); }

  /// `billedTo` 0: the client pays for itself.
  qint64 AddClient(const QString& name, qint64 billedTo) {
    Run(
        Sql("INSERT INTO Clients (Status, Display_Name, Street_Number, Street, Suburb, Post_Code) "
            "VALUES ('Active', {}, '3', 'Fern St', 'NUNAWADING', '3131')",
            name));
    const qint64 client = business().FirstField(Sql("SELECT MAX(Client_ID) FROM Clients")).ToLong();
    Run(Sql("UPDATE Clients SET Billing_Client_ID = {} WHERE Client_ID = {}",
            billedTo == 0 ? client : billedTo, client));
    return client;
  }
  void SetFlag(const char* flag, qint64 client) {
    const QByteArray text =
        QByteArray("UPDATE Clients SET ") + flag + " = True WHERE Client_ID = {}";
    Run(Sql(text.constData(), client));
  }
  qint64 AddInvoice(qint64 client, const QString& number, Money amount, Money tax,
                    QDate date = QDate(2026, 10, 31)) {
    Run(
        Sql("INSERT INTO Invoices (Invoice_Number, Client_ID, Made_Out_To, Generation_Date, "
            "Invoice_Description, Invoice_Notes, Total_Amount, Total_GST) VALUES ({}, {}, {}, {}, "
            "{}, {}, {}, {})",
            number, client, "Ann Able\r\n3 Fern St\r\nNUNAWADING 3131", date,
            "Garden care in October 2026", "The side gate was locked.", amount, tax));
    return business().FirstField(Sql("SELECT MAX(Invoice_ID) FROM Invoices")).ToLong();
  }
  struct JobWords {
    const char* status = "JI";
    qint64 service = 1;
    Value payment = {};
  };
  void AddJob(qint64 client, QDate date, Money price, Money tax, const Value& invoice,
              const JobWords& words) {
    Run(
        Sql("INSERT INTO Diary (Client_ID, Status, Schedule_Date, Invoice_ID, Payment_ID) VALUES "
            "({}, {}, {}, {}, {})",
            client, words.status, date, invoice, words.payment));
    const qint64 diary = business().FirstField(Sql("SELECT MAX(Diary_ID) FROM Diary")).ToLong();
    Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, {}, {}, {})",
            diary, words.service, price, tax));
  }
  void AddJob(qint64 client, QDate date, Money price, Money tax, const Value& invoice) {
    AddJob(client, date, price, tax, invoice, {});
  }
  void Select(const std::vector<qint64>& invoices) {
    selected = IdsFrom<Invoice>(invoices);
    billing::SelectInvoicesToPrint(business(), selected);
  }
  documents::ReportDocument Print(documents::BillingKind kind, documents::BillingForm form,
                                  documents::TaxMode mode, const QString& fileNamePart = "x") {
    return documents::PrintBillingDocument(business(), places,
                                           {.kind = kind,
                                            .form = form,
                                            .invoices = selected,
                                            .mode = mode,
                                            .fileNamePart = fileNamePart,
                                            .days = {QDate(2026, 9, 1), QDate(2026, 10, 31)},
                                            .design = design});
  }
  static Money Cents(qint64 cents) { return Money::FromUnits(cents * 100); }

  /// An invoice over both clients, with every section that an invoice can have.
  qint64 AddFullInvoice() {
    const qint64 invoice = AddInvoice(payer, "1001", Cents(23100), Cents(2100));
    AddJob(payer, QDate(2026, 10, 5), Cents(5500), Cents(500), invoice);
    AddJob(payer, QDate(2026, 10, 19), Cents(6600), Cents(600), invoice, {.service = 2});
    AddJob(tenant, QDate(2026, 10, 6), Cents(11000), Cents(1000), invoice);
    AddJob(payer, QDate(2026, 11, 16), Cents(5500), Cents(500), {}, {.status = "J"});
    AddJob(tenant, QDate(2026, 9, 8), Cents(2250), Cents(205), {}, {.status = "JD"});
    AddJob(tenant, QDate(2026, 9, 1), Cents(9900), Cents(900), {}, {.status = "JD", .payment = 77});
    Run(
        Sql("UPDATE Clients SET WorkCoverLabel = 'Order', Work_Cover_Number = 'W-88' WHERE "
            "Client_ID = {}",
            tenant));
    for (const char* flag :
         {"InvoiceWithNextJob", "InvoiceWithUnpaidPastJobs", "StatementWithPayments"})
      SetFlag(flag, payer);
    return invoice;
  }

  qint64 payer = 0;
  qint64 tenant = 0;
  std::vector<Id<Invoice>> selected;
  documents::BillingDesign design = documents::BillingDesign::Classic;
  documents::BillingPlaces places;
};

}  // namespace quillary
