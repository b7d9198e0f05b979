#pragma once

#include "pdf/AfmMetrics.h"
#include "pdf/JpegHeader.h"
#include "pdf/LineBuffer.h"
#include "pdf/PDFGlyphs.h"
#include "pdf/PDFOutput.h"
#include "pdf/PDFTypes.h"

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary {

/// Writes PDF 1.3 files (PDF Reference 1.3, Adobe 2000), object by object, straight to disk: the
/// built-in Type 1 fonts in WinAnsiEncoding, JPEG images, nothing compressed. A page is kept in
/// memory until it ends, an image until the document does.
///
/// A document: PDFInit, settings, PDFFileName, PDFBeginDoc, the first page's content, PDFEndPage
/// and PDFNewPage before each further page, PDFEndDoc. One writer makes any number of documents,
/// one after the other.
///
/// A strict document shows texts beyond WinAnsi too: in the faces of PDFHost::faces, cut down to
/// the glyphs that are shown and put into the file, with what a search or a copy needs to know of
/// them.
///
/// Lengths and places are in the user unit (centimetres unless PDFSetUnit says otherwise), from the
/// left and top edges of the page, y growing downward; font sizes are in points. Texts are UTF-8
/// and reach the file as ToWinAnsi gives them.
///
/// A setting that can't be gives a message box and falls back as its comment tells. PDFError is
/// thrown for what no fallback can mend: no output file, a failed write, a broken metric or image
/// file; the page then holds nothing of the operation that threw.
///
/// A file of the default kind has the habits that its readers have long put up with: object offsets
/// that fall short by two bytes for each object before, an open action that names object 3, Info
/// texts written as they are, backslashes of page texts shown twice, the face name "TimesItalic",
/// the encoding of text faces for Symbol and ZapfDingbats too (which viewers then show in part), no
/// word on inverted inks of a CMYK image. Viewers rebuild the cross-reference table and show every
/// page. PDFSetStrict does away with these habits.
class PDFWriter {
 public:
  explicit PDFWriter(PDFHost host);

  /// Forgets the document before: its settings, texts, fonts and tables. Page 1 becomes A4 upright,
  /// the unit a centimetre, line width 0.567 points, all colours black. What belongs to the writer
  /// stays: the font folder, PDFSetStrict, PDFConfirm and PDFView.
  void PDFInit();

  /// Strictly valid files: true offsets, an open action on the first page, Info texts escaped and
  /// in Unicode, the standard names and encodings of the built-in faces, no operator inside a path.
  /// Chosen before PDFBeginDoc; off at first.
  void PDFSetStrict(bool strict) { strict_ = strict; }
  bool PDFGetStrict() const { return strict_; }

  // Settings of the document.

  /// The folder of the font metric files.
  void PDFPathConfiguration(const std::filesystem::path& path);
  const std::filesystem::path& PDFGetPathConfiguration() const { return fontPath_; }
  /// Any of the digits 1 hide the toolbar, 2 hide the menu bar, 3 hide the window's controls, 4 fit
  /// the window to the page, 5 centre the window, 6 show the title instead of the file name.
  void PDFSetViewerPreferences(std::string digits) { viewerPreferences_ = std::move(digits); }
  const std::string& PDFGetViewerPreferences() const { return viewerPreferences_; }
  /// A pink text across the middle of every page that ends from here on; empty for none.
  void PDFWatermark(std::string text) { watermark_ = std::move(text); }
  /// 0 full page, 1 full width, 2 real size, any other number a percentage. A negative number gives
  /// a message and 0.
  void PDFSetZoomMode(int mode);
  int PDFGetZoomMode() const { return zoomMode_; }
  void PDFUseThumbs(bool use) { useThumbs_ = use; }
  bool PDFGetUseThumbs() const { return useThumbs_; }
  /// Whether the viewer opens with the bookmarks, which are reachable only then.
  void PDFUseOutlines(bool use) { useOutlines_ = use; }
  bool PDFGetUseOutlines() const { return useOutlines_; }
  /// 0 single page, 1 one column, 2 two columns, 3 as the viewer likes; else a message and 0.
  void PDFSetLayoutMode(int mode);
  int PDFGetLayoutMode() const { return layoutMode_; }
  /// 0 point, 1 millimetre, 2 centimetre; else a message and centimetre.
  void PDFSetUnit(int unit);
  int PDFGetUnit() const { return unit_; }
  /// 1 portrait, 2 landscape, for this and the following pages, between PDFEndPage and PDFNewPage
  /// for the following ones only; else a message and portrait.
  void PDFOrientation(int orientation);
  int PDFGetOrientation() const { return pages_[PageToSet()].orientation == 'l' ? 2 : 1; }
  /// Of the same pages. A known format lies as PDFOrientation says, a width and
  /// height are taken as given. Anything else gives a message and A4.
  void PDFFormatPage(const PDFPageFormat& format);
  int PDFPageNumber() const { return pageCount_; }
  int PDFNbPage() const { return pageCount_; }
  void PDFProducer(std::string text) { producer_ = std::move(text); }
  const std::string& PDFGetProducer() const { return producer_; }
  void PDFSubject(std::string text) { subject_ = std::move(text); }
  const std::string& PDFGetSubject() const { return subject_; }
  void PDFKeywords(std::string text) { keywords_ = std::move(text); }
  const std::string& PDFGetKeywords() const { return keywords_; }
  void PDFCreator(std::string text) { creator_ = std::move(text); }
  const std::string& PDFGetCreator() const { return creator_; }
  void PDFAuthor(std::string text) { author_ = std::move(text); }
  const std::string& PDFGetAuthor() const { return author_; }
  void PDFTitle(std::string text) { title_ = std::move(text); }
  const std::string& PDFGetTitle() const { return title_; }
  /// Creates the file, over an older one. A failure shows itself in PDFBeginDoc.
  void PDFFileName(const std::filesystem::path& file);
  const std::filesystem::path& PDFGetFileName() const { return fileName_; }
  /// Whether a message tells that the file is written.
  void PDFConfirm(bool confirm) { confirm_ = confirm; }
  bool PDFGetConfirm() const { return confirm_; }
  /// Kept for the caller; the finished file is handed to PDFHost::openFile either way.
  void PDFView(bool view) { view_ = view; }
  bool PDFGetView() const { return view_; }
  void PDFPageHeight(double height) { CurrentPage().height = height * scaleFactor_; }
  double PDFGetPageHeight() const { return CurrentPage().height / scaleFactor_; }
  void PDFPageWidth(double width) { CurrentPage().width = width * scaleFactor_; }
  double PDFGetPageWidth() const { return CurrentPage().width / scaleFactor_; }
  void PDFSetLeftMargin(int margin) { leftMargin_ = margin; }
  int PDFGetLeftMargin() const { return leftMargin_; }
  void PDFSetTopMargin(int margin) { topMargin_ = margin; }
  int PDFGetTopMargin() const { return topMargin_; }
  void PDFSetRightMargin(int margin) { rightMargin_ = margin; }
  int PDFGetRightMargin() const { return rightMargin_; }
  void PDFSetBottomMargin(int margin) { bottomMargin_ = margin; }
  int PDFGetBottomMargin() const { return bottomMargin_; }
  /// Between the sides of a cell and its text. In points, unlike the other margins: the first value
  /// is a tenth of a unit turned into points.
  void PDFSetCellMargin(int margin) { cellMargin_ = margin; }
  int PDFGetCellMargin() const { return cellMargin_; }
  /// -1 takes the left margin for the right and the top margin for the bottom.
  void PDFSetMargins(int left, int top, int right = -1, int bottom = -1);
  /// The current position: where a text goes that is given no place. The left and top margins at
  /// the start of each page.
  double PDFGetX() const { return x_; }
  double PDFGetY() const { return y_; }

  // The document and its pages.

  /// Writes the header and the Info object and opens page 1. Fonts set before are kept.
  void PDFBeginDoc();
  /// Gives the next page the size of this one unless it has its own.
  void PDFEndPage();
  /// Writes the page and opens the next.
  void PDFNewPage();
  /// Writes the last page and all that follows the pages, closes the file and hands it to the
  /// viewer.
  void PDFEndDoc();

  // Text.

  /// Font 0 Arial (written as Helvetica), 1 Courier, 2 Times, 3 Symbol, 4 ZapfDingbats; another
  /// number gives a message and "TimesRoman". A size of 0 is written as 10. A digit 1 in the
  /// style means italic, 2 bold, 3 underlined: 0 is plain, 12 bold italic.
  void PDFSetFont(int font, int size, int style);
  const std::string& PDFGetFontName() const { return fontName_; }
  /// A text that does not start with "#" gives a message and black.
  void PDFSetTextColor(const PDFColor& color);
  const PDFColor& PDFGetTextColor() const { return givenTextColor_; }
  /// How a cell places its text unless told otherwise: "L", "C", "R" or "J" (stretched).
  void PDFSetAlignement(std::string alignment) { alignment_ = std::move(alignment); }
  const std::string& PDFGetAlignement() const { return alignment_; }
  double PDFTextHeight() const { return EffectiveFontSize() / scaleFactor_; }
  /// Turns the next text, and only it, around its starting point: degrees, counterclockwise.
  void PDFSetRotation(double degrees) { rotation_ = degrees; }
  /// The start of the base line. An x or y of exactly 0 means the current position.
  void PDFTextOut(std::string_view text, double x = 0, double y = 0);
  /// Adds a link over an area of the page. The kind names what lies there: "CELL", "IMAGE", "RECT",
  /// "RECTANGLE" or "ELLIPSE" (x and y are then its centre, width and height its radii). A kind,
  /// area or target that can't be gives a message and no link. Throws PDFError beyond page 1000 and
  /// for more than 1000 links on a page.
  void PDFLink(std::string_view kind, double x, double y, double width, double height,
               const PDFTarget& target);
  /// The width that goes with a height, or without one a point for each pixel. 0 for a file that
  /// PDFImage refuses with a message.
  double PDFImageWidth(const std::filesystem::path& file, double height = 0);
  double PDFImageHeight(const std::filesystem::path& file, double width = 0);
  /// A JPEG file with its upper left corner at x, y. A size of 0 follows from the other one or from
  /// the pixels. Another kind of file, judged by its name, gives a message and no image. The same
  /// file is stored once, however often it is placed.
  void PDFImage(const std::filesystem::path& file, double x, double y, double width = 0,
                double height = 0, const PDFTarget& link = {});
  /// In the unit. Without a font name and size those that are set are measured.
  double PDFGetStringWidth(std::string_view text, std::string_view font = {}, int size = 0);
  /// The texts of this document with characters that no face has, each once.
  const std::vector<std::string>& PDFGetTextsNotShown() const { return notShown_; }
  /// Lists the metric files of a folder, which is then searched after the font folder. An unchanged
  /// folder is not read again.
  void PDFLoadAfm(const std::filesystem::path& folder);
  const std::vector<std::string>& PDFGetFontNameList() const { return fontNameList_; }
  /// A bookmark to a height of the current page. Level 0 is the outermost; a level that skips its
  /// parent is drawn in to the next possible one.
  void PDFSetBookmark(std::string title, int level, double y);

  // Drawing.

  /// 0 solid, 1 dashed, 2 dot dash, 3 dashed pattern, in steps of the line width that is set; else
  /// a message and solid.
  void PDFSetLineStyle(int style);
  void PDFSetLineWidth(double width);
  double PDFGetLineWidth() const { return lineWidth_ / scaleFactor_; }
  /// How closed shapes are painted: 0 outlined, 1 filled, 2 both; else a message and outlined.
  void PDFSetDrawMode(int mode);
  const std::string& PDFGetDrawMode() const { return drawMode_; }
  void PDFDrawLineHor(double x, double y, double length);
  void PDFDrawLineVer(double x, double y, double length);
  void PDFDrawLine(double x1, double y1, double x2, double y2);
  void PDFDrawRectangle(double x, double y, double width, double height,
                        const PDFTarget& link = {});
  void PDFDrawEllipse(double x, double y, double radiusX, double radiusY,
                      const PDFTarget& link = {});
  void PDFDrawPolygon(const std::vector<PDFPoint>& points);
  /// The colour of lines and outlines. Wrong texts as with PDFSetTextColor.
  void PDFSetLineColor(const PDFColor& color);
  const PDFColor& PDFGetLineColor() const { return givenLineColor_; }
  /// The colour that shapes and cells are filled with. Wrong texts as with PDFSetTextColor.
  void PDFSetDrawColor(const PDFColor& color);
  const PDFColor& PDFGetDrawColor() const { return givenDrawColor_; }
  /// The sides of a cell that are drawn: "1" all, "0" none, or any of the letters L, R, T and B.
  void PDFSetBorder(std::string_view sides);
  /// All drawn sides, in the order "LRTB".
  const std::string& PDFGetBorder() const { return border_; }
  void PDFSetFill(bool fill) { fill_ = fill; }
  bool PDFGetFill() const { return fill_; }
  /// A row of a table: filled and bordered as set, its text on one line in the middle of the
  /// height. Each line of a longer text gets a row of its own, one height below the other, inside
  /// one common border. An empty alignment takes PDFSetAlignement's; "J" stretches the blanks of
  /// every line but the last. The link covers all rows.
  void PDFCell(std::string_view text, double x, double y, double width, double height,
               std::string_view alignment = {}, const PDFTarget& link = {});

 private:
  struct Page {
    double width = 0;  // points
    double height = 0;
    char orientation = 'p';
  };
  struct Link {
    double left = 0;  // points from the lower left corner
    double bottom = 0;
    double right = 0;
    double top = 0;
    PDFTarget target;
  };
  struct Bookmark {
    std::string title;
    int level = 0;
    int page = 0;
    double y = 0;  // points from the lower edge
  };
  struct Image {
    JpegHeader header;
    std::string bytes;
    std::filesystem::file_time_type changed;
    int index = 0;  // 0 until it is placed
  };
  /// A face that goes into the file. Page texts name its glyphs by their place in `glyphs`, from 1
  /// on; one that stands for different characters is there for each.
  struct EmbeddedFace {
    int face = 0;
    std::map<std::pair<unsigned, std::u32string>, unsigned> codes;
    std::vector<PDFGlyph> glyphs;
    int object = 0;
  };
  /// A text as it is shown: in WinAnsi, or in glyphs of embedded faces.
  struct SetText {
    std::string winAnsi;
    const PDFShapedText* shaped = nullptr;
  };
  /// What the operators written so far leave set; each page starts anew.
  struct PageState {
    double lineWidth = 1;
    std::string lineStyle = "[] 0 d";
  };

  void ShowMessage(std::string_view titlePart, const std::string& text) const;
  void WrongValue(std::string_view titlePart, std::string_view text, const std::string& value,
                  std::string_view fallback) const;
  Page& CurrentPage() { return pages_[static_cast<std::size_t>(pageCount_ - 1)]; }
  const Page& CurrentPage() const { return pages_[static_cast<std::size_t>(pageCount_ - 1)]; }
  /// The one that settings of pages apply to: the next one once this one has ended.
  std::size_t PageToSet() const {
    const auto next = static_cast<std::size_t>(pageCount_);
    return pages_.size() > next ? next : next - 1;
  }
  double AtX(double x) const { return x * scaleFactor_; }
  double AtY(double y) const { return CurrentPage().height - y * scaleFactor_; }

  // Objects (PDFDocument.cpp, PDFCatalog.cpp).
  int BeginObject();
  void EndObject();
  void WriteObject(std::initializer_list<std::string_view> parts, std::size_t commentLength = 0);
  void RecordOffset(std::size_t length, std::uint64_t trueOffset);
  void WriteLine(std::string_view text);
  void WriteInfo();
  std::string InfoText(const std::string& text) const;
  void OpenPage();
  void ClosePage(bool isLast);
  void ExtendPages();
  void PrepareWatermark();
  void WriteFonts();
  void WritePages();
  void WriteResources();
  void WriteImages();
  void WritePage(int page, int pagesObject);
  void WriteAnnotations(int page);
  int PutBookmarks();
  int WriteCatalog(int pagesObject, int outlinesObject);
  void WriteCrossReference(int catalogObject);
  int PageObject(int page) const { return firstPageObject_ + page - 1; }

  // Content (PDFText.cpp, PDFImage.cpp, PDFDrawing.cpp, PDFCell.cpp).
  int EffectiveFontSize() const { return fontSize_ == 0 ? 10 : fontSize_; }
  int UseFont(const std::string& face);
  const AfmMetrics& Metrics(std::string face);
  SetText Prepare(std::string_view utf8, std::string_view font);
  double WidthInPoints(const SetText& text, std::string_view font, int size);
  void ShowText(LineBuffer& content, const SetText& text, double x, double y, double rotation);
  std::string UnderlineOperators(const SetText& text, double x, double y, double rotation);
  Image* LoadImage(const std::filesystem::path& file);
  std::string LineStyleOperator(int style) const;
  void PrepareLineStyle();
  void PrepareLine();
  void Stroke();
  void StrokedLine(std::string_view frame, double x1, double y1, double x2, double y2);
  void BeginShape(std::string_view frame);
  void MoveTo(double x, double y);
  void LineTo(double x, double y);
  void CurveTo(double x1, double y1, double x2, double y2, double x3, double y3);
  void DrawCellRow(std::string_view utf8, double x, double y, double width, double height,
                   const std::string& sides, char alignment);

  // Embedded faces (PDFEmbedding.cpp).
  EmbeddedFace& Embed(int face);
  unsigned CodeOf(EmbeddedFace& face, const PDFGlyph& glyph);
  void ShowGlyphs(LineBuffer& content, const PDFShapedText& text);
  void NoteIfNotShown(std::string_view utf8, const PDFShapedText& text);
  int WriteStream(std::string_view entries, std::string_view bytes);
  int WriteFaceDescription(const PDFFontFile& file, const std::string& name);
  int WriteGlyphWidths(const EmbeddedFace& face, const PDFFontFile& file, const std::string& name);
  void WriteEmbeddedFaces();

  PDFHost host_;
  bool strict_ = false;
  PDFOutput output_;
  std::filesystem::path fileName_;
  std::filesystem::path fontPath_;
  std::filesystem::path listedFolder_;
  std::filesystem::file_time_type listedChange_;  // listing it anew for every document takes time
  std::vector<std::string> fontNameList_;
  std::map<std::string, AfmMetrics, std::less<>> metrics_;

  double scaleFactor_ = 1;  // points in a unit
  int unit_ = 2;
  int zoomMode_ = 0;
  int layoutMode_ = 0;
  bool useThumbs_ = false;
  bool useOutlines_ = false;
  bool confirm_ = false;
  bool view_ = false;
  std::string title_, author_, creator_, keywords_, subject_, producer_;
  std::string viewerPreferences_;
  std::string watermark_;
  int leftMargin_ = 0, topMargin_ = 0, rightMargin_ = 0, bottomMargin_ = 0, cellMargin_ = 0;
  double x_ = 0;
  double y_ = 0;

  int pageCount_ = 1;
  std::vector<Page> pages_;
  int objectNumber_ = 0;
  std::vector<std::uint64_t> offsets_;  // of object 1, 2, ...
  std::uint64_t filePosition_ = 0;      // as counted, see RecordOffset
  LineBuffer objectBuffer_;
  LineBuffer pageContent_;
  LineBuffer pageGraphics_;  // in front of the page content
  PageState pageState_;
  std::vector<std::string> fonts_;  // in the order of first use
  std::vector<int> fontObjects_;
  std::vector<EmbeddedFace> embedded_;  // in the order of first use
  std::vector<std::string> notShown_;
  std::map<std::filesystem::path, std::unique_ptr<Image>> images_;
  std::vector<Image*> placedImages_;
  std::vector<std::vector<Link>> links_;  // by page
  std::vector<Bookmark> bookmarks_;
  int firstPageObject_ = 0;
  int firstImageObject_ = 0;

  std::string fontName_;
  int fontSize_ = 0;
  bool underline_ = false;
  double rotation_ = 0;
  std::string alignment_;
  std::string border_;
  bool fill_ = false;
  double lineWidth_ = 0;  // points
  std::string lineStyle_;
  std::string drawMode_;
  std::string textColor_, lineColor_, drawColor_;  // operators
  PDFColor givenTextColor_ = 0, givenLineColor_ = 0, givenDrawColor_ = 0;
};

}  // namespace quillary
