// Invoices of an invented business as PDF files: selection, reading, layout and file, beside the
// bare PDF writer drawing the very same pages. The two take turns, and the ratio is of the medians.
// The files go to memory where the machine offers it, since making a thousand files on a busy disk
// would hide both.

#include "BenchPorts.h"
#include "Timing.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "documents/billing/BillingDocuments.h"
#include "pdf/PDFWriter.h"
#include "setup/demo/DemoBusiness.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <stdexcept>

namespace quillary::bench {
namespace {

constexpr int kInvoices = 1000;
constexpr int kRounds = 5;
constexpr double kMostTimesBare = 3;

const QDate kToday(2026, 11, 2);

/// What the writer was told to put on a page, in points.
struct Stroke {
  enum Kind { Text, Line, NewPage } kind = Text;
  double x = 0;
  double y = 0;
  double length = 0;
  int size = 0;
  int style = 0;
  std::string text;
};
using Strokes = std::vector<Stroke>;

std::string Unescaped(const QByteArray& shown) {
  QByteArray text;
  for (qsizetype i = 1; i < shown.size() - 4; ++i) {
    if (shown[i] == '\\') ++i;
    text += shown[i];
  }
  return QString::fromLatin1(text).toStdString();
}

/// The strokes of a file that our writer made of plain and bold Arial.
Strokes StrokesOf(const QString& path) {
  constexpr double kPageHeight = 841.89;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no file " + path.toStdString());
  Strokes strokes;
  Stroke next;
  for (const QByteArray& raw : file.readAll().split('\n')) {
    const QByteArray line = raw.trimmed();
    const QList<QByteArray> words = line.split(' ');
    if (line == "stream") {
      strokes.push_back({.kind = Stroke::NewPage, .text = {}});
    } else if (line.endsWith(" Td") || line.endsWith(" m")) {
      next.x = words[0].toDouble();
      next.y = kPageHeight - words[1].toDouble();
    } else if (line.endsWith(" Tf")) {
      next.style = words[0] == "/F2" ? 2 : 0;
      next.size = words[1].toInt();
    } else if (line.endsWith(" l")) {
      strokes.push_back({.kind = Stroke::Line,
                         .x = next.x,
                         .y = next.y,
                         .length = words[0].toDouble() - next.x,
                         .text = {}});
    } else if (line.endsWith(") Tj")) {
      next.text = Unescaped(line);
      strokes.push_back(next);
    }
  }
  return strokes;
}

void DrawBare(PDFWriter& pdf, const Strokes& strokes, const QString& path) {
  pdf.PDFInit();
  pdf.PDFSetStrict(true);
  pdf.PDFSetUnit(0);
  pdf.PDFTitle("Invoice");
  pdf.PDFFileName(path.toStdU16String());
  pdf.PDFBeginDoc();
  bool isFirst = true;
  for (const Stroke& stroke : strokes) {
    if (stroke.kind == Stroke::NewPage) {
      if (!isFirst) {
        pdf.PDFEndPage();
        pdf.PDFNewPage();
      }
      isFirst = false;
    } else if (stroke.kind == Stroke::Line) {
      pdf.PDFSetLineWidth(0.28);
      pdf.PDFDrawLineHor(stroke.x, stroke.y, stroke.length);
    } else {
      pdf.PDFSetTextColor(0);
      pdf.PDFSetFont(0, stroke.size, stroke.style);
      pdf.PDFTextOut(stroke.text, stroke.x, stroke.y);
    }
  }
  pdf.PDFEndDoc();
}

class Bench {
 public:
  Bench()
      : folder_(QDir(QStringLiteral("/dev/shm")).exists()
                    ? QStringLiteral("/dev/shm/bench-documents-XXXXXX")
                    : QDir::tempPath() + QStringLiteral("/bench-documents-XXXXXX")),
        ports_(kToday),
        file_(folder_.filePath(QStringLiteral("DATA.MDB"))) {
    CreateEmptyBusiness(file_);
    business_ = std::make_unique<Business>(ports_.Ports(), file_);
    business_->ConnectToDatabase();
    setup::WriteDemoBusiness(*business_);
    for (const Record row :
         business_->RunSQL(Sql("SELECT Invoice_ID FROM Invoices ORDER BY Invoice_ID DESC"))) {
      if (invoices_.size() < kInvoices) invoices_.push_back(row[size_t{0}].ToLong());
    }
    if (invoices_.size() < kInvoices) throw std::runtime_error("too few invoices");
    places_ = {documents::ReportPlacesUnder(folder_.path()),
               folder_.filePath(QStringLiteral("whole")),
               {}};
    places_.fonts = std::make_shared<const documents::PageFonts>(places_.report.fontFolder);
    QDir().mkpath(places_.folder);
    QDir().mkpath(folder_.filePath(QStringLiteral("bare")));
  }

  void Run() {
    std::vector<double> whole;
    std::vector<double> bare;
    std::vector<double> one;
    for (int round = 0; round < kRounds; ++round) {
      whole.push_back(Seconds([&] {
        for (const qint64 invoice : invoices_) {
          const double seconds = Seconds([&] { PrintOne(invoice); });
          if (round > 0) one.push_back(seconds);
        }
      }));
      if (round == 0) ReadPages();
      bare.push_back(Seconds([&] { DrawAll(); }));
    }
    const double ratio = Median(whole) / Median(bare);
    std::printf("%d invoices to %d PDF files of %zu strokes, median of %d rounds in %s\n",
                kInvoices, kInvoices, strokeCount_, kRounds, qUtf8Printable(folder_.path()));
    std::printf("  selection to file %8.1f ms\n  bare PDF writer   %8.1f ms\n",
                1000 * Median(whole), 1000 * Median(bare));
    std::printf("  one invoice from command to file %.2f ms\n", 1000 * Median(one));
    std::printf("whole way / bare writer: %.2f, at most %.1f: %s\n", ratio, kMostTimesBare,
                ratio <= kMostTimesBare ? "reached" : "MISSED");
  }

 private:
  QString PrintOne(qint64 invoice) {
    return documents::PrintBillingDocument(
               *business_, places_,
               {.invoices = {Id<Invoice>(invoice)}, .fileNamePart = QString::number(invoice)})
        .docFile;
  }
  void ReadPages() {
    for (const qint64 invoice : invoices_) {
      pages_.push_back(StrokesOf(PrintOne(invoice)));
      strokeCount_ += pages_.back().size();
    }
  }
  void DrawAll() {
    PDFWriter pdf({.applicationFolder = places_.report.fontFolder.toStdU16String(), .now = [] {
                     return std::chrono::local_seconds(
                         std::chrono::local_days(std::chrono::year(2026) / 11 / 2));
                   }});
    for (size_t i = 0; i < pages_.size(); ++i)
      DrawBare(pdf, pages_[i], folder_.filePath(QStringLiteral("bare/%1.pdf").arg(i)));
  }

  QTemporaryDir folder_;
  BenchPorts ports_;
  QString file_;
  std::unique_ptr<Business> business_;
  std::vector<qint64> invoices_;
  documents::BillingPlaces places_;
  std::vector<Strokes> pages_;
  size_t strokeCount_ = 0;
};

}  // namespace
}  // namespace quillary::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    quillary::bench::Bench().Run();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
