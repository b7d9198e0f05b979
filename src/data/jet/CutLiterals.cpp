#include "data/jet/DateText.h"
#include "data/jet/Marks.h"
#include "data/jet/Translator.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <utility>

namespace quillary::jet {
namespace {

enum Kind : unsigned char { Plain, Letter, Digit, Point, Quote, Hash, Bracket, Brace, Control };

constexpr std::array<unsigned char, 256> MakeKinds() {
  std::array<unsigned char, 256> kinds{};
  for (int c = 0; c < 256; ++c) {
    unsigned char kind = Plain;
    if (c < ' ' && c != '\t' && c != '\n' && c != '\r') kind = Control;
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 128) kind = Letter;
    if (c >= '0' && c <= '9') kind = Digit;
    kinds[static_cast<size_t>(c)] = kind;
  }
  kinds['.'] = Point;
  kinds['\''] = kinds['"'] = Quote;
  kinds['#'] = Hash;
  kinds['['] = Bracket;
  kinds['{'] = Brace;
  return kinds;
}

constexpr std::array<unsigned char, 256> kKinds = MakeKinds();

Kind KindOf(char c) {
  return static_cast<Kind>(kKinds[static_cast<unsigned char>(c)]);
}

Mark MarkOfText(std::string_view text) {
  const bool ascii = std::none_of(text.begin(), text.end(),
                                  [](char c) { return static_cast<unsigned char>(c) >= 128; });
  return ascii ? Mark::Text : Mark::WideText;
}

Mark MarkOf(const Value& value) {
  if (value.IsText()) {
    const QString& text = std::get<QString>(value.variant());
    const bool ascii =
        std::none_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 128; });
    return ascii ? Mark::Text : Mark::WideText;
  }
  constexpr std::array kMarks{Mark::Null,  Mark::Whole, Mark::Fraction, Mark::Currency,
                              Mark::YesNo, Mark::Date,  Mark::Text};
  static_assert(std::variant_size_v<Value::Variant> == kMarks.size());
  return kMarks[value.variant().index()];
}

/// One pass over a text. What is no literal is copied in long runs; names are stepped over so
/// that the digits in them are not taken for numbers.
class Cutter {
 public:
  Cutter(std::string_view text, const std::vector<Value>* arguments)
      : begin_(text.data()), end_(begin_ + text.size()), run_(begin_), arguments_(arguments) {
    cut_.shape.reserve(text.size());
    cut_.literals.reserve(4);
    cut_.ends.reserve(4);
  }

  CutStatement Run() {
    const char* at = begin_;
    while (at < end_) {
      switch (KindOf(*at)) {
        case Plain:
          ++at;
          break;
        case Letter:
          at = AfterWord(at);
          break;
        case Digit:
          at = Number(at);
          break;
        case Point:
          at = AfterPoint(at);
          break;
        case Quote:
          at = Text(at);
          break;
        case Hash:
          at = Date(at);
          break;
        case Bracket:
          at = AfterBracket(at);
          break;
        case Brace:
          at = Argument(at);
          break;
        case Control:
          at = Blank(at);
          break;
      }
    }
    cut_.shape.append(run_, end_);
    if (arguments_ && nextArgument_ != arguments_->size()) {
      Fail("there are more arguments than places for them", end_, "");
    }
    return std::move(cut_);
  }

 private:
  const char* AfterWord(const char* at) const {
    while (at < end_ && (KindOf(*at) == Letter || KindOf(*at) == Digit)) ++at;
    return at;
  }

  const char* AfterPoint(const char* at) {
    const bool qualifies =
        at > begin_ && (KindOf(at[-1]) == Letter || KindOf(at[-1]) == Digit || at[-1] == ']');
    if (!qualifies && at + 1 < end_ && KindOf(at[1]) == Digit) return Number(at);
    return AfterWord(at + 1);
  }

  const char* AfterBracket(const char* at) const {
    const void* close = std::memchr(at, ']', static_cast<size_t>(end_ - at));
    if (!close) Fail("a name in brackets isn't closed", at, std::string(at, end_));
    for (const char* in = at; in < close; ++in) {
      if (KindOf(*in) == Control) Fail("a name holds a control character", at, "[");
    }
    return static_cast<const char*>(close) + 1;
  }

  const char* Blank(const char* at) {
    cut_.shape.append(run_, at).push_back(' ');
    return run_ = at + 1;
  }

