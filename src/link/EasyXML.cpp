#include "link/EasyXML.h"

#include "base/Errors.h"
#include "base/OwnFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>

#include <sstream>

namespace quillary::link {

struct XmlTree {
  pugi::xml_document document;
};

pugi::xml_node EasyXML::Root() const {
  return root_ ? root_ : tree_->document.document_element();
}

namespace {

constexpr char kUnnamed[] = "unnamed";
constexpr char kMetadata[] = "_METADATA";
constexpr char kLastId[] = "_LAST_ID";
constexpr int kFileNotFound = 1;
// Rows hold fields, and a field a document at most; what is nested deeper means harm.
constexpr int kDeepest = 64;

bool IsRow(const pugi::xml_node& node) {
  return node.type() == pugi::node_element && qstrcmp(node.name(), kMetadata) != 0;
}

pugi::xml_node NextRow(pugi::xml_node node) {
  while (node && !IsRow(node)) node = node.next_sibling();
  return node;
}

pugi::xml_node ElementAt(const pugi::xml_node& parent, int index) {
  if (index < 0) return {};
  for (pugi::xml_node node : parent.children())
    if (node.type() == pugi::node_element && index-- == 0) return node;
  return {};
}

QString TextOf(const pugi::xml_node& node) {
  return QString::fromUtf8(node.text().get());
}

bool IsTrue(const QString& text) {
  return text.compare(u"true", Qt::CaseInsensitive) == 0 || text == u"1" || text == u"-1";
}

/// Finds what is nested too deep, and stops there.
class DepthGuard : public pugi::xml_tree_walker {
 public:
  bool for_each(pugi::xml_node&) override { return depth() < kDeepest; }
};

}  // namespace

EasyXML::EasyXML() : tree_(std::make_shared<XmlTree>()) {
  tree_->document.append_child(kUnnamed);
  InitializeRowCursor();
}

EasyXML::EasyXML(std::shared_ptr<XmlTree> tree, pugi::xml_node root)
    : tree_(std::move(tree)), root_(root) {
  InitializeRowCursor();
}

void EasyXML::LoadXml(const QByteArray& text) {
  tree_->document.reset();
  // A document type is skipped unread, so it can declare no entity.
  const auto result =
      tree_->document.load_buffer(text.constData(), static_cast<size_t>(text.size()),
                                  pugi::parse_default | pugi::parse_ws_pcdata_single);
  DepthGuard guard;
  root_ = {};
  if (!result || !Root() || !tree_->document.traverse(guard)) {
    tree_->document.reset();
    tree_->document.append_child(kUnnamed);
  }
  log_.reset();
  logsChanges_ = false;
  InitializeRowCursor();
}

void EasyXML::LoadFile(const QString& path) {
  QFile file(path);
  LoadXml(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
  if (!IsReady()) throw ProgramError(kFileNotFound, QStringLiteral("File not found"));
}

bool EasyXML::IsReady() const {
  return qstrcmp(Root().name(), kUnnamed) != 0 || !Content().isEmpty() || RowCount() > 0;
}

void EasyXML::SetContent(const QString& text) {
  Root().text().set(text.toUtf8().constData());
}

QString EasyXML::ToString() const {
  std::ostringstream out;
  Root().print(out, "", pugi::format_raw | pugi::format_no_declaration);
  return QString::fromStdString(out.str());
}

void EasyXML::SaveFile(const QString& path) const {
  QFile file(path);
  const QByteArray text = ToString().toUtf8();
  if (!MakeOwnFile(path) || !file.open(QIODevice::WriteOnly) || file.write(text) != text.size() ||
      !file.flush())
    throw ProgramError(5, QStringLiteral("The file %1 cannot be written.").arg(path));
}

void EasyXML::Show(Desktop& desktop) const {
  QTemporaryFile file(QDir::temp().filePath(QStringLiteral("XXXXXX.xml")));
  file.setAutoRemove(false);  // what shows it reads it later
  if (!file.open()) return;
  file.write(ToString().toUtf8());
  desktop.OpenInBrowser(QStringLiteral("file://") + file.fileName());
}

void EasyXML::InitializeRowCursor() {
  rowIndex_ = -1;
  const pugi::xml_node first = NextRow(Root().first_child());
  current_ = first ? first : Root();  // a reply of one value reads like one row
  if (IsTrue(TextOf(Root().child(kMetadata).child("Log_Changes")))) logsChanges_ = true;
}

bool EasyXML::Read(int index) {
  if (index == kStart) {
    rowIndex_ = -1;
    current_ = Root();
    return true;
  }
  if (index == kNext) {
    const bool goesOn = rowIndex_ >= 0;
    if (goesOn && !current_) return false;
    ++rowIndex_;
    current_ = NextRow(goesOn ? current_.next_sibling() : Root().first_child());
  } else {
    rowIndex_ = index;
    current_ = RowNode(index);
  }
  return !EndOfFile();
}

void EasyXML::Reset() {
  rowIndex_ = -1;
  current_ = {};
}

int EasyXML::RowCount() const {
  int count = 0;
  for (const pugi::xml_node& node : Root().children()) count += IsRow(node) ? 1 : 0;
  return count;
}

pugi::xml_node EasyXML::RowNode(int index) const {
  if (index < 0) return {};
  for (const pugi::xml_node& node : Root().children())
    if (IsRow(node) && index-- == 0) return node;
  return {};
}

EasyXML EasyXML::ViewOf(pugi::xml_node row) const {
  EasyXML view(tree_, row);
  view.current_ = row;
  view.log_ = log_;
  view.logsChanges_ = logsChanges_;
  return view;
}

int EasyXML::Find(const QString& value, const QString& field) const {
  int index = 0;
  for (const pugi::xml_node& node : Root().children()) {
    if (!IsRow(node)) continue;
    if (ViewOf(node).Field(field) == value) return index;
    ++index;
  }
  return -1;
}

std::optional<EasyXML> EasyXML::FindRow(const QString& value, const QString& field) const {
  const int index = Find(value, field);
  return index < 0 ? std::nullopt : Row(index);
}

std::optional<EasyXML> EasyXML::Row(std::optional<int> index) const {
  const pugi::xml_node node = index ? RowNode(*index) : current_;
  return node ? std::optional(ViewOf(node)) : std::nullopt;
}

EasyXML EasyXML::NewRow(const QString& tag) {
  EasyXML row = ViewOf(Root().append_child(tag.toUtf8().constData()));
  if (!logsChanges_) return row;
  // New rows count downwards from -1, so that the server knows them for new.
  pugi::xml_node last = Root().child(kMetadata);
  if (!last) last = Root().append_child(kMetadata);
  pugi::xml_node lastId = last.child(kLastId);
  if (!lastId) lastId = last.append_child(kLastId);
  const int id = lastId.text().as_int() - 1;
  lastId.text().set(id);
  row.AddField(QStringLiteral("ID"), QString::number(id));
  LogChange("Add", row.Root());
  row.log_ = log_;
  return row;
}

void EasyXML::AddXML(const EasyXML& other) {
  Root().append_copy(other.Root());
}

void EasyXML::DeleteRow(int index) {
  const pugi::xml_node row = RowNode(index);
  if (!row) return;
  if (logsChanges_) LogChange("Delete", row);
  if (row == current_) current_ = {};
  Root().remove_child(row);
}

std::optional<EasyXML> EasyXML::ExtractRow(int index) {
  const pugi::xml_node row = RowNode(index);
  if (!row) return std::nullopt;
  auto tree = std::make_shared<XmlTree>();
  const pugi::xml_node copy = tree->document.append_copy(row);
  if (row == current_) current_ = {};
  Root().remove_child(row);
  EasyXML extracted(std::move(tree), copy);
  extracted.current_ = copy;
  return extracted;
}

QString EasyXML::Field(const QString& name) const {
  const QString text = TextOf(current_.child(name.toUtf8().constData()));
  return text.isEmpty() ? TextOf(current_.child(name.toLower().toUtf8().constData())) : text;
}

QString EasyXML::Field(int index) const {
  return TextOf(ElementAt(current_, index));
}

void EasyXML::Write(pugi::xml_node field, const QString& value) {
  if (logsChanges_) LogChange("Edit", current_);
  field.text().set(value.toUtf8().constData());
}

void EasyXML::SetField(const QString& name, const QString& value) {
  if (!current_ || Field(name) == value) return;
  const QString lower = name.toLower();
  // A server that writes its tags in lower case goes on finding them so.
  pugi::xml_node field =
      lower != name ? current_.child(lower.toUtf8().constData()) : pugi::xml_node();
  if (!field) field = current_.child(name.toUtf8().constData());
  if (!field) field = current_.append_child(name.toUtf8().constData());
  Write(field, value);
}

void EasyXML::SetField(const QString& name, const DateTime& value) {
  SetField(name, value.date.toString(QStringLiteral("yyyy-MM-dd ")) +
                     value.time.toString(QStringLiteral("HH:mm:ss")));
}

void EasyXML::SetField(int index, const QString& value) {
  const pugi::xml_node field = ElementAt(current_, index);
  if (field && TextOf(field) != value) Write(field, value);
}

QString EasyXML::FieldName(int index) const {
  return QString::fromUtf8(ElementAt(current_, index).name());
}

int EasyXML::FieldIndex(const QString& name) const {
  for (int index = 0; const pugi::xml_node& node : current_.children()) {
    if (node.type() != pugi::node_element) continue;
    if (name == QString::fromUtf8(node.name())) return index;
    ++index;
  }
  return -1;
}

int EasyXML::FieldCount() const {
  int count = 0;
  for (const pugi::xml_node& node : current_.children())
    count += node.type() == pugi::node_element ? 1 : 0;
  return count;
}

void EasyXML::AddField(const QString& name, const QString& value) {
  current_.append_child(name.toUtf8().constData()).text().set(value.toUtf8().constData());
}

void EasyXML::AddFields(const std::vector<std::pair<QString, QString>>& fields) {
  for (const auto& [name, value] : fields) AddField(name, value);
}

double EasyXML::Number(const QString& name, double ifNone) const {
  QString text = Field(name).trimmed();
  const bool isPercent = text.endsWith(u'%');
  if (isPercent) text.chop(1);
  bool isNumber = false;
  const double number = text.trimmed().toDouble(&isNumber);
  if (!isNumber) return ifNone;
  return isPercent ? number / 100 : number;
}

EasyXML EasyXML::Changes() const {
  return log_ ? EasyXML(log_, {}) : EasyXML();
}

void EasyXML::LogChange(const char* what, pugi::xml_node row) {
  if (!log_) {
    log_ = std::make_shared<XmlTree>();
    log_->document.append_child(kUnnamed);
  }
  pugi::xml_node entry = log_->document.document_element().append_child(what);
  for (const pugi::xml_node& field : row.children()) entry.append_copy(field);
}

}  // namespace quillary::link
