#pragma once

#include <string_view>

namespace quillary {

/// Compares two UTF-8 texts as the dialect compares them: without regard to case, in all letters. A
/// letter with an accent sorts with its plain letter and yet differs from it. Negative, 0 or
/// positive. Two texts in ASCII compare exactly as by SQLite's NOCASE, so that a column's own
/// collation may stand in wherever one side is known to be such a text.
int CompareTexts(std::string_view left, std::string_view right);

}  // namespace quillary
