#include "reports/ReportForms.h"

#include "base/Text.h"
#include "documents/forms/Csv.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace quillary::reports {
namespace {

bool HasGroups(const ReportSection& section) {
  return std::any_of(section.groups.begin(), section.groups.end(),
                     [](const ReportGroup& group) { return !group.key.isEmpty(); });
}

/// As a program reads it: "55.5", "2026-11-02".
QString TypedText(const Value& cell) {
  if (cell.IsDate()) return cell.ToDate().toString(Qt::ISODate);
  return cell.ToText();
}

QByteArray CsvLine(const QStringList& cells) {
  QByteArrayList fields;
  for (const QString& cell : cells) fields += documents::CsvField(cell);
  return fields.join(',') + "\r\n";
}

QJsonValue JsonOf(const Value& cell) {
  if (cell.IsNull()) return QJsonValue::Null;
  if (cell.IsText() || cell.IsDate()) return TypedText(cell);
  return cell.ToDouble();
}

QJsonArray JsonOf(const std::vector<Value>& cells) {
  QJsonArray array;
  for (const Value& cell : cells) array += JsonOf(cell);
  return array;
}

QJsonArray JsonColumns(const ReportSection& section) {
  QJsonArray columns;
  for (const ReportColumn& column : section.columns) columns += column.heading;
  return columns;
}

QJsonObject JsonGroup(const ReportGroup& group) {
  QJsonArray rows;
  for (const ReportRow& row : group.rows) rows += JsonOf(row.cells);
  return {{"key", group.key}, {"rows", rows}, {"totals", JsonOf(group.totals)}};
}

void AddJsonGroups(const ReportSection& section, bool isFirst, QJsonArray& groups) {
  const auto add = [&](QJsonObject group) {
    if (!isFirst) group.insert("columns", JsonColumns(section));
    groups += group;
  };
  for (const ReportGroup& group : section.groups) {
    QJsonObject made = JsonGroup(group);
    if (group.key.isEmpty() && !section.title.isEmpty()) made.insert("key", section.title);
    add(made);
  }
  if (!isFirst && !section.totals.empty())
    add({{"key", "Total"}, {"rows", QJsonArray()}, {"totals", JsonOf(section.totals)}});
}

QJsonObject JsonReport(const ReportData& data) {
  QJsonArray groups;
  for (const ReportSection& section : data.sections)
    AddJsonGroups(section, &section == &data.sections.front(), groups);
  QJsonObject report{{"title", data.title}, {"groups", groups}};
  if (!data.sections.empty()) {
    report.insert("columns", JsonColumns(data.sections.front()));
    report.insert("totals", JsonOf(data.sections.front().totals));
  }
  QJsonArray parts;
  for (const ReportData& part : data.parts) parts += JsonReport(part);
  if (!parts.isEmpty()) report.insert("parts", parts);
  if (!data.troubles.isEmpty())
    report.insert("troubles", QJsonArray::fromStringList(data.troubles));
  return report;
}

// Text for a terminal.

using TextLine = QStringList;

TextLine ShownLine(const ReportSection& section, const std::vector<Value>& cells) {
  TextLine line;
  for (size_t at = 0; at < section.columns.size(); ++at) {
    QString text = at < cells.size() ? ShownCell(section.columns[at].kind, cells[at]) : QString();
    line += text.replace(u'\n', QStringLiteral(", ")).replace(u'\r', QString());
  }
  return line;
}

std::vector<TextLine> LinesOf(const ReportSection& section) {
  std::vector<TextLine> lines;
  if (section.showsHeadings) {
    TextLine headings;
    for (const ReportColumn& column : section.columns) headings += column.heading;
    lines.push_back(headings);
  }
  for (const ReportGroup& group : section.groups) {
    if (group.showsKey) lines.push_back({group.key});  // a line by itself: no column bounds it
    for (const ReportRow& row : group.rows) lines.push_back(ShownLine(section, row.cells));
    if (!group.totals.empty()) lines.push_back(ShownLine(section, group.totals));
  }
  if (!section.totals.empty()) lines.push_back(ShownLine(section, section.totals));
  return lines;
}

QString AlignedText(const ReportSection& section) {
  const std::vector<TextLine> lines = LinesOf(section);
  std::vector<qsizetype> widths(section.columns.size(), 0);
  for (const TextLine& line : lines) {
    if (line.size() != static_cast<qsizetype>(widths.size()) || line.size() == 1) continue;
    for (size_t at = 0; at < widths.size(); ++at)
      widths[at] = std::max(widths[at], line[static_cast<qsizetype>(at)].size());
  }
  QString text;
  for (const TextLine& line : lines) {
    QString row;
    for (qsizetype at = 0; at < line.size(); ++at) {
      const auto column = static_cast<size_t>(at);
      const bool right = section.columns[column].place.startsWith(u'>');
      const qsizetype width = line.size() == 1 ? 0 : widths[column];
      row += right ? line[at].rightJustified(width) : line[at].leftJustified(width);
      if (at + 1 < line.size()) row += QStringLiteral("  ");
    }
    while (row.endsWith(u' ')) row.chop(1);
    text += row + u'\n';
  }
  return text;
}

}  // namespace

QByteArray WriteReportCsv(const ReportData& data) {
  QByteArray csv;
  for (const ReportSection& section : data.sections) {
    if (!csv.isEmpty()) csv += "\r\n";
    const bool grouped = HasGroups(section);
    QStringList headings;
    if (grouped) headings += QStringLiteral("Group");
    for (const ReportColumn& column : section.columns) headings += column.heading;
    csv += CsvLine(headings);
    for (const ReportGroup& group : section.groups) {
      const auto add = [&](const std::vector<Value>& values) {
        QStringList cells;
        if (grouped) cells += group.key;
        for (const Value& value : values) cells += TypedText(value);
        csv += CsvLine(cells);
      };
      for (const ReportRow& row : group.rows) add(row.cells);
      // A summary has nothing but the totals of its groups.
      if (group.rows.empty() && !group.totals.empty()) add(group.totals);
    }
  }
  return "\xEF\xBB\xBF" + csv;
}

std::vector<CsvFile> WriteReportCsvFiles(const ReportData& data, const QString& fileName) {
  const QString ending = QStringLiteral(".csv");
  std::vector<CsvFile> files{{FileNameWithoutExtension(fileName) + ending, WriteReportCsv(data)}};
  for (const ReportData& part : data.parts)
    files.push_back({RemoveIllegalFileCharacters(part.title) + ending, WriteReportCsv(part)});
  return files;
}

QByteArray WriteReportJson(const ReportData& data) {
  return QJsonDocument(JsonReport(data)).toJson(QJsonDocument::Indented);
}

QString WriteReportText(const ReportData& data) {
  QString text = data.title + u'\n';
  for (const QString& line : data.scope) text += line + u'\n';
  for (const ReportSection& section : data.sections) {
    text += u'\n';
    if (!section.title.isEmpty()) text += section.title + u'\n';
    text += AlignedText(section);
  }
  if (!data.notes.isEmpty()) text += u'\n' + data.notes.join(u'\n') + u'\n';
  for (const ReportData& part : data.parts) text += u'\n' + WriteReportText(part);
  return text;
}

}  // namespace quillary::reports
