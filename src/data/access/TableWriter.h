#pragma once

#include "data/access/AccessFile.h"
#include "data/access/ConvertAccessFile.h"
#include "data/store/Connection.h"

#include <vector>

namespace quillary {

/// Writes what is read of an Access file into an open, empty business file, keeping a receipt. The
/// caller holds the transaction.
class TableWriter : public AccessVisitor {
 public:
  TableWriter(Connection& file, ConversionReceipt& receipt) : file_(file), receipt_(receipt) {}

  void OnTables(const std::vector<AccessTable>& tables) override;
  void OnRow(const AccessTable& table, const std::vector<Value>& cells) override;
  void OnBadRow(const AccessTable& table, const QString& reason) override;
  void OnTableEnd(const AccessTable& table) override;

 private:
  void BeginTable();
  void Reject(const QString& reason);
  void KeepCounter(const AccessTable& table);

  Connection& file_;
  ConversionReceipt& receipt_;
  std::vector<AccessTable> tables_;
  size_t current_ = 0;
  // Of the current table.
  std::string insert_;
  std::vector<size_t> currencyColumns_;
  int counterColumn_ = -1;
  qint64 highestCounter_ = 0;
};

/// The tables that a business file of that version has and this one lacks. Version 0 asks for what
/// every version has.
QStringList MissingTables(const jet::Catalogue& file, int version);

}  // namespace quillary
