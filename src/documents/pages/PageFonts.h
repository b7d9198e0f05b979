#pragma once

#include "documents/pages/PageModel.h"
#include "pdf/AfmMetrics.h"

#include <map>
#include <memory>

namespace quillary {
class PDFFaces;
class ShapedFaces;
}  // namespace quillary

namespace quillary::documents {

/// How wide texts are, from the metric files of the PDF writer: any machine breaks lines and pages
/// in the same places. A font that has no metrics is measured as Arial; a text beyond WinAnsi as
/// the writer sets it, in faces that go into the file.
class PageFonts {
 public:
  /// `folder` holds the metric files. A missing one throws PDFError when its font is first
  /// measured.
  explicit PageFonts(QString folder);
  ~PageFonts();

  /// In twips.
  double WidthOf(QStringView text, const PageFont& font) const;
  /// From one base line to the next, in twips.
  static double LineHeight(const PageFont& font);
  /// From the top of a line to its base line, in twips.
  static double Ascent(const PageFont& font);
  /// The number that the PDF writer has for the font: 0 Arial, 1 Courier, 2 Times, 3 Symbol,
  /// 4 ZapfDingbats; 0 for any other.
  static int IndexOf(const QString& fontName);
  /// The text in lines that are no wider than `width`: at its own line ends, then at blanks, and
  /// within a word only when the word alone is wider. An empty text is one empty line.
  QStringList Wrap(const QString& text, const PageFont& font, double width) const;

  const QString& Folder() const { return folder_; }
  /// For the writer of a document that was measured here.
  PDFFaces& Faces() const;

 private:
  const AfmMetrics& Metrics(const PageFont& font) const;
  double EmbeddedWidthOf(QStringView text, const PageFont& font) const;

  QString folder_;
  mutable std::map<QString, AfmMetrics> metrics_;
  std::unique_ptr<ShapedFaces> faces_;
};

}  // namespace quillary::documents
