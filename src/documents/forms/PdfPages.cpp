#include "data/store/FileInTheMaking.h"
#include "documents/forms/Pdf.h"
#include "pdf/PDFWriter.h"

#include <algorithm>
#include <cmath>

namespace quillary::documents {

namespace {

constexpr double kThinnest = 8;  // twips

std::filesystem::path PathOf(const QString& file) {
  return std::filesystem::path(file.toStdU16String());
}

double Points(double twips) {
  return twips / kTwipsPerPoint;
}

PDFHost HostFor(const PageFonts& fonts, const DateTime& now) {
  PDFHost host;
  host.faces = &fonts.Faces();
  host.now = [now] {
    using namespace std::chrono;
    const auto days = QDate(1970, 1, 1).daysTo(now.date);
    return local_seconds{} + hours{24 * days} + seconds{now.time.msecsSinceStartOfDay() / 1000};
  };
  return host;
}

class PdfPages {
 public:
  PdfPages(const Composition& document, PDFWriter& writer) : document_(document), pdf_(writer) {}

  void Draw() {
    bool isFirst = true;
    for (const Page& page : document_.pages) {
      if (!isFirst) {
        pdf_.PDFEndPage();
        pdf_.PDFNewPage();
      }
      isFirst = false;
      for (const PagePicture& picture : page.pictures) Put(picture);
      for (const PageLine& line : page.lines) Put(line);
      for (const TextRun& run : page.texts) Put(run);
    }
  }

 private:
  void Put(const PagePicture& picture) {
    try {
      pdf_.PDFImage(PathOf(picture.file), Points(picture.x), Points(picture.y),
                    Points(picture.width), Points(picture.height));
    } catch (const PDFError&) {
      // Whoever composed the page has told the user of it; the words matter more.
    }
  }

  void Put(const PageLine& line) {
    pdf_.PDFSetLineColor(line.colour);
    pdf_.PDFSetLineWidth(Points(std::max(line.width, kThinnest)));
    pdf_.PDFDrawLine(Points(line.x1), Points(line.y1), Points(line.x2), Points(line.y2));
  }

  void Put(const TextRun& run) {
    const std::string text = run.text.toStdString();
    // Sizes are whole points there; a larger one could reach over its neighbour.
    const int size = std::max(1, static_cast<int>(std::floor(run.font.size)));
    const int style = (run.font.bold ? 2 : 0) + (run.font.italic ? 10 : 0);  // read by its digits
    pdf_.PDFSetFont(PageFonts::IndexOf(run.font.name), size, style);
    pdf_.PDFSetTextColor(run.font.colour);
    double x = Points(run.x);
    if (run.align != Align::Left) {
      const double spare = Points(run.width) - pdf_.PDFGetStringWidth(text);
      x += run.align == Align::Right ? spare : spare / 2;
    }
    pdf_.PDFTextOut(text, x, Points(run.baseline));
  }

  const Composition& document_;
  PDFWriter& pdf_;
};

}  // namespace

QStringList TroublesOfTexts(const PDFWriter& pdf) {
  QStringList troubles;
  for (const std::string& text : pdf.PDFGetTextsNotShown()) {
    troubles += QStringLiteral(
                    "No typeface has all characters of \"%1\". In the document a \"?\" "
                    "stands for each that is missing.")
                    .arg(QString::fromStdString(text));
  }
  return troubles;
}

QStringList WritePdf(const Composition& document, const QString& file, const DateTime& now) {
  FileInTheMaking made(file, FileInTheMaking::Place::Replacing, FileInTheMaking::Content::Document);
  PDFWriter pdf(HostFor(*document.fonts, now));
  pdf.PDFInit();
  pdf.PDFSetStrict(true);
  pdf.PDFPathConfiguration(PathOf(document.fonts->Folder()));
  pdf.PDFTitle(document.title.toStdString());
  pdf.PDFSetUnit(0);
  pdf.PDFFormatPage(
      std::vector<double>{Points(document.setup.Width()), Points(document.setup.Height())});
  pdf.PDFFileName(PathOf(made.Path()));
  pdf.PDFBeginDoc();
  PdfPages(document, pdf).Draw();
  pdf.PDFEndPage();
  pdf.PDFEndDoc();
  made.TakeItsPlace();
  return TroublesOfTexts(pdf);
}

}  // namespace quillary::documents
