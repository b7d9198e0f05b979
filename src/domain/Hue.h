#pragma once

namespace quillary {

/// The hues that a row or a chip can have; the theme makes colours of them. What a hue means is
/// told by the word beside it.
enum class Hue { None, Neutral, Green, Blue, Red, Yellow, PaleBlue, StrongGreen };

}  // namespace quillary
