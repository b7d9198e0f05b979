#pragma once

#include <string>
#include <string_view>

namespace quillary {

/// Bytes for a literal string: a backslash in front of backslashes and parentheses, control bytes
/// as three octal digits.
std::string EscapeLiteral(std::string_view bytes);

/// UTF-8 text for a literal string that a viewer shows outside the page: escaped as it is when
/// plain ASCII, otherwise as escaped UTF-16.
std::string EscapeViewerText(std::string_view utf8);

/// A web address in the 7 bits that PDF allows: everything else, controls and blanks included, in
/// the percent form of RFC 3986; not yet escaped.
std::string PercentForm(std::string_view utf8);

}  // namespace quillary
