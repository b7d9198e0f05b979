#pragma once

#include "documents/pages/Composer.h"

#include <memory>

class QFileDevice;

namespace quillary::documents {

/// A text within the RTF file: line ends as \line, everything that RTF would read as its own
/// escaped, what lies beyond ASCII as \u with a sign that old readers show instead.
QByteArray RtfText(const QString& text);

/// The document as an RTF file that lays itself out: texts, tables with repeating header rows,
/// rules, page breaks, raw RTF. Lines and pictures that have a place of their own are left out.
QByteArray WriteRtf(const Composition& document);

/// The same for a document that is too long to be held: takes its blocks one by one, and keeps what
/// they come to in a temporary file until the document is done.
class RtfSpool {
 public:
  RtfSpool();
  ~RtfSpool();
  /// Never throws for a disk that is full: that is told in the end.
  void Take(const Block& block);
  /// The whole file; false when the temporary one did not hold everything.
  bool WriteTo(QFileDevice& file, const Composition& document);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace quillary::documents
