#include "lists/Frequencies.h"

namespace quillary::lists {

std::vector<ListedFrequency> ListFrequencies(Business& business) {
  std::vector<ListedFrequency> frequencies;
  for (const Record row : business.RunSQL(
           Sql("SELECT * FROM lstFrequencies ORDER BY Frequency_Days, Frequency_ID; "))) {
    frequencies.push_back({Id<Frequency>(row[u"Frequency_ID"].ToLong()),
                           static_cast<int>(row[u"Frequency_Days"].ToLong())});
  }
  return frequencies;
}

Id<Frequency> AddFrequency(Business& business) {
  return business.InsertReturningKey<Frequency>(
      Sql("INSERT INTO lstFrequencies (Frequency_Days) VALUES (0);"));
}

std::optional<Refusal> CheckFrequencyDays(const QString& typed) {
  bool isWhole = false;
  const int days = typed.trimmed().toInt(&isWhole);
  if (isWhole && days >= 1 && days <= 365) return std::nullopt;
  return Refusal{QStringLiteral("Please enter a value between 1 - 365."), QStringLiteral("days")};
}

std::optional<Refusal> ChangeFrequencyDays(Business& business, Id<Frequency> frequency,
                                           const QString& typed) {
  if (std::optional<Refusal> refusal = CheckFrequencyDays(typed)) return refusal;
  business.Write(Sql("UPDATE lstFrequencies SET Frequency_Days = {} WHERE Frequency_ID = {}",
                     typed.trimmed().toInt(), frequency),
                 Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> RemoveFrequency(Business& business, std::optional<Id<Frequency>> frequency) {
  if (!frequency) return Refusal{QStringLiteral("Please select a record to delete."), {}};
  business.Write(Sql("DELETE FROM lstFrequencies WHERE Frequency_ID = {}", frequency),
                 Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::lists
