#include "documents/reports/Report.h"

#include "base/CountryHabits.h"
#include "base/Text.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/StorageFailure.h"
#include "documents/forms/Rtf.h"
#include "documents/reports/ReportFiles.h"
#include "pdf/JpegHeader.h"
#include "pdf/PDFTypes.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quillary::documents {

namespace {

constexpr double kMargin = 725;
constexpr double kTextSize = 8;
constexpr double kHeadingSize = 10;
constexpr double kDefaultSize = 9;
constexpr double kBelowTable = 150;
constexpr double kBreak = 78;

// The pen that the lines of the Word file are drawn with.
constexpr int kPenColour = 0;
constexpr double kPenWidth = 15;  // twips
constexpr int kShapeUnits = 635;  // in a twip

const char* const kLineShape =
    "{\\shp"
    "{\\shpleft[[left]]\\shptop[[top]]\\shpright[[right]]\\shpbottom[[bottom]]"
    "{\\sp{\\sn shapeType}{\\sv 20}}"
    "{\\sp{\\sn fFlipH}{\\sv [[fliph]]}}"
    "{\\sp{\\sn fFlipV}{\\sv [[flipv]]}}"
    "{\\sp{\\sn lineColor}{\\sv [[color]]}}"
    "{\\sp{\\sn lineWidth}{\\sv [[width]]}}"
    "}}";

QString NoteOn(const QString& file) {
  return QStringLiteral(
             "This report has automatically been exported to an MS Word Compatible file with "
             "filename ") +
         QDir::toNativeSeparators(file).toUpper() + u'.';
}

/// Why the file could not be written; nothing when it was.
template <typename Content>
std::optional<QString> WriteFile(const QString& path, const Content& content) {
  try {
    WriteWhole(path, content);
    return std::nullopt;
  } catch (const StorageFailure& failure) {
    return QString::fromUtf8(failure.what());
  }
}

}  // namespace

ReportPlaces ReportPlacesUnder(const QString& applicationFolder) {
  ReportPlaces places;
  places.applicationFolder = applicationFolder;
  places.paper = CurrentWriting().letterPaper ? Paper::Letter : Paper::A4;
  places.fontFolder =
      QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("Fonts"));
  return places;
}

Report::Report(Business& business, const ReportPlaces& places,
               std::shared_ptr<const PageFonts> fonts)
    : business_(business),
      places_(places),
      fonts_(fonts ? std::move(fonts) : std::make_shared<const PageFonts>(places.fontFolder)) {}

void Report::StartDocument(const QString& fileName, bool landscape) {
  document_ = {};
  document_.docFile = QDir::isAbsolutePath(fileName)
                          ? fileName
                          : QDir(ReportFolder(places_.applicationFolder)).filePath(fileName);
  document_.docTitle = FileNameWithoutExtension(fileName);
  document_.note = NoteOn(document_.docFile);
  spool_.reset();
  composer_.emplace(fonts_, PageSetup{.paper = places_.paper, .landscape = landscape});
  composer_->SetFontSize(kTextSize);
}

void Report::StartLongDocument(const QString& fileName, bool landscape) {
  StartDocument(fileName, landscape);
  spool_ = std::make_unique<RtfSpool>();
  composer_->HandBlocksTo([this](const Block& block) { spool_->Take(block); });
}

ReportDocument Report::SoFar() const {
  ReportDocument made = document_;
  if (composer_) made.pages = composer_->SoFar();
  return made;
}

Composer& Report::Page() {
  if (!composer_) throw std::logic_error("No document has been started");
  return *composer_;
}

Table& Report::StartTable(const QString& format) {
  return table_.emplace(format);
}

void Report::EndTable() {
  if (!table_) return;
  Page().AddTable(std::move(*table_));
  table_.reset();
  Page().AdvanceY(kBelowTable);
}

Table& Report::EndPart(const QString& format) {
  if (table_) Page().AddTable(std::move(*table_));
  table_.emplace(format).GoOn();
  return *table_;
}

void Report::StoreBreak() {
  Page().AddRule(kBreak);
  Margins margins = Page().Setup().margins;
  margins.top = kMargin;
  margins.bottom = kMargin;
  Page().SetMargins(margins);
}

void Report::StoreSubHeading(const QString& text) {
  Composer& page = Page();
  page.SetFontSize(kHeadingSize);
  page.SetColour(0);
  page.SetBold(true);
  page.AddText(text);
  page.SetBold(false);
  page.SetFontSize(kTextSize);
}

void Report::StoreHeadings(const QString& title, const QString& scope) {
  StoreSubHeading(title);
  if (!scope.isEmpty()) StoreSubHeading(scope);
  StoreSubHeading(QStringLiteral("Print date: ") + PrintDateText(business_.Today()));
  StoreBreak();
}

void Report::AddTrouble(const QString& text) {
  if (!document_.troubles.contains(text)) document_.troubles.append(text);
}

