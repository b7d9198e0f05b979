#include "data/access/ConvertAccessFile.h"

#include "data/access/TableWriter.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/Statement.h"

namespace quillary {
namespace {

/// From this version on a business has the indexes that its statements know by name.
constexpr int kNamedIndexesSince = 51;
Value FirstValue(Connection& file, const std::string& statement) {
  const Recordset rows = file.Run(statement);
  return rows.EndOfFile() ? Value() : rows.Field(size_t{0});
}

/// The version that the new file says it has; throws when it lacks tables of that version.
int CheckVersion(Connection& file) {
  Value version;
  try {
    version = FirstValue(file, "SELECT Database_Version FROM infSystem");
  } catch (const StatementRefused&) {
    // Without that column there is no version either.
  }
  if (!version.IsNumeric() || version.ToLong() < 1) {
    throw AccessFailure(
        QStringLiteral("It is an Access file, but no business of Quillary: its "
                       "table infSystem tells no version."));
  }
  const QStringList missing = MissingTables(file.Schema(), static_cast<int>(version.ToLong()));
  if (!missing.isEmpty()) {
    throw AccessFailure(QStringLiteral("It is damaged: of a business of version %1 it lacks the "
                                       "tables %2.")
                            .arg(version.ToLong())
                            .arg(missing.join(QStringLiteral(", "))));
  }
  return static_cast<int>(version.ToLong());
}

void MakeIndexes(Connection& file, int version) {
  if (version >= kNamedIndexesSince) {
    for (const char* index : NamedIndexes()) file.Run(index);
  }
  EnsureStoreIndexes(file);
}

void WriteFile(const QString& accessFile, const QString& path, const ConversionOptions& options,
               ConversionReceipt& receipt) {
  Connection file(path);
  file.Open(OpenMode::Create);
  file.Begin();
  TableWriter writer(file, receipt);
  ReadAccessFile(accessFile, writer, options.limits, options.codePage);
  receipt.version = CheckVersion(file);
  MakeIndexes(file, receipt.version);
  file.Commit();
  file.Close();
}

/// Opens the new file once more and writes into the receipt what it really holds.
void CountWhatStands(const QString& path, ConversionReceipt& receipt) {
  Connection file(path);
  file.Open(OpenMode::Existing);
  for (TableReceipt& table : receipt.tables) {
    const std::string name = "[" + table.table.toStdString() + "]";
    table.written = FirstValue(file, "SELECT Count(*) FROM " + name).ToLong();
    for (MoneyTotal& total : table.totals) {
      const std::string column = "[" + total.column.toStdString() + "]";
      total.written = FirstValue(file, "SELECT Sum(" + column + ") FROM " + name).ToMoney();
    }
  }
  file.Close();
}

AccessFailure About(const QString& accessFile, const AccessFailure& failure) {
  const QString words = QString::fromUtf8(failure.what());
  if (words.startsWith(accessFile)) return failure;
  return AccessFailure(QStringLiteral("%1 cannot be converted. %2").arg(accessFile, words));
}

}  // namespace

ConversionReceipt ConvertAccessFile(const QString& accessFile, const QString& businessFile,
                                    const ConversionOptions& options) {
  ConversionReceipt receipt;
  FileInTheMaking made(businessFile);
  try {
    WriteFile(accessFile, made.Path(), options, receipt);
    CountWhatStands(made.Path(), receipt);
  } catch (const AccessFailure& failure) {
    throw About(accessFile, failure);
  } catch (const StatementRefused& refused) {
    throw About(accessFile, AccessFailure(QString::fromUtf8(refused.what())));
  }
  const QStringList findings = receipt.Findings();
  if (!findings.isEmpty() && !(options.accept && options.accept(receipt))) {
    throw ConversionRefused(QStringLiteral("%1 was not converted, because something would be lost: "
                                           "%2.")
                                .arg(accessFile, findings.join(QStringLiteral("; "))),
                            receipt);
  }
  made.TakeItsPlace();
  return receipt;
}

}  // namespace quillary
