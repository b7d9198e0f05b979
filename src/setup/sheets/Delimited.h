#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Lists that come from elsewhere: copied out of a spreadsheet, or exported from another program.
namespace quillary::setup {

/// The separator of a text: tab, semicolon or comma, whichever its first line has most of outside
/// of quotation marks.
QChar SeparatorOf(const QString& text);

/// The rows of such a text. Cells may stand in quotation marks, and then hold separators, line ends
/// and doubled quotation marks. Blanks around cells and rows without anything are left out.
std::vector<QStringList> ParseDelimited(const QString& text, QChar separator);

/// The text of an exported file: UTF-8 with or without its mark, UTF-16 with it, otherwise Latin-1
/// as older spreadsheets write it.
QString TextOfExport(const QByteArray& bytes);

}  // namespace quillary::setup
