#include "data/access/ConvertAccessFile.h"

namespace quillary {

QStringList TableReceipt::Findings() const {
  QStringList findings;
  const auto add = [&](const QString& text) { findings += table + QStringLiteral(": ") + text; };
  if (read != declared) {
    add(QStringLiteral("%1 rows declared, %2 read").arg(declared).arg(read));
  }
  if (rejected > 0) {
    add(QStringLiteral("%1 rows rejected, the first: %2").arg(rejected).arg(rejections.first()));
  }
  if (written != read - rejected) {
    add(QStringLiteral("%1 rows to keep, %2 in the new file").arg(read - rejected).arg(written));
  }
  for (const MoneyTotal& total : totals) {
    if (total.read == total.written) continue;
    add(QStringLiteral("%1 sums to %2 as read, to %3 in the new file")
            .arg(total.column, total.read.ToCurrencyText(), total.written.ToCurrencyText()));
  }
  if (!columnsLeftOut.isEmpty()) {
    add(QStringLiteral("columns of a kind that is not kept: ") +
        columnsLeftOut.join(QStringLiteral(", ")));
  }
  return findings;
}

QStringList ConversionReceipt::Findings() const {
  QStringList findings;
  for (const TableReceipt& table : tables) findings += table.Findings();
  return findings;
}

}  // namespace quillary
