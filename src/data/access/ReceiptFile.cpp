#include "data/access/ReceiptFile.h"

#include "data/store/FileInTheMaking.h"
#include "data/store/StorageFailure.h"

namespace quillary {
namespace {

QStringList Lines(const TableReceipt& table) {
  QStringList lines = {QStringLiteral("%1: %2 rows declared, %3 read, %4 written, %5 rejected")
                           .arg(table.table)
                           .arg(table.declared)
                           .arg(table.read)
                           .arg(table.written)
                           .arg(table.rejected)};
  for (const MoneyTotal& total : table.totals) {
    const bool same = total.read == total.written;
    lines += QStringLiteral("    %1: %2 read, %3 written%4")
                 .arg(total.column, total.read.ToCurrencyText(), total.written.ToCurrencyText(),
                      same ? QString() : QStringLiteral(" - DIFFERENT"));
  }
  for (const QString& reason : table.rejections) {
    lines += QStringLiteral("    rejected: ") + reason;
  }
  const qint64 unnamed = table.rejected - table.rejections.size();
  if (unnamed > 0) lines += QStringLiteral("    rejected: %1 more").arg(unnamed);
  for (const QString& column : table.columnsLeftOut) {
    lines += QStringLiteral("    left out, of a kind that is not kept: ") + column;
  }
  return lines;
}

}  // namespace

QString KeepReceipt(const ConversionReceipt& receipt, const QString& accessFile,
                    const QString& businessFile, const DateTime& when, const QString& ending) {
  QStringList lines = {QStringLiteral("%1, made of %2 on %3, version %4")
                           .arg(businessFile, accessFile, ToIsoText(when))
                           .arg(receipt.version),
                       ending, QString()};
  for (const TableReceipt& table : receipt.tables) lines += Lines(table);
  const QByteArray text = lines.join(u'\n').toUtf8() + '\n';
  for (const QString& beside : {accessFile, businessFile}) {
    const QString path = beside + QStringLiteral(".receipt.txt");
    try {
      WriteWhole(path, text);
      return path;
    } catch (const StorageFailure&) {
      // The other folder may take it.
    }
  }
  return {};
}

}  // namespace quillary
