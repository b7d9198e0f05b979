#include "base/OwnFiles.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/Troubles.h"
#include "cli/WorkingBusiness.h"
#include "data/store/FileInTheMaking.h"
#include "documents/forms/Pdf.h"
#include "pdf/PDFTypes.h"
#include "reports/ReportForms.h"
#include "reports/ReportKinds.h"
#include "reports/ReportLayout.h"
#include "session/ProgramFolder.h"

#include <QDir>

#include <limits>

/// Every report, for scripts.
namespace quillary::cli {
namespace {

using reports::Asks;
using reports::ReportCriteria;
using reports::ReportKind;

constexpr qint64 kLargestKey = std::numeric_limits<qint32>::max();

QString Names(const std::vector<reports::ReportChoice>& choices) {
  QStringList names;
  for (const reports::ReportChoice& choice : choices) names += QString::fromLatin1(choice.name);
  return names.join(QStringLiteral(", "));
}

/// The options that say what a report is about.
QString OptionsOf(Asks asks) {
  switch (asks) {
    case Asks::Nothing:
      break;
    case Asks::Days:
      return QStringLiteral("--from --to");
    case Asks::FromDay:
      return QStringLiteral("--from");
    case Asks::DaysAndClients:
      return QStringLiteral("--from --to --client");
    case Asks::DaysAndEmployee:
      return QStringLiteral("--from --to --employee");
    case Asks::Quote:
      return QStringLiteral("--record or --client");
    case Asks::Deposit:
      return QStringLiteral("--record");
    case Asks::Client:
      return QStringLiteral("--client");
  }
  return {};
}

void ListReports(const Call& call) {
  ResultTable table({"Name", "Title", "Asks", "Sorts", "Options"});
  for (const ReportKind& kind : reports::ReportKinds())
    table.AddRow(
        {kind.name, kind.title, OptionsOf(kind.asks), Names(kind.sorts), Names(kind.options)});
  PrintTable(call, table);
}

QString TextOption(const Call& call, const char* option) {
  return call.arguments.options.value(QString::fromLatin1(option));
}

/// Without days, this month; without the first one, the month of the last.
DateRange DaysOf(const Call& call, QDate today) {
  const auto to = call.arguments.Date("to");
  const auto from = call.arguments.Date("from");
  const DateRange month = DateRange::MonthOf(to.value_or(from.value_or(today)));
  return {from.value_or(month.from), to.value_or(month.to)};
}

ReportCriteria CriteriaOf(const Call& call, const Business& business) {
  ReportCriteria criteria;
  criteria.days = DaysOf(call, business.Today());
  for (const QString& word : TextOption(call, "client").split(u',', Qt::SkipEmptyParts))
    criteria.clients.emplace_back(ParseKey(word.trimmed()));
  if (const auto employee = call.arguments.Number("employee", 1, kLargestKey))
    criteria.employee = Id<Employee>(*employee);
  criteria.record = call.arguments.Number("record", 1, kLargestKey);
  criteria.sort = TextOption(call, "sort");
  criteria.option = TextOption(call, "option");
  return criteria;
}

QString FileFor(const QString& fileName, const QString& folder, const char* ending) {
  QString name = fileName;
  name.chop(name.size() - name.lastIndexOf(u'.'));
  return QDir(folder).absoluteFilePath(name + QLatin1String(ending));
}

/// The parts of a report go beside it; its own path is what is returned.
QString WriteCsvFiles(const reports::ReportData& data, const QString& name, const QString& folder) {
  const auto files = reports::WriteReportCsvFiles(data, name);
  for (const reports::CsvFile& file : files)
    WriteWhole(QDir(folder).absoluteFilePath(file.name), file.content);
  return QDir(folder).absoluteFilePath(files.front().name);
}

/// Writes the report into the folder and returns the path of its file.
QString WriteReport(const Call& call, Business& business, const ReportKind& kind,
                    const reports::ReportData& data, const QString& format) {
  const QString name = reports::FileNameOf(kind, data);
  const QString folder = TextOption(call, "out");
  if (!MakeOwnFolder(folder))
    throw CommandFailure(QStringLiteral("the folder %1 cannot be made").arg(folder));
  if (format == u"csv") {
    return WriteCsvFiles(data, name, folder);
  }
  if (format == u"text") {
    const QString file = FileFor(name, folder, ".txt");
    WriteWhole(file, reports::WriteReportText(data).toUtf8());
    return file;
  }
  reports::ReportTarget target{.places = documents::ReportPlacesUnder(session::ProgramFolder()),
                               .file = FileFor(name, folder, ".doc"),
                               .writesFile = format == u"word"};
  if (const QString paper = TextOption(call, "paper"); !paper.isEmpty())
    target.places.paper = paper == u"letter" ? documents::Paper::Letter : documents::Paper::A4;
  const documents::ReportDocument done = reports::LayOutReport(business, target, data).document;
  QStringList troubles = done.troubles;
  // Those of the figures themselves end the command.
  for (const QString& ofFigures : data.troubles) troubles.removeAll(ofFigures);
  TellOnError(troubles);
  if (!done.isWritten) throw CommandFailure(QStringLiteral("nothing was written"));
  if (format == u"word") return done.docFile;
  const QString file = FileFor(name, folder, ".pdf");
  try {
    TellOnError(documents::WritePdf(done.pages, file, business.Now()));
  } catch (const PDFError& error) {
    throw CommandFailure(QString::fromUtf8(error.what()));
  }
  return file;
}

QString FormatOf(const Call& call) {
  const QString format = TextOption(call, "format");
  static const QStringList formats{"pdf", "word", "csv", "text"};
  if (!format.isEmpty() && !formats.contains(format))
    throw WrongUsage(QStringLiteral("--format takes pdf, word, csv or text"));
  const QString paper = TextOption(call, "paper");
  if (!paper.isEmpty() && paper != u"a4" && paper != u"letter")
    throw WrongUsage(QStringLiteral("--paper takes a4 or letter"));
  if (format.isEmpty()) return call.arguments.Has("out") ? formats.front() : formats.back();
  if (format != u"text" && !call.arguments.Has("out"))
    throw WrongUsage(QStringLiteral("--out names the folder"));
  return format;
}

reports::ReportData Collect(Business& business, const ReportKind& kind,
                            const ReportCriteria& criteria) {
  try {
    return reports::CollectReport(business, kind, criteria);
  } catch (const std::invalid_argument& refused) {
    throw CommandFailure(QString::fromUtf8(refused.what()));
  }
}

void RunReport(const Call& call) {
  if (call.arguments.Has("list")) return ListReports(call);
  if (call.arguments.positional.size() < 2)
    throw WrongUsage(QStringLiteral("report needs FILE NAME; --list names them"));
  const QString name = call.arguments.positional.at(1);
  const ReportKind* kind = reports::FindReportKind(name);
  if (kind == nullptr)
    throw WrongUsage(QStringLiteral("there is no report \"%1\"; --list names them").arg(name));
  const QString format = FormatOf(call);
  const auto business = OpenCurrentBusiness(call);
  const reports::ReportData data = Collect(*business, *kind, CriteriaOf(call, *business));
  const bool toFile = call.arguments.Has("out");
  const QString file = toFile ? WriteReport(call, *business, *kind, data, format) : QString();
  business->CloseConnection();
  if (call.json) {
    call.out << QString::fromUtf8(reports::WriteReportJson(data));
  } else if (toFile) {
    call.out << file << '\n';
  } else {
    call.out << reports::WriteReportText(data);
  }
  // Last, so that what came out can be read with it.
  if (!data.troubles.isEmpty()) throw CommandFailure(data.troubles.join(u' '));
}

}  // namespace

std::vector<Command> ReportCommands() {
  return {
      {"report",
       "FILE NAME [--from DATE --to DATE] [--format pdf|word|csv|text --out DIR] | --list",
       "Makes a report: prints it, or writes it into a folder and prints the path of its file. "
       "With --json its rows, groups and totals.",
       {{"list", nullptr, "the names of all reports and what each asks for"},
        {"from", "DATE", "first day; else the first of the month"},
        {"to", "DATE", "last day; else the last of the month"},
        {"client", "ID,...", "the clients it is about; else all"},
        {"employee", "ID", "the employee it is about; else all"},
        {"record", "ID", "the quote or the deposit it is about; else the newest"},
        {"sort", "NAME", "its order, of those that --list names"},
        {"option", "NAME", "its form, of those that --list names"},
        {"format", "F", "pdf, word, csv or text; pdf unless told"},
        {"paper", "a4|letter", "that of the country unless told"},
        {"out", "DIR", "the folder where the file goes"}},
       0,
       2,
       RunReport},
  };
}

}  // namespace quillary::cli
