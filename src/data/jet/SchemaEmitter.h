#pragma once

#include "data/jet/Tree.h"

namespace quillary::jet {

/// Writes the statements of a schema change. What SQLite can't change in place is done by making
/// the table anew under another name, with its rows, the standing of its counter and its indexes.
class SchemaEmitter {
 public:
  SchemaEmitter(const CutStatement& statement, const Catalogue& catalogue)
      : statement_(statement), catalogue_(catalogue) {}
  std::vector<std::string> Emit(const Statement& tree);

 private:
  /// A column of the table made anew, and which column of the old one fills it, if any.
  struct Successor {
    Column column;
    const Column* from = nullptr;
  };

  [[noreturn]] void Fail(const Token& token, const std::string& what) const;
  const Table& TableNamed(const QString& name, const Token& token) const;
  const Column& ColumnNamed(const Table& table, const ColumnDefinition& definition) const;
  void Emit(const CreateTable& create);
  void AddKeys(const CreateTable& create);
  void Emit(const AlterTable& alter);
  void Emit(const CreateIndex& create);
  void Emit(const DropIndex& drop);
  void Emit(const DropTable& drop);
  void Add(const Table& table, const std::vector<ColumnDefinition>& columns);
  void Alter(const Table& table, const std::vector<ColumnDefinition>& columns);
  void Drop(const Table& table, const std::vector<ColumnDefinition>& columns);
  void Rebuild(const Table& table, const std::vector<Successor>& columns);
  static std::string Declared(const ColumnDefinition& definition);

  const CutStatement& statement_;
  const Catalogue& catalogue_;
  std::vector<std::string> texts_;
};

}  // namespace quillary::jet
