// Writes one-page invoices with the PDF writer and with libharu, without compression, in turns.
// Prints the median of the rounds for each and their ratio, and what memory a long document takes.
//
// The files go to the folder that is named, otherwise to memory where the machine offers it: to
// create a thousand files on a busy disk takes both writers ten times longer than to write them.

#include "Timing.h"
#include "pdf/PDFWriter.h"

#include <hpdf.h>
#include <stdlib.h>
#include <sys/resource.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using quillary::bench::Median;
using quillary::bench::Seconds;

constexpr int kInvoices = 1000;
constexpr int kTexts = 40;
constexpr int kRules = 14;
constexpr int kRounds = 7;
constexpr double kTarget = 0.5;
constexpr double kPointsPerCentimetre = 72 / 2.54;

std::string LineText(int invoice, int line) {
  return "Invoice " + std::to_string(invoice) + ", line " + std::to_string(line) +
         ": window cleaning (outside), $82.50";
}

void WriteWithQuillary(quillary::PDFWriter& writer, const std::filesystem::path& folder) {
  for (int invoice = 0; invoice < kInvoices; ++invoice) {
    writer.PDFInit();
    writer.PDFTitle("Invoice");
    writer.PDFFileName(folder / ("quillary-" + std::to_string(invoice) + ".pdf"));
    writer.PDFSetFont(0, 8, 0);
    writer.PDFBeginDoc();
    for (int line = 0; line < kTexts; ++line) {
      writer.PDFSetFont(0, 8, line % 8 == 0 ? 2 : 0);
      writer.PDFTextOut(LineText(invoice, line), 1, 1 + line * 0.6);
    }
    writer.PDFSetLineWidth(0.01);
    for (int rule = 0; rule < kRules; ++rule) writer.PDFDrawLineHor(1, 1.2 + rule * 1.8, 18.5);
    writer.PDFEndDoc();
  }
}

void WriteWithLibharu(HPDF_Doc document, const std::filesystem::path& folder) {
  for (int invoice = 0; invoice < kInvoices; ++invoice) {
    HPDF_NewDoc(document);
    HPDF_SetCompressionMode(document, HPDF_COMP_NONE);
    HPDF_SetInfoAttr(document, HPDF_INFO_TITLE, "Invoice");
    const HPDF_Font plain = HPDF_GetFont(document, "Helvetica", "WinAnsiEncoding");
    const HPDF_Font bold = HPDF_GetFont(document, "Helvetica-Bold", "WinAnsiEncoding");
    const HPDF_Page page = HPDF_AddPage(document);
    HPDF_Page_SetSize(page, HPDF_PAGE_SIZE_A4, HPDF_PAGE_PORTRAIT);
    const auto place = [](double centimetres) {
      return static_cast<HPDF_REAL>(centimetres * kPointsPerCentimetre);
    };
    for (int line = 0; line < kTexts; ++line) {
      HPDF_Page_BeginText(page);
      HPDF_Page_SetFontAndSize(page, line % 8 == 0 ? bold : plain, 8);
      HPDF_Page_TextOut(page, place(1), 842 - place(1 + line * 0.6),
                        LineText(invoice, line).c_str());
      HPDF_Page_EndText(page);
    }
    HPDF_Page_SetLineWidth(page, place(0.01));
    for (int rule = 0; rule < kRules; ++rule) {
      const HPDF_REAL y = 842 - place(1.2 + rule * 1.8);
      HPDF_Page_MoveTo(page, place(1), y);
      HPDF_Page_LineTo(page, place(19.5), y);
      HPDF_Page_Stroke(page);
    }
    const auto file = folder / ("libharu-" + std::to_string(invoice) + ".pdf");
    HPDF_SaveToFile(document, file.c_str());
    HPDF_FreeDoc(document);
  }
}

long PeakKilobytes() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

/// How much memory a single document of many pages adds.
long GrowthOfOneDocument(quillary::PDFWriter& writer, const std::filesystem::path& folder) {
  const long before = PeakKilobytes();
  writer.PDFInit();
  writer.PDFFileName(folder / "long.pdf");
  writer.PDFSetFont(0, 8, 0);
  writer.PDFBeginDoc();
  for (int page = 0; page < 20 * kInvoices; ++page) {
    if (page > 0) writer.PDFNewPage();
    for (int line = 0; line < kTexts; ++line) {
      writer.PDFTextOut(LineText(page, line), 1, 1 + line * 0.6);
    }
  }
  writer.PDFEndDoc();
  return PeakKilobytes() - before;
}

[[noreturn]] void LibharuFailed(HPDF_STATUS error, HPDF_STATUS, void*) {
  throw std::runtime_error("libharu: error " + std::to_string(error));
}

}  // namespace

int main(int count, char** arguments) {
  std::filesystem::path place = "/dev/shm";
  if (count > 1) {
    place = arguments[1];
  } else if (!std::filesystem::is_directory(place)) {
    place = std::filesystem::temp_directory_path();
  }
  std::string pattern = (place / "bench-pdf-XXXXXX").string();
  const std::filesystem::path folder = ::mkdtemp(pattern.data());
  quillary::PDFWriter writer({.applicationFolder = QUILLARY_FONTS, .now = [] {
                                return std::chrono::local_seconds(
                                    std::chrono::local_days(std::chrono::year(2026) / 3 / 5));
                              }});
  const HPDF_Doc document = HPDF_New(LibharuFailed, nullptr);

  std::vector<double> own;
  std::vector<double> libharu;
  for (int round = 0; round < kRounds; ++round) {
    std::filesystem::create_directory(folder / std::to_string(round));
    own.push_back(Seconds([&] { WriteWithQuillary(writer, folder / std::to_string(round)); }));
    libharu.push_back(Seconds([&] { WriteWithLibharu(document, folder / std::to_string(round)); }));
    std::filesystem::remove_all(folder / std::to_string(round));
  }
  HPDF_Free(document);
  const long growth = GrowthOfOneDocument(writer, folder);
  const auto longFile = std::filesystem::file_size(folder / "long.pdf");
  std::filesystem::remove_all(folder);

  const double ratio = Median(own) / Median(libharu);
  std::printf("%d invoices of %d texts and %d rules, median of %d rounds in %s:\n", kInvoices,
              kTexts, kRules, kRounds, place.c_str());
  std::printf("  PDF writer %8.1f ms\n  libharu    %8.1f ms\n  ratio      %8.2f (target %.2f)\n",
              1000 * Median(own), 1000 * Median(libharu), ratio, kTarget);
  std::printf("One document of %d pages, %ju kB: %ld kB more memory\n", 20 * kInvoices,
              static_cast<std::uintmax_t>(longFile / 1024), growth);
  return 0;
}
