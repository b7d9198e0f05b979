#pragma once

#include "data/jet/Catalogue.h"

#include <QStringList>

#include <vector>

namespace quillary {

/// A table as an Access file declares it, before any of its rows is looked at.
struct AccessTable {
  jet::Table schema;
  /// Columns of kinds that a business file cannot hold, such as pictures; `schema` lacks them.
  QStringList columnsLeftOut;
  qint64 declaredRows = 0;
  /// The last number that the table's counter column gave out, be the row deleted or not; 0 when
  /// none was, or when there is no such column.
  qint64 lastCounter = 0;
};

}  // namespace quillary
