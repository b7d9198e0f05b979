#include "scheduling/DiaryEntryGST.h"

namespace quillary {
namespace {

/// A half goes up here, unlike everywhere else.
qint64 WholePercent(Business& business) {
  const Money rate = business.FirstField(Sql("SELECT GST_Percentage FROM infOptions; ")).ToMoney();
  constexpr qint64 kUnitsOfOnePercent = Money::kUnitsPerOne / 100;
  const qint64 half = rate < Money() ? -kUnitsOfOnePercent / 2 : kUnitsOfOnePercent / 2;
  return (rate.Units() + half) / kUnitsOfOnePercent;
}

}  // namespace

void RecalculateDiaryEntryGST(Business& business, qint64 diaryId) {
  const qint64 percent = WholePercent(business);
  Transaction recalculation(business);
  business.RunSQL(Sql("UPDATE Diary_Services set GST =  ((Price/{}) * {}) WHERE Diary_ID = {};",
                      static_cast<double>(100 + percent), static_cast<double>(percent), diaryId));
  const Recordset sum =
      business.RunSQL(Sql("SELECT Diary_ID, SUM(GST) as G FROM Diary_Services WHERE Diary_ID = {} "
                          "GROUP By Diary_ID;",
                          diaryId));
  if (sum.HasRows()) {
    business.RunSQL(Sql("UPDATE Diary SET Total_GST = {} WHERE Diary_ID = {}",
                        sum.Field(u"G").ToMoney().Rounded(2), diaryId));
  }
  recalculation.Commit();
}

}  // namespace quillary