  const char* Number(const char* at) {
    const char* stop = at;
    while (stop < end_ && KindOf(*stop) == Digit) ++stop;
    bool whole = true;
    if (stop < end_ && *stop == '.') {
      whole = false;
      for (++stop; stop < end_ && KindOf(*stop) == Digit;) ++stop;
    }
    if (const char* exponent = AfterExponent(stop); exponent != stop) {
      whole = false;
      stop = exponent;
    }
    if (whole) {
      qint64 number = 0;
      if (std::from_chars(at, stop, number).ec == std::errc()) {
        return Add(at, stop, Mark::Whole, Value(number));
      }
    }
    double number = 0;
    if (std::from_chars(at, stop, number).ec != std::errc()) {
      Fail("this number is out of range", at, std::string(at, stop));
    }
    return Add(at, stop, Mark::Fraction, Value(number));
  }

  const char* AfterExponent(const char* at) const {
    const char* stop = at;
    if (stop == end_ || (*stop | 0x20) != 'e') return at;
    ++stop;
    if (stop < end_ && (*stop == '+' || *stop == '-')) ++stop;
    if (stop == end_ || KindOf(*stop) != Digit) return at;
    while (stop < end_ && KindOf(*stop) == Digit) ++stop;
    return stop;
  }

  const char* Text(const char* at) {
    const char quote = *at;
    const char* start = at + 1;
    const auto closing = [&](const char* from) {
      const void* found = std::memchr(from, quote, static_cast<size_t>(end_ - from));
      if (!found) Fail("a text in quotes isn't closed", at, std::string(at, end_));
      return static_cast<const char*>(found);
    };
    const char* close = closing(start);
    if (close + 1 == end_ || close[1] != quote) {
      const std::string_view plain(start, static_cast<size_t>(close - start));
      return Add(at, close + 1, MarkOfText(plain), Value(QString::fromUtf8(start, close - start)));
    }
    std::string unquoted;
    while (close + 1 < end_ && close[1] == quote) {
      unquoted.append(start, close + 1);
      start = close + 2;
      close = closing(start);
    }
    unquoted.append(start, close);
    return Add(at, close + 1, MarkOfText(unquoted), Value(QString::fromStdString(unquoted)));
  }

  const char* Date(const char* at) {
    const void* found = std::memchr(at + 1, '#', static_cast<size_t>(end_ - at - 1));
    if (!found) Fail("a date isn't closed", at, std::string(at, end_));
    const char* close = static_cast<const char*>(found);
    const auto moment = ReadDateLiteral({at + 1, static_cast<size_t>(close - at - 1)});
    if (!moment) Fail("there is no such date", at, std::string(at, close + 1));
    return Add(at, close + 1, Mark::Date, Value(*moment));
  }

  const char* Argument(const char* at) {
    if (!arguments_ || at + 1 == end_ || at[1] != '}') return at + 1;
    if (nextArgument_ == arguments_->size()) {
      Fail("there are more places than arguments for them", at, "{}");
    }
    const Value& argument = (*arguments_)[nextArgument_++];
    const auto* moment = std::get_if<DateTime>(&argument.variant());
    if (moment && !moment->IsValid()) Fail("there is no such date", at, "{}");
    return Add(at, at + 2, MarkOf(argument), argument);
  }

  const char* Add(const char* at, const char* stop, Mark mark, Value value) {
    cut_.shape.append(run_, at).push_back(static_cast<char>(mark));
    cut_.literals.push_back(std::move(value));
    cut_.ends.push_back(static_cast<int>(stop - begin_));
    return run_ = stop;
  }

  [[noreturn]] void Fail(const char* what, const char* at, std::string near) const {
    int line = 1;
    int column = 1;
    for (const char* before = begin_; before < at; ++before) {
      column = *before == '\n' ? 1 : column + 1;
      line += *before == '\n';
    }
    throw StatementError(what, line, column, std::move(near));
  }

  const char* begin_;
  const char* end_;
  const char* run_;
  const std::vector<Value>* arguments_;
  size_t nextArgument_ = 0;
  CutStatement cut_;
};

}  // namespace

CutStatement CutLiterals(std::string_view text) {
  return Cutter(text, nullptr).Run();
}

CutStatement CutLiterals(std::string_view text, const std::vector<Value>& arguments) {
  return Cutter(text, &arguments).Run();
}

}  // namespace quillary::jet
