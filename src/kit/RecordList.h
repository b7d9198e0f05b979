#pragma once

#include "base/Refusal.h"
#include "base/ports/Outside.h"
#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/RecordFields.h"
#include "kit/Screen.h"

class QBoxLayout;
class QLabel;
class QPushButton;

namespace quillary {

/// A command of a list; one without a statement behind it does not show.
struct RecordCommand {
  const char* name;
  QString caption;
  QString noneChosen = {};  // told when it needs a record; empty leaves that to the statement
  QString question = {};    // asked first; empty asks nothing
};

/// A list that the owner keeps, declared as data: what it shows, the fields of a record, and the
/// statements that write one. A statement answers with what it refuses.
///
///   RecordList DivisionsList(Business& business) {
///     return {.name = "frmDivisions",
///             .title = "Divisions",
///             .gridName = "fgDivisions",
///             .columns = {{"Division", ColumnKind::StrongText, 200}, {"", ColumnKind::HiddenId}},
///             .fields = {{"txtDivisionName", "name", "Division &name", FieldKind::Text, 0, 50}},
///             .load = [&] { return RowsOf(ListDivisions(business)); },
///             .insert = [&](const RecordFields& fields) {
///               return InsertDivision(business, {fields.Text("txtDivisionName")}); }};
///   }
///   host.ShowScreen(new RecordListScreen(DivisionsList(business), tools, business.World()));
struct RecordList {
  const char* name = "";
  QString title;
  QString gridName;
  const char* gridField = "";  // that cells edited in place are for, as rules refuse it
  QString about = {};          // over the list: what it is for
  QString hint = {};           // below the list
  QString emptyWhat = QObject::tr("This list is empty.");
  QString emptyNext = QObject::tr("Fill in the fields and add the first record.");
  Tables shows = {};                // whose rows are listed
  std::vector<GridColumn> columns;  // the first HiddenId is the key of the record
  std::vector<RecordField> fields = {};

  std::function<std::vector<GridRow>()> load;
  /// Runs before insert and update, where these do not check by themselves.
  std::function<std::optional<Refusal>(const RecordFields&)> check = {};
  std::function<std::optional<Refusal>(const RecordFields&)> insert = {};
  std::function<std::optional<Refusal>(std::optional<qint64> key, const RecordFields&)> update = {};
  std::function<std::optional<Refusal>(std::optional<qint64> key)> remove = {};
  /// For lists whose cells are edited in place.
  std::function<std::optional<Refusal>(qint64 key, int column, const Value&)> editCell = {};
  /// Makes what stands before the search box: a choice of what is listed.
  std::function<QWidget*()> overList = {};
  /// After each change of a field: which fields go together.
  std::function<void(const RecordFields&)> settle = {};

  RecordCommand insertCommand{"cmdInsert", QStringLiteral("Add as ne&w")};
  RecordCommand updateCommand{"cmdUpdate", QStringLiteral("&Update")};
  RecordCommand deleteCommand{"cmdDelete", QStringLiteral("De&lete")};
};

/// The screen of such a list: the records with a search box on the left, the fields of the chosen
/// one on the right. Ctrl+N adds, Ctrl+S updates.
class RecordListScreen : public Screen {
  Q_OBJECT

 public:
  RecordListScreen(RecordList list, const ScreenTools& tools, const Outside& world);

  void Reload() override;
  Tables Shows() const override { return list_.shows; }
  bool MayClose() override;

 signals:
  /// The list shows what stands in the business now.
  void loaded();

 protected:
  /// Shows other records in the list. What is being typed stays; it belongs to none of them until
  /// it is added or one is chosen.
  void ShowOthers();
  /// A further command, in the line below everything.
  void AddCommand(QPushButton* command);
  /// Something that belongs to the chosen record, below the list.
  void AddBelowList(QWidget* widget) { listColumn_->addWidget(widget, 1); }
  std::optional<qint64> ChosenKey() const;
  Grid* List() const { return grid_; }
  const RecordFields& Fields() const { return fields_; }
  const Outside& World() const { return world_; }

 private:
  void MakeControls();
  QBoxLayout* ListColumn();
  QWidget* FieldArea();
  QBoxLayout* FieldColumn();
  QBoxLayout* CommandLine();
  void LayOut();
  void ConnectControls();

  void ShowChosen();
  bool MayRun(const RecordCommand& command, bool needsRecord);
  bool MayStore(const std::optional<Refusal>& refusal);
  void Insert();
  void Update();
  void Delete();
  /// Opens the first cell of the chosen record that may be edited.
  void EditChosen();
  void EditCell(int row, int column, const Value& value);
  void Load(std::optional<qint64> select);
  std::optional<qint64> KeyNotIn(const std::vector<qint64>& before) const;

  RecordList list_;
  ScreenTools tools_;
  Outside world_;
  RecordFields fields_;
  FormState state_;
  QBoxLayout* commands_;
  QBoxLayout* listColumn_;
  Grid* grid_;
  QLineEdit* txtFilter;
  QPushButton* cmdInsert = nullptr;
  QPushButton* cmdUpdate = nullptr;
  QPushButton* cmdDelete = nullptr;
  QPushButton* cmdClose;
};

}  // namespace quillary
