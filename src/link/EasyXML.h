#pragma once

#include "base/DateTime.h"
#include "base/ports/Desktop.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <utility>
#include <vector>

namespace quillary::link {

struct XmlTree;

/// One XML document seen as a set of rows: the root's children are the rows, and their children the
/// fields. Every reply of head office comes in this form. Copies and rows are views of one tree:
/// what is written through one shows in the others, and loading anew ends the views of rows.
class EasyXML {
 public:
  static constexpr int kNext = -1;
  static constexpr int kStart = -2;

  EasyXML();

  /// What is no XML, or nested deeper than any reply, leaves an empty document.
  void LoadXml(const QByteArray& text);
  /// Throws error 1 "File not found" when nothing could be read.
  void LoadFile(const QString& path);
  bool IsReady() const;

  QString Name() const { return QString::fromUtf8(Root().name()); }
  QString Content() const { return QString::fromUtf8(Root().text().get()); }
  void SetContent(const QString& text);
  QString ToString() const;
  /// Throws when the file cannot be written.
  void SaveFile(const QString& path) const;
  /// Lays the text into a temporary file and opens it, for support.
  void Show(Desktop& desktop) const;

  void InitializeRowCursor();
  void MoveFirst() { Read(kStart); }
  /// Moves to the next row, back to the start, or to a row by its index; whether there is one.
  bool Read(int index = kNext);
  void Reset();
  bool EndOfFile() const { return !current_; }
  int RowCursor() const { return rowIndex_; }
  int RowCount() const;

  /// The index of the first row whose field has the value; -1 when none has.
  int Find(const QString& value, const QString& field) const;
  std::optional<EasyXML> FindRow(const QString& value, const QString& field) const;
  /// The row of that index, or the current one; nothing when there is none.
  std::optional<EasyXML> Row(std::optional<int> index = std::nullopt) const;
  EasyXML NewRow(const QString& tag);
  /// Appends a copy of the other document as a row.
  void AddXML(const EasyXML& other);
  void DeleteRow(int index);
  std::optional<EasyXML> ExtractRow(int index);

  /// "" for a field that there is not. A name is tried as it is, then in lower case.
  QString Field(const QString& name) const;
  QString Field(int index) const;
  void SetField(const QString& name, const QString& value);
  void SetField(const QString& name, const DateTime& value);
  void SetField(int index, const QString& value);
  QString FieldName(int index) const;
  int FieldIndex(const QString& name) const;
  int FieldCount() const;
  void AddField(const QString& name, const QString& value);
  void AddFields(const std::vector<std::pair<QString, QString>>& fields);
  /// "12.5 %" is 0.125; what is no number gives `ifNone`.
  double Number(const QString& name, double ifNone) const;

  bool LogsChanges() const { return logsChanges_; }
  void LogChanges(bool on) { logsChanges_ = on; }
  /// What was added, edited and deleted while the log was on, a row each.
  EasyXML Changes() const;
  bool HasChanges() const { return log_ && Changes().RowCount() > 0; }

 private:
  EasyXML(std::shared_ptr<XmlTree> tree, pugi::xml_node root);

  pugi::xml_node Root() const;
  pugi::xml_node RowNode(int index) const;
  void Write(pugi::xml_node field, const QString& value);
  void LogChange(const char* what, pugi::xml_node row);
  EasyXML ViewOf(pugi::xml_node row) const;

  std::shared_ptr<XmlTree> tree_;
  pugi::xml_node root_;  // none for the document's own
  pugi::xml_node current_;
  int rowIndex_ = -1;
  bool logsChanges_ = false;
  std::shared_ptr<XmlTree> log_;
};

}  // namespace quillary::link
