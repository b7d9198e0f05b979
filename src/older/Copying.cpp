#include "older/Copying.h"

#include "base/Text.h"

namespace quillary::older {

void Copying::Step(const char* what, qint64 done, qint64 all) {
  if (progress_) progress_(QString::fromLatin1(what), done, all);
}

void Copying::Table(const char* step, const char* sourceTable, const char* target,
                    const Take& take) {
  constexpr qint64 kToldEvery = 200;  // rows
  TableReceipt& made = receipt.tables.tables.emplace_back();
  made.table =
      QStringLiteral("%1 to %2").arg(QLatin1StringView(sourceTable), QLatin1StringView(target));
  made.declared = source.Count(sourceTable);
  business.Write(Sql("DELETE FROM {}", Sql(target)));
  Step(step, 0, made.declared);
  QHash<QString, qint64> passedOver;
  source.ForEach(sourceTable, [&](const OlderRow& row) {
    ++made.read;
    if (const auto why = take(row)) {
      ++made.rejected;
      ++passedOver[*why];
    } else {
      ++made.written;
    }
    if (made.read % kToldEvery == 0) Step(step, made.read, made.declared);
  });
  for (const auto& [why, rows] : passedOver.asKeyValueRange())
    made.rejections += QStringLiteral("%1: %2").arg(why, Counted(static_cast<size_t>(rows), "row"));
  made.rejections.sort();
  Step(step, made.declared, made.declared);
}

void Copying::Compare(const char* sourceColumn, Money older, Money now) {
  receipt.tables.tables.back().totals.push_back({QString::fromLatin1(sourceColumn), older, now});
}

std::optional<qint64> Copying::KeyIn(const QHash<qint64, qint64>& map, const OlderRow& row,
                                     const char* field) {
  const auto old = row.Number(field);
  if (!old || *old == 0) return std::nullopt;
  const auto found = map.constFind(*old);
  if (found != map.constEnd()) return *found;
  receipt.troubles +=
      QStringLiteral("%1: %2 %3 is not there.").arg(row.Name(), QLatin1StringView(field)).arg(*old);
  return std::nullopt;
}

std::optional<qint64> Copying::ServiceOf(const OlderRow& row, const char* field) {
  const QString code = row.Text(field);
  if (code.isEmpty()) return std::nullopt;
  const auto found = services.constFind(code.toUpper());
  if (found != services.constEnd()) return *found;
  receipt.troubles += QStringLiteral("%1: there is no service \"%2\".").arg(row.Name(), code);
  return std::nullopt;
}

}  // namespace quillary::older
