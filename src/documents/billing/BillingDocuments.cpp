#include "documents/billing/BillingDocuments.h"

#include "billing/invoices/InvoicePrint.h"
#include "data/store/FileInTheMaking.h"
#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/billing/PrintedInvoices.h"
#include "documents/billing/clean/CleanParts.h"
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
  PdfRun(Business& business, const BillingPlaces& places, const PageDesign& design,
         const QString& pdfTitle, const QString& docTitle, const QString& fileName)
      : business_(business),
        opensViewer_(places.opensViewer),
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
    pages_.emplace(pdf_, *fonts_, RoomyPaper(places.report.paper), design);
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
    if (opensViewer_ && !Show(business_, document_.docFile)) {
      document_.troubles += QStringLiteral(
                                "No program of this machine shows PDF files. The document "
                                "lies in %1.")
                                .arg(QDir::toNativeSeparators(document_.docFile));
    }
    return std::move(document_);
  }

 private:
  /// In the viewer of the user's choice, or in the machine's when there is none or it is gone.
  static bool Show(Business& business, const QString& file) {
    const QString& viewer = business.values.adobePath;
    Desktop& desktop = business.World().desktop;
    if (!viewer.isEmpty() && desktop.StartProgram(viewer, {QDir::toNativeSeparators(file)}))
      return true;
    return desktop.OpenInBrowser(QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded));
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
  bool opensViewer_;
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

BillingForm FormOfBilling(const Business& business) {
  return business.values.invoicePrintingFormat == u"WORD" ? BillingForm::Word : BillingForm::Pdf;
}

BillingDesign DesignOfBilling(const Business& business) {
  return business.values.documentDesign == u"CLEAN" ? BillingDesign::Clean : BillingDesign::Classic;
}

namespace {

/// The name of the file without its ending.
QString NameOf(const BillingOrder& order, const DateTime& now) {
  switch (order.kind) {
    case BillingKind::Statement:
      return order.form == BillingForm::Word ? QStringLiteral("Statement")
                                             : QStringLiteral("Statement-") + FileTimeStamp(now);
    case BillingKind::Reminder:
      return order.form == BillingForm::Word ? QStringLiteral("Reminder")
                                             : QStringLiteral("Reminder-") + FileTimeStamp(now);
    case BillingKind::Invoice:
      break;
  }
  return InvoiceFileName(order.fileNamePart, now);
}

QString TitleOf(BillingKind kind) {
  return kind == BillingKind::Invoice     ? QStringLiteral("Invoice")
         : kind == BillingKind::Statement ? QStringLiteral("Statement")
                                          : QStringLiteral("Reminder");
}

ReportDocument PrintPdf(Business& business, const BillingPlaces& places, const BillingOrder& order,
                        const BillingFrame& frame) {
  const bool isClean = order.design.value_or(DesignOfBilling(business)) == BillingDesign::Clean;
  // The viewer's window says "Statement" for reminders too, as it always has.
  const QString pdfTitle =
      TitleOf(order.kind == BillingKind::Reminder ? BillingKind::Statement : order.kind);
  PdfRun run(business, places, isClean ? CleanPageDesign() : PageDesign(), pdfTitle,
             TitleOf(order.kind), NameOf(order, business.Now()) + QStringLiteral(".pdf"));
  BillingPages& pages = run.Pages();
  const QString& logo = run.Logo();
  switch (order.kind) {
    case BillingKind::Invoice:
      for (const Id<Invoice> id : order.invoices) {
        if (const auto invoice = CollectInvoice(business, id, frame))
          (isClean ? LayInvoiceClean : LayInvoicePdf)(pages, frame, logo, *invoice);
      }
      break;
    case BillingKind::Statement:
      for (const StatementContent& statement : CollectStatements(business, order.days, frame))
        (isClean ? LayStatementClean : LayStatementPdf)(pages, frame, logo, order.days, statement);
      break;
    case BillingKind::Reminder:
      for (const ReminderContent& reminder : CollectReminders(business, frame))
        (isClean ? LayReminderClean : LayReminderPdf)(pages, frame, logo, reminder);
      break;
  }
  return run.End();
}

ReportDocument PrintWord(Business& business, const BillingPlaces& places, const BillingOrder& order,
                         const BillingFrame& frame) {
  const bool isInvoice = order.kind == BillingKind::Invoice;
  WordRun run(business, places, TitleOf(order.kind),
              NameOf(order, business.Now()) + QLatin1StringView(isInvoice ? ".rtf" : ".doc"));
  switch (order.kind) {
    case BillingKind::Invoice:
      for (const Id<Invoice> id : order.invoices) {
        if (const auto invoice = CollectInvoice(business, id, frame))
          LayInvoiceWord(run.NextDocument(), frame, *invoice);
      }
      break;
    case BillingKind::Statement:
      for (const StatementContent& statement : CollectStatements(business, order.days, frame))
        LayStatementWord(run.NextDocument(), frame, order.days, statement);
      break;
    case BillingKind::Reminder:
      for (const ReminderContent& reminder : CollectReminders(business, frame))
        LayReminderWord(run.NextDocument(), frame, reminder);
      break;
  }
  return run.End();
}

/// The head of a document of a business that has not told who it is would stay empty in silence.
QStringList MissingDetails(const HeaderStrings& header) {
  if (!header.company.trimmed().isEmpty() || !header.contact.trimmed().isEmpty()) return {};
  return {
      QStringLiteral("Your business has no name yet, so none stands on the document. Fill in "
                     "\"Your personal information\" in the menu Setup.")};
}

}  // namespace

ReportDocument PrintBillingDocument(Business& business, const BillingPlaces& places,
                                    const BillingOrder& order) {
  billing::SelectInvoicesToPrint(business, order.invoices);
  const BillingFrame frame = ReadBillingFrame(business, order.mode);
  ReportDocument document = order.form == BillingForm::Word
                                ? PrintWord(business, places, order, frame)
                                : PrintPdf(business, places, order, frame);
  document.troubles += MissingDetails(frame.header);
  if (order.kind == BillingKind::Invoice) NotePrinted(business, order.invoices);
  return document;
}

}  // namespace quillary::documents
