#pragma once

#include <QString>

namespace quillary {

/// What a row of the table is to the user: "diary entry", "client". A table that is none of the
/// business's is named as it stands: "row of Recipes".
QString RowInWords(const QString& table);

}  // namespace quillary
