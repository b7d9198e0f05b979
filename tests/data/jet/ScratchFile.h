#pragma once

#include "data/jet/Translator.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace quillary::jet {

using TextRow = std::vector<std::string>;

/// A file in memory that runs translated statements with as little of a store around them as
/// possible: its functions registered, the catalogue read afresh for each statement.
class ScratchFile : public Catalogue {
 public:
  ScratchFile();
  ~ScratchFile() override;

  const Table* FindTable(QStringView name) const override;
  std::vector<QString> IndexesUsing(QStringView table, QStringView column) const override;
  std::vector<QString> IndexStatements(QStringView table) const override;
  const Catalogue* Elsewhere(const QString& file) const override;
  void AddFile(const QString& name, const Catalogue* catalogue) { files_[name] = catalogue; }

  /// Translates and runs a statement. Rows come as the dialect shows values: "NULL", "True",
  /// "12.5", "2026-11-02 00:00:00". Throws StatementError, or std::runtime_error with SQLite's
  /// words.
  std::vector<TextRow> Run(const std::string& text);
  std::vector<TextRow> Run(const CutStatement& cut) { return Run(cut, Translate(cut, *this)); }
  /// The same with a translation made before, perhaps for other literals of the same shape.
  std::vector<TextRow> Run(const CutStatement& cut, const Translation& translation);
  /// Runs several statements of the dialect, one a line; a line that begins with a blank goes on.
  void RunAll(const std::string& lines);
  /// SQLite's own words, past the translator.
  std::vector<TextRow> Raw(const std::string& sql) const;

 private:
  void ForgetTables() { tables_.clear(); }
  std::vector<TextRow> Step(const std::string& sql, const CutStatement* cut,
                            const Translation* translation) const;

  sqlite3* connection_ = nullptr;
  mutable std::map<QString, std::unique_ptr<Table>> tables_;
  std::map<QString, const Catalogue*> files_;
};

/// Rows on one line, for comparing: "1|Smith / 2|NULL".
std::string Shown(const std::vector<TextRow>& rows);

}  // namespace quillary::jet
