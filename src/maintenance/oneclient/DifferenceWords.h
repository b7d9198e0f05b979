#pragma once

#include "maintenance/oneclient/ClientComparison.h"

#include <map>

namespace quillary::maintenance {

/// Says what differs as an owner would.
class DifferenceWords {
 public:
  DifferenceWords(Business& business, const OpenedBackup& backup, const ClientComparison& of);

  void Fill(ClientDifference& difference) const;

 private:
  using Names = std::map<qint64, QString>;
  QString What(const PieceShape& shape, const Piece& piece) const;
  QString Summary(const PieceShape& shape, const Piece& piece) const;
  QString OfHead(const PieceShape& shape, const Piece& piece) const;
  QString Lines(const PieceShape& shape, const Piece& piece) const;
  QString Changes(const PieceShape& shape, const ClientDifference& of, const Piece& piece) const;
  QString CellWords(const PieceShape& shape, size_t column, const Value& value) const;
  QString Remark(const PieceShape& shape, const ClientDifference& of) const;
  QString NameIn(const Names& names, const Value& number) const;

  const ClientComparison& comparison_;
  Names services_;
  Names employees_;
  Names payers_;
  Names invoices_;
  Names payments_;                  // their days, as they are stored
  std::set<QString> numbersToday_;  // of invoices
};

}  // namespace quillary::maintenance