std::optional<PagePicture> Report::LoadPicture(const QString& file, double height) {
  QFile bytes(file);
  if (!bytes.open(QIODevice::ReadOnly)) {
    AddTrouble(QStringLiteral("The picture %1 was not found. The document is made without it.")
                   .arg(QDir::toNativeSeparators(file)));
    return std::nullopt;
  }
  try {
    const JpegHeader header = ReadJpegHeader(bytes.readAll().toStdString());
    const double width = height * header.width / header.height;
    return PagePicture{.file = file, .width = width, .height = height};
  } catch (const PDFError& error) {
    AddTrouble(
        QStringLiteral("The picture %1 cannot be shown: %2. The document is made without it.")
            .arg(QDir::toNativeSeparators(file), QString::fromUtf8(error.what())));
    return std::nullopt;
  }
}

void Report::DrawPict(const QString& picture, double height) {
  auto placed = LoadPicture(picture, height);
  if (!placed) return;
  const double room = Page().RightEdge() - Page().LeftEdge();
  if (placed->width > room) {
    height *= room / placed->width;
    placed->height = height;
    placed->width = room;
  }
  if (Page().CurrentY() + height > Page().BottomEdge()) Page().NewPage();
  placed->x = Page().LeftEdge();
  placed->y = Page().CurrentY();
  Page().AddPicture(*placed);
  Page().AdvanceY(height);
}

QByteArray Report::PictureForWord(const QString& file) {
  constexpr double kLogoHeight = 850;
  QFile bytes(file);
  if (!bytes.open(QIODevice::ReadOnly)) return "{}";
  const QByteArray jpeg = bytes.readAll();
  const JpegHeader header = ReadJpegHeader(jpeg.toStdString());
  const double room = Page().RightEdge() - Page().LeftEdge();
  const double width = std::min(room, kLogoHeight * header.width / header.height);
  const auto number = [](double value) { return QByteArray::number(std::lround(value)); };
  return "{\\pict\\jpegblip\\picw" + number(header.width) + "\\pich" + number(header.height) +
         "\\picwgoal" + number(width) + "\\pichgoal" +
         number(width * header.height / header.width) + "\r\n" + jpeg.toHex() + "}";
}

void Report::ImportPicture() {
  // Word would show an error in place of a picture that it cannot show.
  if (!LoadPicture(Logo(), 1)) return;
  // Word unescapes the path twice: once as RTF, once as the argument of a field.
  QByteArray path;
  for (const QString& part : QDir::toNativeSeparators(Logo()).split(u'\\'))
    path += (path.isEmpty() ? "" : "\\\\\\\\") + RtfText(part);
  Page().AddRtf("{\\field{\\*\\fldinst { INCLUDEPICTURE \"" + path +
                "\" \\\\* MERGEFORMATINET \\\\d }}{\\fldrslt " + PictureForWord(Logo()) + "}}\r\n");
}

void Report::DrawLineRTF(double x1, double y1, double x2, double y2) {
  QByteArray shape = kLineShape;
  const auto fill = [&](const char* place, double number) {
    shape.replace(place, QByteArray::number(std::lround(number)));
  };
  fill("[[fliph]]", x1 < x2 ? 0 : 1);
  fill("[[left]]", std::min(x1, x2));
  fill("[[right]]", std::max(x1, x2));
  fill("[[flipv]]", y1 < y2 ? 0 : 1);
  fill("[[top]]", std::min(y1, y2));
  fill("[[bottom]]", std::max(y1, y2));
  fill("[[color]]", kPenColour);
  fill("[[width]]", kPenWidth * kShapeUnits);
  Page().AddRtf(shape);
}

void Report::SetVSPrinterFontDefault() {
  PageFont font = Page().Font();
  font.name = QStringLiteral("Arial");
  font.bold = false;
  font.italic = false;
  font.size = kDefaultSize;
  Page().SetFont(font);
}

void Report::SetNoteFontPropertiesWord() {
  Page().SetFont(ReadNotesFont(business_.World().settings));
}

ReportDocument Report::EndWithoutFile() {
  EndTable();
  document_.pages = Page().Finish(document_.docTitle);
  composer_.reset();
  return std::move(document_);
}

ReportDocument Report::EndDocument() {
  document_ = EndWithoutFile();
  const auto why =
      spool_
          ? WriteFile(document_.docFile,
                      [this](QFileDevice& file) { return spool_->WriteTo(file, document_.pages); })
          : WriteFile(document_.docFile, WriteRtf(document_.pages));
  if (why) {
    const QString trouble =
        QStringLiteral(
            "The file %1 could not be written: %2. What you see here is complete; "
            "close what may have the file open and make the report again.")
            .arg(QDir::toNativeSeparators(document_.docFile), *why);
    AddTrouble(trouble);
    document_.note = trouble;
    document_.isWritten = false;
  }
  return std::move(document_);
}

QString PrintDateText(QDate day) {
  return QLocale::c().toString(day, QStringLiteral("ddd dd-MMM-yyyy"));
}

QString ReportDateText(QDate day) {
  return day.isValid() ? QLocale::c().toString(day, QStringLiteral("dd-MMM-yyyy")) : QString();
}

}  // namespace quillary::documents
