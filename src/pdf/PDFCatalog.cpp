#include "pdf/PDFWriter.h"

#include <algorithm>
#include <array>

namespace quillary {
namespace {

/// The name by which every viewer knows the face. Symbol faces have no styles.
std::string_view StandardFace(std::string_view face) {
  if (face == "TimesItalic") return "Times-Italic";
  if (face == "TimesRoman") return "Times-Roman";
  for (const std::string_view symbols : {"Symbol", "ZapfDingbats"}) {
    if (face.starts_with(symbols)) return symbols;
  }
  return face;
}

std::string PadOffset(std::uint64_t offset) {
  const std::string digits = std::to_string(offset);
  return digits.size() < 10 ? std::string(10 - digits.size(), '0') + digits : digits;
}

}  // namespace

void PDFWriter::WriteFonts() {
  fontObjects_.clear();
  for (std::size_t i = 0; i < fonts_.size(); ++i) {
    const std::string_view face = strict_ ? StandardFace(fonts_[i]) : fonts_[i];
    const bool ownEncoding = strict_ && (face == "Symbol" || face == "ZapfDingbats");
    fontObjects_.push_back(BeginObject());
    objectBuffer_.AddLine("<< /Type /Font");
    objectBuffer_.AddLine("/Subtype /Type1");
    objectBuffer_.AddLine("/Name /F", i + 1);
    objectBuffer_.AddLine("/BaseFont /", face);
    if (!ownEncoding) objectBuffer_.AddLine("/Encoding /WinAnsiEncoding");
    objectBuffer_.AddLine(">>");
    EndObject();
  }
  WriteEmbeddedFaces();
}

void PDFWriter::WritePages() {
  BeginObject();
  objectBuffer_.AddLine("<< /Type /Pages");
  objectBuffer_.AddLine("/Kids [");
  for (int page = 1; page <= pageCount_; ++page) objectBuffer_.AddLine(PageObject(page), " 0 R");
  objectBuffer_.AddLine("]");
  objectBuffer_.AddLine("/Count ", pageCount_);
  objectBuffer_.AddLine(">>");
  EndObject();
}

void PDFWriter::WriteResources() {
  BeginObject();
  objectBuffer_.AddLine("<< /ProcSet [ /PDF /Text /ImageC]");
  objectBuffer_.AddLine("/XObject << ");
  for (const Image* image : placedImages_) {
    objectBuffer_.AddLine("/ImgJPEG", image->index, " ", firstImageObject_ + image->index - 1,
                          " 0 R");
  }
  objectBuffer_.AddLine(">>");
  objectBuffer_.AddLine("/Font << ");
  for (std::size_t i = 0; i < fontObjects_.size(); ++i) {
    objectBuffer_.AddLine("/F", i + 1, " ", fontObjects_[i], " 0 R ");
  }
  for (std::size_t i = 0; i < embedded_.size(); ++i) {
    objectBuffer_.AddLine("/G", i + 1, " ", embedded_[i].object, " 0 R ");
  }
  objectBuffer_.AddLine(">>");
  objectBuffer_.AddLine(">>");
  EndObject();
}

void PDFWriter::WriteImages() {
  for (const Image* image : placedImages_) {
    const JpegHeader& header = image->header;
    BeginObject();
    objectBuffer_.AddLine("<</Type /XObject");
    objectBuffer_.AddLine("/Subtype /Image");
    objectBuffer_.AddLine("/Filter [/DCTDecode ]");
    objectBuffer_.AddLine("/Width ", header.width);
    objectBuffer_.AddLine("/Height ", header.height);
    objectBuffer_.AddLine("/ColorSpace /", header.ColorSpace());
    if (strict_ && header.components == 4 && header.hasAdobeMarker) {
      objectBuffer_.AddLine("/Decode [1 0 1 0 1 0 1 0]");
    }
    objectBuffer_.AddLine("/BitsPerComponent ", header.bits);
    objectBuffer_.AddLine("/Length ", image->bytes.size(), ">>");
    objectBuffer_.AddLine("stream");
    LineBuffer end;
    end.AddLine();
    end.AddLine("endstream");
    end.AddLine("endobj");
    WriteObject({objectBuffer_.Text(), image->bytes, end.Text()});
  }
}

void PDFWriter::WritePage(int page, int pagesObject) {
  const Page& size = pages_[static_cast<std::size_t>(page - 1)];
  BeginObject();
  objectBuffer_.AddLine("<< /Type /Page");
  objectBuffer_.AddLine("/Parent ", pagesObject, " 0 R");
  objectBuffer_.AddLine("/MediaBox [ 0 0 ", Decimal(size.width), " ", Decimal(size.height), "]");
  objectBuffer_.AddLine("/Resources ", pagesObject + 1, " 0 R");
  WriteAnnotations(page);
  objectBuffer_.AddLine("/Contents ", 2 * page, " 0 R");
  objectBuffer_.AddLine(">>");
  EndObject();
}

int PDFWriter::WriteCatalog(int pagesObject, int outlinesObject) {
  struct Preference {
    char digit;
    std::string_view line;
  };
  static constexpr std::array<Preference, 6> kPreferences{{{'2', "/HideMenubar true"},
                                                           {'1', "/HideToolbar true"},
                                                           {'3', "/HideWindowUI true"},
                                                           {'6', "/DisplayDocTitle true"},
                                                           {'5', "/CenterWindow true"},
                                                           {'4', "/FitWindow true"}}};
  static constexpr std::array<std::string_view, 3> kLayouts{"SinglePage", "OneColumn",
                                                            "TwoColumnLeft"};
  const int catalog = BeginObject();
  objectBuffer_.AddLine("<<");
  objectBuffer_.AddLine("/Type /Catalog");
  objectBuffer_.AddLine("/Pages ", pagesObject, " 0 R");

  objectBuffer_.Append("/OpenAction [");
  objectBuffer_.Append(strict_ ? PageObject(1) : 3);
  if (zoomMode_ == 0) {
    objectBuffer_.AddLine(" 0 R /Fit]");
  } else if (zoomMode_ == 1) {
    objectBuffer_.AddLine(" 0 R /FitH null]");
  } else if (zoomMode_ == 2) {
    objectBuffer_.AddLine(" 0 R /XYZ null null 1]");
  } else {
    objectBuffer_.AddLine(" 0 R /XYZ null null ", Decimal(zoomMode_ / 100.0), "]");
  }

  const auto layout = static_cast<std::size_t>(layoutMode_);
  if (layout < kLayouts.size()) objectBuffer_.AddLine("/PageLayout /", kLayouts[layout]);
  const bool outlines = useOutlines_ && outlinesObject != 0;
  if (useThumbs_ && !(strict_ && outlines)) objectBuffer_.AddLine("/PageMode /UseThumbs");
  if (outlines) {
    objectBuffer_.AddLine("/Outlines ", outlinesObject, " 0 R");
    objectBuffer_.AddLine("/PageMode /UseOutlines");
  }
  objectBuffer_.AddLine("/ViewerPreferences<<");
  for (const Preference& preference : kPreferences) {
    if (viewerPreferences_.find(preference.digit) != std::string::npos) {
      objectBuffer_.AddLine(preference.line);
    }
  }
  objectBuffer_.AddLine(">>");
  objectBuffer_.AddLine(">>");
  EndObject();
  return catalog;
}

void PDFWriter::WriteCrossReference(int catalogObject) {
  const std::uint64_t start = strict_ ? output_.Position() : filePosition_;
  WriteLine("xref");
  WriteLine("0 " + std::to_string(offsets_.size() + 1));
  WriteLine("0000000000 65535 f");
  for (const std::uint64_t offset : offsets_) WriteLine(PadOffset(offset) + " 00000 n");
  WriteLine("trailer");
  WriteLine("<< /Size " + std::to_string(offsets_.size() + (strict_ ? 1 : 0)));
  WriteLine("/Root " + std::to_string(catalogObject) + " 0 R");
  WriteLine("/Info 1 0 R");
  WriteLine(">>");
  WriteLine("startxref");
  WriteLine(std::to_string(start));
  WriteLine("%%EOF");
}

}  // namespace quillary
