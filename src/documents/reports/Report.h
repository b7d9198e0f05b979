#pragma once

#include "documents/forms/Rtf.h"
#include "documents/pages/Composer.h"
#include "documents/reports/ReportHeader.h"

namespace quillary::documents {

/// Where reports find their pictures and font metrics and where they go.
struct ReportPlaces {
  QString applicationFolder;  // holds `Report Doc` and `Files`
  QString fontFolder;
  Paper paper = Paper::A4;
};
/// Everything below the folder of the program's files, the metrics beside the program itself;
/// on the paper of the country of the business.
ReportPlaces ReportPlacesUnder(const QString& applicationFolder);

/// A report that is done: its pages for the preview, and its file.
struct ReportDocument {
  Composition pages;
  QString docTitle;       // the subject of a mail that carries the file
  QString docFile;        // the full path of the file
  QString note;           // where the file lies, for the line below the preview
  bool isWritten = true;  // the file holds what the pages show
  QStringList troubles;   // what the user has to be told once: a missing logo, a file in use
};

/// How a trouble ends that tells of a picture which is missing or cannot be shown.
inline constexpr const char* kWithoutPicture = "The document is made without it.";

/// Makes one report: a letterhead or headings, tables and rules, laid out on pages and written at
/// the end into a file that Word reads.
///
///   Report report(business, places);
///   report.StartDocument("Bad Debtor.doc");
///   report.StoreSubHeading("BAD DEBTORS LIST");
///   report.StoreBreak();
///   Table& table = report.StartTable("<+2in|>+1in");
///   table.AddHeader({"Client", "Amount"});
///   table.AddRow({"Ann Able", "$12.00"});
///   report.EndTable();
///   report.StoreBreak();
///   ReportDocument done = report.EndDocument();
class Report {
 public:
  /// `fonts` are those of who makes many reports; otherwise they are read anew.
  Report(Business& business, const ReportPlaces& places,
         std::shared_ptr<const PageFonts> fonts = {});

  /// `fileName` is a full path, or a name in `Report Doc`, which is made when it is missing.
  /// Margins of 725 twips, Arial at 8 points. `landscape` lays the pages on their side.
  void StartDocument(const QString& fileName, bool landscape = false);
  /// The same for a document of thousands of pages that is shown while it is being made: what goes
  /// into its file waits on the disk, and its tables come in parts.
  void StartLongDocument(const QString& fileName, bool landscape = false);
  /// What there is so far of a long document; its pages grow with what is added.
  ReportDocument SoFar() const;
  /// The subject of the mail; the file's name without its ending unless it is told.
  void SetDocTitle(const QString& title) { document_.docTitle = title; }
  const QString& DocTitle() const { return document_.docTitle; }
  const QString& DocFile() const { return document_.docFile; }
  /// The page composer, for all that the operations below do not do.
  Composer& Page();

  /// A table to fill. It is laid out, in the font that is set then, by EndTable.
  Table& StartTable(const QString& format);
  /// Lays the open table out and leaves 150 twips below it.
  void EndTable();
  /// Lays out what the open table has so far and goes on with its next part, which gets the same
  /// header for the pages to come.
  Table& EndPart(const QString& format);
  /// A rule from margin to margin 78 twips below the current Y, which moves to it. The top and
  /// bottom margins become 725 twips again.
  void StoreBreak();
  /// One bold line of 10 points; the font is plain and of 8 points after it.
  void StoreSubHeading(const QString& text);
  /// The first lines of a report: title, scope and day of printing, and a break.
  void StoreHeadings(const QString& title, const QString& scope);
  /// A picture at the left margin, as high as told in twips and as wide as it is then,
  /// within the margins. The current Y moves to its lower edge. A file that is missing or no JPEG
  /// is told to the user in the end, and nothing stands in its place.
  void DrawPict(const QString& picture, double height);
  /// The logo of the division, which ImportPicture and callers of DrawPict use.
  QString Logo() { return LogoFile(business_, places_.applicationFolder); }
  /// Links the logo in the file for Word, and holds it there too as what the link showed last,
  /// since other word processors and other machines do not follow it. A logo that cannot be shown
  /// is told to the user in the end instead.
  void ImportPicture();
  /// A line in the file for Word, in twips; the pages don't get it.
  void DrawLineRTF(double x1, double y1, double x2, double y2);
  /// Arial, not bold, not italic, 9 points.
  void SetVSPrinterFontDefault();
  void SetNoteFontPropertiesWord();

  /// Writes the file. One that cannot be written, because Word has it open for example, is among
  /// the troubles; the pages stand all the same.
  ReportDocument EndDocument();
  /// The same without the file, for who wants the pages alone.
  ReportDocument EndWithoutFile();

 private:
  void AddTrouble(const QString& text);
  /// As large as DrawPict would draw a logo.
  QByteArray PictureForWord(const QString& file);
  std::optional<PagePicture> LoadPicture(const QString& file, double height);

  Business& business_;
  ReportPlaces places_;
  std::shared_ptr<const PageFonts> fonts_;
  std::optional<Composer> composer_;
  std::optional<Table> table_;
  std::unique_ptr<RtfSpool> spool_;  // of a long document
  ReportDocument document_;
};

/// "ddd dd-mmm-yyyy" of the reports' headings: "Mon 02-Nov-2026".
QString PrintDateText(QDate day);
/// "02-Nov-2026"; empty for no date.
QString ReportDateText(QDate day);

}  // namespace quillary::documents
