#include "lists/screens/frmVisitFrequencies.h"

#include "lists/Frequencies.h"

namespace quillary::lists {

RecordList VisitFrequenciesList(Business& business) {
  return {
      .name = "frmVisitFrequencies",
      .title = QObject::tr("Visit frequencies"),
      .gridName = QStringLiteral("grdFreq"),
      .gridField = "days",
      .about = QObject::tr("These numbers of days are the ones offered in the schedule frequency "
                           "lists."),
      .hint = QObject::tr("Double-click a number, or press F2, to change it."),
      .emptyWhat = QObject::tr("There are no frequencies yet."),
      .emptyNext = QObject::tr("Add one, then type its number of days."),
      .columns = {{QObject::tr("Days between visits"), ColumnKind::Number, 176, true},
                  {{}, ColumnKind::HiddenId},
                  {{}, ColumnKind::Text, 200}},
      .load =
          [&business] {
            std::vector<GridRow> rows;
            for (const ListedFrequency& frequency : ListFrequencies(business))
              rows.push_back({{frequency.days, frequency.id, QString()}});
            return rows;
          },
      .insert = [&business](const RecordFields&) -> std::optional<Refusal> {
        AddFrequency(business);
        return std::nullopt;
      },
      .remove =
          [&business](std::optional<qint64> key) {
            return RemoveFrequency(business, IdFrom<Frequency>(key));
          },
      .editCell =
          [&business](qint64 key, int, const Value& typed) {
            return ChangeFrequencyDays(business, Id<Frequency>(key), typed.ToText());
          },
      .insertCommand = {"cmdAdd", QObject::tr("Add ne&w")},
      .deleteCommand = {"cmdRemove", QObject::tr("Re&move")},
  };
}

}  // namespace quillary::lists
