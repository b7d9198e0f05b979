#include "lists/screens/frmDivisions.h"

#include "lists/Divisions.h"

namespace quillary::lists {

namespace {

DivisionForm DivisionFormOf(const RecordFields& fields) {
  return {fields.Text("txtDivisionName"), fields.Text("txtNatureOfBusiness")};
}

}  // namespace

RecordList DivisionsList(Business& business) {
  return {
      .name = "frmDivisions",
      .title = QObject::tr("Divisions"),
      .gridName = QStringLiteral("fgDivisions"),
      .about = QStringLiteral("The following Divisions will be listed throughout the program"),
      .emptyWhat = QObject::tr("There are no divisions yet."),
      .emptyNext = QObject::tr("Fill in the name of a division and add it."),
      .columns = {{QObject::tr("Division"), ColumnKind::StrongText, 200},
                  {{}, ColumnKind::HiddenId},
                  {QObject::tr("Nature of business"), ColumnKind::Text, 280}},
      .fields = {{"txtDivisionName", "name", QObject::tr("Di&vision"), FieldKind::Text, 0, 30},
                 {"txtNatureOfBusiness", "natureOfBusiness", QObject::tr("Nature of &business"),
                  FieldKind::Text, 2, 50}},
      .load =
          [&business] {
            std::vector<GridRow> rows;
            for (const ListedDivision& division : ListDivisions(business))
              rows.push_back({{division.name, division.id, division.natureOfBusiness}});
            return rows;
          },
      .insert =
          [&business](const RecordFields& fields) {
            return InsertDivision(business, DivisionFormOf(fields));
          },
      .update =
          [&business](std::optional<qint64> key, const RecordFields& fields) {
            return UpdateDivision(business, IdFrom<Division>(key), DivisionFormOf(fields));
          },
      .remove =
          [&business](std::optional<qint64> key) {
            return DeleteDivision(business, IdFrom<Division>(key));
          },
  };
}

}  // namespace quillary::lists
