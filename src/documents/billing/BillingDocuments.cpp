#include "documents/billing/BillingDocuments.h"

#include "data/store/FileInTheMaking.h"
#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/forms/Pdf.h"
#include "documents/reports/ReportFiles.h"

#include <QDir>
#include <QTextBoundaryFinder>
#include <QUrl>

namespace quillary::documents {
namespace {

constexpr qsizetype kLongestFileName = 255;  // bytes
// ".pdf", and that of a file that is not whole yet
constexpr qsizetype kEnding = 4 + FileInTheMaking::kLongerBy;
constexpr double kSideMargin = 1.5;  // centimetres
constexpr double kTopMargin = 0.5;

QString PathIn(const BillingPlaces& places, const QString& fileName) {
  const QString folder =
      places.folder.isEmpty() ? ReportFolder(places.report.applicationFolder) : places.folder;
  return QDir(QDir(folder).absolutePath()).filePath(fileName);
}

/// Fixed places and widths of columns need more than the smallest paper has.
Paper RoomyPaper(Paper paper) {
  return paper == Paper::A5 ? Paper::A4 : paper;
}

ReportPlaces OnRoomyPaper(ReportPlaces places) {
  places.paper = RoomyPaper(places.paper);
  return places;
}

/// At most that many bytes of UTF-8, cut between characters as a reader sees them.
QString CutToBytes(const QString& text, qsizetype most) {
  if (text.toUtf8().size() <= most) return text;
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  qsizetype end = 0;
  qsizetype bytes = 0;
  for (qsizetype at = finder.toNextBoundary(); at > 0; at = finder.toNextBoundary()) {
    bytes += QStringView(text).sliced(end, at - end).toUtf8().size();
    if (bytes > most) break;
    end = at;
  }
  return text.first(end);
}

/// The PDF file of one run, from its first page to its viewer.
class PdfRun {
 public:
  PdfRun(Business& business, const BillingPlaces& places, const QString& pdfTitle,
         const QString& docTitle, const QString& fileName)
      : business_(business),
        fonts_(places.fonts ? places.fonts
                            : std::make_shared<const PageFonts>(places.report.fontFolder)),
        made_(PathIn(places, fileName), FileInTheMaking::Place::Replacing,
              FileInTheMaking::Content::Document),
        pdf_(HostFor(business, *fonts_)) {
    document_.docTitle = docTitle;
    document_.docFile = made_.Target();
    pdf_.PDFInit();
    pdf_.PDFSetStrict(true);
    pdf_.PDFTitle(pdfTitle.toStdString());
    pdf_.PDFUseThumbs(true);
    pdf_.PDFView(false);
    pages_.emplace(pdf_, *fonts_, RoomyPaper(places.report.paper));
    pdf_.PDFFileName(made_.Path().toStdU16String());
    pdf_.PDFSetFont(0, 8, 0);
    pdf_.PDFSetTextColor(0);
    pdf_.PDFSetZoomMode(2);
    logo_ =
        UsableLogo(pdf_, LogoFile(business, places.report.applicationFolder), document_.troubles);
  }

  BillingPages& Pages() { return *pages_; }
  const QString& Logo() const { return logo_; }

  ReportDocument End() {
    pages_->EndDocument();
    made_.TakeItsPlace();
    document_.troubles += TroublesOfTexts(pdf_);
    Show(business_, document_.docFile);
    return std::move(document_);
  }

 private:
  /// In the viewer of the user's choice, or in the machine's when there is none or it is gone.
  static void Show(Business& business, const QString& file) {
    const QString& viewer = business.values.adobePath;
    Desktop& desktop = business.World().desktop;
    if (!viewer.isEmpty() && desktop.StartProgram(viewer, {QDir::toNativeSeparators(file)})) return;
    desktop.OpenInBrowser(QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded));
  }

  static PDFHost HostFor(Business& business, const PageFonts& fonts) {
    PDFHost host;
    host.faces = &fonts.Faces();
    host.showMessage = [&business](const std::string& title, const std::string& text) {
      business.World().prompter.Tell(Tone::Stop, QString::fromStdString(text),
                                     QString::fromStdString(title));
    };
    host.now = [&business] {
      using namespace std::chrono;
      const DateTime now = business.Now();
      return local_seconds{} + hours{24 * QDate(1970, 1, 1).daysTo(now.date)} +
             seconds{now.time.msecsSinceStartOfDay() / 1000};
    };
    return host;
  }

  Business& business_;
  std::shared_ptr<const PageFonts> fonts_;
  FileInTheMaking made_;  // outlives the writer, which has it open
  PDFWriter pdf_;
  std::optional<BillingPages> pages_;
  ReportDocument document_;
  QString logo_;
};

/// A report with the margins of billing documents, which begin each on a page of its own.
class WordRun {
 public:
  WordRun(Business& business, const BillingPlaces& places, const QString& docTitle,
          const QString& fileName)
      : report_(business, OnRoomyPaper(places.report), places.fonts) {
    report_.StartDocument(PathIn(places, fileName));
    report_.SetDocTitle(docTitle);
    report_.Page().SetMargins({.left = kSideMargin * kTwipsPerCentimetre,
                               .right = kSideMargin * kTwipsPerCentimetre,
                               .top = kTopMargin * kTwipsPerCentimetre,
                               .bottom = kTopMargin * kTwipsPerCentimetre});
  }

