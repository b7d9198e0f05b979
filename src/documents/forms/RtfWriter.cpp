#include "documents/forms/Rtf.h"
#include "documents/pages/TableLayout.h"

#include <QStringList>
#include <QTemporaryFile>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillary::documents {

namespace {

constexpr double kLongestSpace = 20000;  // twips that one line of Word may be high
const char* const kThinRule = "\\brdrs\\brdrw5 ";

QByteArray Number(double twips) {
  return QByteArray::number(std::lround(twips));
}

const char* AlignWord(Align align) {
  return align == Align::Right ? "\\qr" : align == Align::Centre ? "\\qc" : "\\ql";
}

}  // namespace

/// Writes the body and gathers the fonts and colours that the head has to list.
class RtfBody {
 public:
  void Take(const Block& block) {
    std::visit([this](const auto& each) { Put(each); }, block);
  }
  /// What has been written so far, once nothing that follows could change it.
  QByteArray TakeBytes() { return inRaw_ ? QByteArray() : std::exchange(body_, {}); }
  QByteArray Finish() {
    EndRaw();
    return TakeBytes();
  }

  QByteArray FontTable() const {
    QByteArray table = "{\\fonttbl";
    for (qsizetype i = 0; i < fonts_.size(); ++i) {
      table += "{\\f" + QByteArray::number(i) + "\\fnil ";
      for (const QChar sign : fonts_[i]) {
        if (sign.isLetterOrNumber() && sign.unicode() < 0x80) table += sign.toLatin1();
        if (sign == u' ') table += ' ';
      }
      table += ";}";
    }
    return table + "}\r\n";
  }

  QByteArray ColourTable() const {
    QByteArray table = "{\\colortbl;";
    for (const int rgb : colours_) {
      table += "\\red" + QByteArray::number((rgb >> 16) & 255) + "\\green" +
               QByteArray::number((rgb >> 8) & 255) + "\\blue" + QByteArray::number(rgb & 255) +
               ";";
    }
    return table + "}\r\n";
  }

 private:
  /// Face and size. Words, the mark that ends them and an empty cell need them all alike: the mark
  /// is as high as its own font.
  QByteArray FaceWords(const PageFont& font) {
    qsizetype face = fonts_.indexOf(font.name);
    if (face < 0) {
      face = fonts_.size();
      fonts_.append(font.name);
    }
    return "\\f" + QByteArray::number(face) + "\\fs" +
           QByteArray::number(std::lround(font.size * 2));
  }

  QByteArray Dressed(const QString& text, const PageFont& font) {
    QByteArray rtf = FaceWords(font) + "{";
    if (font.bold) rtf += "\\b";
    if (font.italic) rtf += "\\i";
    if (font.colour != 0) {
      qsizetype colour = colours_.indexOf(font.colour);
      if (colour < 0) {
        colour = colours_.size();
        colours_.append(font.colour);
      }
      rtf += "\\cf" + QByteArray::number(colour + 1);
    }
    return rtf + (rtf.endsWith('{') ? "" : " ") + RtfText(text) + "}";
  }

  /// An empty line of exactly that height.
  static QByteArray Spacer(double height, const QByteArray& more = {}) {
    return "\\pard\\plain\\fs2\\sl-" + Number(std::max(height, 1.0)) + "\\slmult0" + more +
           "\\par\r\n";
  }

  /// Raw text stands within a line, which what follows must not share.
  void EndRaw() {
    if (inRaw_) body_ += "\\par\r\n";
    inRaw_ = false;
  }
  /// What follows a table would else be taken for more of its rows.
  void Begin(bool isTable) {
    EndRaw();
    if (isTable && afterTable_) body_ += Spacer(1);
    afterTable_ = isTable;
  }

  void Put(const TextBlock& block) {
    Begin(false);
    body_ += QByteArray("\\pard\\plain") + AlignWord(block.align) +
             Dressed(block.text, block.font) + "\\par\r\n";
  }
  void Put(const RuleBlock& block) {
    Begin(false);
    body_ += Spacer(block.height, QByteArray("\\brdrb") + kThinRule);
  }
  void Put(const SpaceBlock& block) {
    if (inRaw_) {
      // Below raw text it is the room of what its line shows, a picture for example.
      body_.insert(rawAt_, "\\sl" + Number(block.height) + "\\slmult0");
      EndRaw();
      return;
    }
    Begin(false);
    for (double left = block.height; left > 0; left -= kLongestSpace)
      body_ += Spacer(std::min(left, kLongestSpace));
  }
  void Put(const PageBreakBlock&) {
    Begin(false);
    body_ += "\\pard\\plain\\fs2\\sl-1\\slmult0\\page\\par\r\n";
  }
  void Put(const RawRtfBlock& block) {
    if (!inRaw_) {
      Begin(false);
      body_ += "\\pard\\plain";
      rawAt_ = body_.size();
      body_ += ' ';
    }
    inRaw_ = true;
    body_ += block.text;
  }
  void Put(const TableBlock& block) {
    if (!block.table.GoesOn()) Begin(true);
    bool onTop = true;
    for (const TableRow& row : block.table.Rows()) {
      onTop = onTop && row.isHeader;
      if (onTop && block.table.GoesOn()) continue;
      PutRow(block, row, onTop);
    }
  }

