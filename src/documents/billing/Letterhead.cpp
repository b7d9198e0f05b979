#include "documents/billing/Letterhead.h"

#include "documents/pages/PageText.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace quillary::documents {
namespace {

// Centimetres of the PDF page.
constexpr double kLogoX = 1;
constexpr double kLogoTop = 0.7;
constexpr double kLogoWidth = 4.5;
constexpr double kLogoHeight = 3.2;
constexpr double kNameX = 6;
constexpr double kNameWidth = 7.7;
constexpr double kTitleX = 14;
constexpr double kAddressLine = 0.5;

constexpr double kWordLogoHeight = 850;  // twips
constexpr double kWordGap = 120;

void AddIfAny(QStringList& lines, const QString& line) {
  if (!line.trimmed().isEmpty()) lines += line.trimmed();
}

/// A label alone would only show that something is missing.
void AddLabelled(QStringList& lines, const QString& label, const QString& text) {
  if (!text.trimmed().isEmpty()) lines += label + text;
}

/// Each line a step below the one before, however often it wraps.
double WriteColumn(BillingPages& pages, const QStringList& lines, double x, double width) {
  for (const QString& line : lines) {
    pages.AddRow({{x, line, width}}, {}, kAddressLine);
  }
  return pages.CurrentY();
}

QStringList BusinessLines(const HeaderStrings& header) {
  const QStringList address = TextLines(header.plainAddress);
  QStringList lines;
  AddLabelled(lines, QStringLiteral("COMPANY: "), header.company);
  AddIfAny(lines, header.providerLine);
  AddIfAny(lines, header.acnLine);
  if (!header.plainAddress.trimmed().isEmpty()) {
    lines += QStringLiteral("ADDRESS: ") + address.first();
    for (const QString& line : address.sliced(1)) lines += QString(20, u' ') + line;
  }
  AddLabelled(lines, QStringLiteral("CONTACT: "), header.contact);
  AddLabelled(lines, QStringLiteral("PHONE: "), header.phone);
  AddIfAny(lines, header.emailLine);
  AddIfAny(lines, header.faxLine);
  return lines;
}

QStringList AccountLines(const HeaderStrings& header) {
  QStringList lines;
  if (!header.number.isEmpty()) AddIfAny(lines, header.taxLine);
  if (!header.accountName.isEmpty())
    lines += QStringLiteral("EFT - Acct Name: ") + header.accountName;
  if (!header.bsbAndAccount.isEmpty()) lines += QStringLiteral("BSB : ") + header.bsbAndAccount;
  return lines;
}

}  // namespace

QString UsableLogo(PDFWriter& pdf, const QString& file, QStringList& troubles) {
  if (!QFileInfo::exists(file)) {
    troubles += QStringLiteral("The picture %1 was not found. The document is made without it.")
                    .arg(QDir::toNativeSeparators(file));
    return {};
  }
  try {
    if (pdf.PDFImageWidth(file.toStdU16String()) > 0) return file;
  } catch (const PDFError& error) {
    troubles +=
        QString::fromStdString(error.what()) + QStringLiteral(". The document is made without it.");
  }
  return {};
}

void PrintHeaderPDF(BillingPages& pages, const HeaderStrings& header, const QString& logo,
                    const QString& title) {
  const double top = pages.CurrentY();
  if (!logo.isEmpty()) pages.PutPicture(logo, kLogoX, kLogoTop, kLogoWidth, kLogoHeight);
  const double nameEnd = WriteColumn(pages, BusinessLines(header), kNameX, kNameWidth);
  pages.MoveTo(top);
  pages.AddRow({{kTitleX, title}}, {}, kAddressLine);
  const double accountEnd = WriteColumn(pages, AccountLines(header), kTitleX, 0);
  pages.MoveTo(std::max(nameEnd, accountEnd));
}

void PrintHeaderWord(Report& report, const HeaderStrings& header, const QString& title) {
  QStringList company;
  AddIfAny(company, header.contact);
  AddIfAny(company, header.providerLine);
  AddIfAny(company, header.acnLine);
  if (!header.number.isEmpty()) AddIfAny(company, header.taxLine);
  QStringList address;
  if (!header.address.trimmed().isEmpty())
    address = TextLines(QStringLiteral("ADDRESS: ") + header.address);
  AddLabelled(address, QStringLiteral("PHONE: "), header.phone);
  AddIfAny(address, header.emailLine);
  AddIfAny(address, header.faxLine);
  QStringList account;
  if (!header.accountName.isEmpty())
    account += QStringLiteral("EFT - Acct Name: ") + header.accountName;
  if (!header.bsbAndAccount.isEmpty()) account += QStringLiteral("BSB : ") + header.bsbAndAccount;
  Table& table = report.StartTable(QStringLiteral("<+1.75in|<+2.75in|<+2.5in"));
  // A long name wraps; the address below it stays in one piece.
  table.AddRow({header.company, {}, title}).Bold();
  table.AddRow({company.join(u'\n'), address.join(u'\n'), account.join(u'\n')});
  report.EndTable();
  report.ImportPicture();
  report.DrawPict(report.Logo(), kWordLogoHeight);
  report.Page().AddRule(kWordGap);
  report.Page().AdvanceY(kWordGap);
}

BillingStyle NotesStyle(const BillingFrame& frame) {
  const PageFont& font = frame.notesFont;
  return {.size = std::max(1, static_cast<int>(font.size)),
          .bold = font.bold,
          .italic = font.italic,
          .font = PageFonts::IndexOf(font.name),
          .colour = font.colour};
}

QStringList EftLines(const HeaderStrings& header) {
  if (header.accountName.isEmpty() && header.bsbAndAccount.isEmpty()) return {};
  QStringList lines{QStringLiteral("EFT")};
  AddLabelled(lines, QStringLiteral("Account Name: "), header.accountName);
  AddLabelled(lines, QStringLiteral("BSB_Account Number "), header.bsbAndAccount);
  return lines;
}

QStringList SenderLines(const HeaderStrings& header) {
  QStringList lines;
  AddIfAny(lines, header.company);
  AddIfAny(lines, header.contact);
  for (const QString& line : TextLines(header.plainAddress)) AddIfAny(lines, line);
  return lines;
}

}  // namespace quillary::documents
