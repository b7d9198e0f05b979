#pragma once

#include "documents/pages/PageFonts.h"
#include "documents/pages/PageList.h"
#include "documents/pages/Table.h"

#include <functional>
#include <memory>
#include <variant>

namespace quillary::documents {

// What a document says, in order, for the files that are laid out anew by whoever reads them.

struct TextBlock {
  QString text;
  PageFont font = {};
  Align align = Align::Left;
};
struct TableBlock {
  Table table;
  PageFont font = {};
  std::vector<double> widths;  // of the columns as they were laid out, in twips
};
struct RuleBlock {
  double height = 0;  // from the text above to the rule
};
struct SpaceBlock {
  double height = 0;
};
struct PageBreakBlock {};
/// Text of the RTF file, taken as it is.
struct RawRtfBlock {
  QByteArray text;
};
using Block =
    std::variant<TextBlock, TableBlock, RuleBlock, SpaceBlock, PageBreakBlock, RawRtfBlock>;

/// A document: its pages, and beside them what they say.
struct Composition {
  QString title;
  PageSetup setup;  // the margins are those that the document began with
  QString footer;
  PageList pages;
  std::vector<Block> blocks;
  std::shared_ptr<const PageFonts> fonts;
};

/// Lays texts, tables, rules and pictures out on pages, each below the one before. All lengths are
/// in twips from the left and upper edges of the page.
///
///   Composer composer(fonts, setup);
///   composer.SetBold(true);
///   composer.AddText("INVOICE TO:");
///   Table jobs("<+1in|<+3in|>+1in");
///   jobs.AddHeader({"Date", "Service", "Price"});
///   jobs.AddRow({"02-Nov-2026", "Lawns", "$55.00"});
///   composer.AddTable(jobs);
///   Composition document = composer.Finish("Invoice");
///
/// Nothing is laid over something else: what does not fit goes to the next page, and a row that no
/// page could hold is split between its lines. Only a caller who sets the current Y back can make
/// things overlap.
class Composer {
 public:
  Composer(std::shared_ptr<const PageFonts> fonts, const PageSetup& setup);

  // The page.

  const PageSetup& Setup() const { return setup_; }
  /// From here on; the top margin from the next page on.
  void SetMargins(const Margins& margins);
  double LeftEdge() const { return setup_.margins.left; }
  double RightEdge() const { return setup_.Width() - setup_.margins.right; }
  double BottomEdge() const { return setup_.Height() - setup_.margins.bottom; }
  double CurrentY() const { return currentY_; }
  void SetCurrentY(double y);
  void AdvanceY(double height) { SetCurrentY(currentY_ + height); }
  void NewPage();
  int PageCount() const { return static_cast<int>(document_.pages.size()); }
  /// A small line at the foot of every page, "%1" being its number and "%2" the number of all.
  void SetFooter(const QString& text) { document_.footer = text; }

  // The font of what is added from here on. A table takes the one that is set when it is added.

  const PageFont& Font() const { return font_; }
  void SetFont(const PageFont& font) { font_ = font; }
  void SetFontName(const QString& name) { font_.name = name; }
  void SetFontSize(double points) { font_.size = points; }
  void SetBold(bool bold) { font_.bold = bold; }
  void SetItalic(bool italic) { font_.italic = italic; }
  void SetColour(int rgb) { font_.colour = rgb; }

  // What stands on the page.

  /// Lines between the margins, wrapped. The current Y moves below them. An empty text is an empty
  /// line.
  void AddText(const QString& text, Align align = Align::Left);
  /// From the left margin. A table that is wider than the page is narrowed to it.
  void AddTable(Table table);
  /// A thin line from margin to margin, `below` the current Y, which moves to it; at the foot of a
  /// full page just above the margin.
  void AddRule(double below);
  /// A line of its own place on this page. Files that flow don't get it.
  void AddLine(const PageLine& line);
  /// A text of its own place on this page. Files that flow don't get it.
  void AddRun(const TextRun& run);
  /// A JPEG of its own place on this page; the current Y stays. Files that flow don't get it.
  void AddPicture(const PagePicture& picture);
  /// Goes into the RTF file at this place.
  void AddRtf(const QByteArray& raw);

  const PageFonts& Fonts() const { return *document_.fonts; }
  /// Hands each block on when it is complete, instead of keeping it with the document: for what is
  /// too long to be held as a whole. To be told before anything is added.
  using TakeBlock = std::function<void(const Block&)>;
  void HandBlocksTo(TakeBlock take) { take_ = std::move(take); }
  /// The document as it is while it is being made; it grows with what is added later.
  Composition SoFar() const;
  /// The document; the composer is done with then.
  Composition Finish(const QString& title);

 private:
  friend class TablePlacer;

  Page& CurrentPage() { return document_.pages.Last(); }
  void AddBlock(Block block);
  /// To the next page because this one is full, not because the document says so.
  void TurnPage();
  PageList::Footer FooterOfPages() const;

  Composition document_;
  PageSetup setup_;
  PageFont font_;
  double currentY_ = 0;
  TakeBlock take_;
  bool isUntouched_ = true;
};

}  // namespace quillary::documents