  void PutRow(const TableBlock& block, const TableRow& row, bool repeats) {
    const double half = kCellGap / 2;
    body_ += "\\trowd\\trgaph" + Number(half) + "\\trleft" + Number(-half) + "\\trpaddt" +
             Number(kRowPadding) + "\\trpaddft3\\trpaddb" + Number(kRowPadding) +
             "\\trpaddfb3\\trkeep";
    if (repeats) body_ += "\\trhdr";
    double right = -half;
    size_t column = 0;
    for (const TableCell& cell : row.cells) {
      for (int i = 0; i < cell.span; ++i) right += block.widths[column++];
      if (row.ruleAbove) body_ += QByteArray("\\clbrdrt") + kThinRule;
      if (row.ruleBelow) body_ += QByteArray("\\clbrdrb") + kThinRule;
      body_ += "\\cellx" + Number(right);
    }
    body_ += "\r\n";
    column = 0;
    for (const TableCell& cell : row.cells) {
      const Align align = cell.align.value_or(block.table.Columns()[column].align);
      body_ += QByteArray("\\pard\\plain\\intbl") + AlignWord(align);
      if (row.keepWithNext || row.isHeader) body_ += "\\keepn";
      body_ += Dressed(cell.text, FontOf(row, cell, block.font)) + "\\cell\r\n";
      column += static_cast<size_t>(cell.span);
    }
    body_ += "\\row\r\n";
  }

  QByteArray body_;
  QStringList fonts_{QStringLiteral("Arial")};
  QList<int> colours_;
  bool inRaw_ = false;
  qsizetype rawAt_ = 0;  // where its paragraph takes further words
  bool afterTable_ = false;
};

namespace {

QByteArray Footer(const QString& text) {
  if (text.isEmpty()) return {};
  QByteArray words = RtfText(text);
  words.replace("%1", "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}");
  words.replace("%2", "{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt 1}}");
  return "{\\footer\\pard\\plain\\qr\\f0\\fs15 " + words + "\\par}\r\n";
}

QByteArray PageWords(const PageSetup& setup) {
  const Margins& margins = setup.margins;
  return "\\paperw" + Number(setup.Width()) + "\\paperh" + Number(setup.Height()) +
         (setup.landscape ? "\\landscape" : "") + "\\margl" + Number(margins.left) + "\\margr" +
         Number(margins.right) + "\\margt" + Number(margins.top) + "\\margb" +
         Number(margins.bottom) + "\\viewkind1\r\n";
}

}  // namespace

namespace {

QByteArray Head(const RtfBody& body, const Composition& document) {
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\r\n" + body.FontTable() + body.ColourTable() +
         "{\\info{\\title " + RtfText(document.title) + "}}\r\n" + PageWords(document.setup) +
         Footer(document.footer);
}

// A file must not end in a table.
const char* const kEnd = "\\pard\\plain\\fs2\\sl-1\\slmult0\\par}\r\n";

}  // namespace

QByteArray WriteRtf(const Composition& document) {
  RtfBody body;
  for (const Block& block : document.blocks) body.Take(block);
  const QByteArray content = body.Finish();
  return Head(body, document) + content + kEnd;
}

struct RtfSpool::Parts {
  RtfBody body;
  QTemporaryFile file;
  bool isWhole = true;

  void Put(const QByteArray& bytes) {
    if (bytes.isEmpty() || !isWhole) return;
    isWhole = (file.isOpen() || file.open()) && file.write(bytes) == bytes.size();
  }
};

RtfSpool::RtfSpool() : parts_(std::make_unique<Parts>()) {}
RtfSpool::~RtfSpool() = default;

void RtfSpool::Take(const Block& block) {
  parts_->body.Take(block);
  parts_->Put(parts_->body.TakeBytes());
}

bool RtfSpool::WriteTo(QFileDevice& file, const Composition& document) {
  constexpr qint64 kPiece = 1 << 20;
  parts_->Put(parts_->body.Finish());
  if (!parts_->isWhole || !parts_->file.seek(0)) return false;
  const auto put = [&](const QByteArray& bytes) { return file.write(bytes) == bytes.size(); };
  if (!put(Head(parts_->body, document))) return false;
  while (!parts_->file.atEnd())
    if (!put(parts_->file.read(kPiece))) return false;
  return parts_->file.error() == QFileDevice::NoError && put(kEnd);
}

}  // namespace quillary::documents