  Report& NextDocument() {
    if (!isFirst_) report_.Page().NewPage();
    isFirst_ = false;
    return report_;
  }
  ReportDocument End() { return report_.EndDocument(); }

 private:
  Report report_;
  bool isFirst_ = true;
};

}  // namespace

QString InvoiceFileName(const QString& part, const DateTime& moment) {
  // Half a character would make no name at all. Line ends stay: they part the lines of an address.
  QString shown = QString::fromUtf8(part.toUtf8());
  for (QChar& sign : shown) {
    if (sign.category() == QChar::Other_Control && sign != u'\r' && sign != u'\n') sign = u' ';
  }
  const QString head = QStringLiteral("Invoice - ");
  const QString tail = u' ' + FileTimeStamp(moment);
  const qsizetype room = kLongestFileName - kEnding - head.size() - tail.size();
  return head + CutToBytes(CleanFileName(shown), room) + tail;
}

bool PrintsForWord(const Business& business) {
  return business.values.invoicePrintingFormat == u"WORD";
}

ReportDocument PrintInvoice(Business& business, const BillingPlaces& places,
                            const QString& fileNamePart, TaxMode mode) {
  const BillingFrame frame = ReadBillingFrame(business, mode);
  WordRun run(business, places, QStringLiteral("Invoice"),
              InvoiceFileName(fileNamePart, business.Now()) + QStringLiteral(".rtf"));
  for (const qint64 invoiceId : SelectedInvoices(business)) {
    if (const auto invoice = CollectInvoice(business, invoiceId, frame))
      LayInvoiceWord(run.NextDocument(), frame, *invoice);
  }
  return run.End();
}

ReportDocument PrintInvoicePDF(Business& business, const BillingPlaces& places,
                               const QString& fileNamePart, TaxMode mode) {
  const BillingFrame frame = ReadBillingFrame(business, mode);
  PdfRun run(business, places, QStringLiteral("Invoice"), QStringLiteral("Invoice"),
             InvoiceFileName(fileNamePart, business.Now()) + QStringLiteral(".pdf"));
  for (const qint64 invoiceId : SelectedInvoices(business)) {
    if (const auto invoice = CollectInvoice(business, invoiceId, frame))
      LayInvoicePdf(run.Pages(), frame, run.Logo(), *invoice);
  }
  return run.End();
}

ReportDocument PrintStatementForInvoices(Business& business, const BillingPlaces& places,
                                         const StatementDays& days, TaxMode mode) {
  const BillingFrame frame = ReadBillingFrame(business, mode);
  WordRun run(business, places, QStringLiteral("Statement"), QStringLiteral("Statement.doc"));
  for (const StatementContent& statement : CollectStatements(business, days, frame))
    LayStatementWord(run.NextDocument(), frame, days, statement);
  return run.End();
}

ReportDocument PrintStatementForInvoicesPDF(Business& business, const BillingPlaces& places,
                                            const StatementDays& days, TaxMode mode) {
  const BillingFrame frame = ReadBillingFrame(business, mode);
  PdfRun run(business, places, QStringLiteral("Statement"), QStringLiteral("Statement"),
             QStringLiteral("Statement-%1.pdf").arg(FileTimeStamp(business.Now())));
  for (const StatementContent& statement : CollectStatements(business, days, frame))
    LayStatementPdf(run.Pages(), frame, run.Logo(), days, statement);
  return run.End();
}

ReportDocument PrintRemindersForInvoices(Business& business, const BillingPlaces& places,
                                         TaxMode mode) {
  const BillingFrame frame = ReadBillingFrame(business, mode);
  WordRun run(business, places, QStringLiteral("Reminder"), QStringLiteral("Reminder.doc"));
  for (const ReminderContent& reminder : CollectReminders(business, frame))
    LayReminderWord(run.NextDocument(), frame, reminder);
  return run.End();
}

ReportDocument PrintRemindersForInvoicesPDF(Business& business, const BillingPlaces& places,
                                            TaxMode mode) {
  const BillingFrame frame = ReadBillingFrame(business, mode);
  // The viewer's window says "Statement" for reminders too, as it always has.
  PdfRun run(business, places, QStringLiteral("Statement"), QStringLiteral("Reminder"),
             QStringLiteral("Reminder-%1.pdf").arg(FileTimeStamp(business.Now())));
  for (const ReminderContent& reminder : CollectReminders(business, frame))
    LayReminderPdf(run.Pages(), frame, run.Logo(), reminder);
  return run.End();
}

}  // namespace quillary::documents
