#include "lists/Frequencies.h"

namespace quillary::lists {

std::vector<Frequency> ListFrequencies(Business& business) {
  std::vector<Frequency> frequencies;
  for (const Record row : business.RunSQL(
           Sql("SELECT * FROM lstFrequencies ORDER BY Frequency_Days, Frequency_ID; "))) {
    frequencies.push_back(
        {row[u"Frequency_ID"].ToLong(), static_cast<int>(row[u"Frequency_Days"].ToLong())});
  }
  return frequencies;
}

qint64 AddFrequency(Business& business) {
  business.RunSQL(Sql("INSERT INTO lstFrequencies (Frequency_Days) VALUES (0);"));
  return business.FirstField(Sql("SELECT MAX(Frequency_ID) FROM lstFrequencies;")).ToLong();
}

std::optional<Refusal> CheckFrequencyDays(const QString& typed) {
  bool isWhole = false;
  const int days = typed.trimmed().toInt(&isWhole);
  if (isWhole && days >= 1 && days <= 365) return std::nullopt;
  return Refusal{QStringLiteral("Please enter a value between 1 - 365."),
                 QStringLiteral("grdFreq")};
}

std::optional<Refusal> ChangeFrequencyDays(Business& business, qint64 frequencyId,
                                           const QString& typed) {
  if (std::optional<Refusal> refusal = CheckFrequencyDays(typed)) return refusal;
  business.RunSQL(Sql("UPDATE lstFrequencies SET Frequency_Days = {} WHERE Frequency_ID = {}",
                      typed.trimmed().toInt(), frequencyId));
  return std::nullopt;
}

std::optional<Refusal> RemoveFrequency(Business& business, std::optional<qint64> frequencyId) {
  if (!frequencyId) return Refusal{QStringLiteral("Please select a record to delete."), {}};
  business.RunSQL(Sql("DELETE FROM lstFrequencies WHERE Frequency_ID = {}", frequencyId));
  return std::nullopt;
}

}  // namespace quillary::lists
