#pragma once

#include <random>
#include <string>
#include <vector>

namespace quillary {

/// Makes statements of a seed: real ones with parts missing, doubled, exchanged or strange, and new
/// ones from the grammar over the tables of a business.
class StatementMaker {
 public:
  StatementMaker(std::vector<std::string> real, unsigned seed);
  std::string Next();

 private:
  using Tokens = std::vector<std::string>;

  size_t Below(size_t count) { return random_() % count; }
  const std::string& Any(const Tokens& from) { return from[Below(from.size())]; }
  Tokens Real() { return Cut(real_[Below(real_.size())]); }
  static Tokens Cut(const std::string& text);
  std::string Mutated();
  void MutateOnce(Tokens& tokens);
  std::string Grown();
  std::string Expression(int depth);
  std::string Source(int depth);

  std::vector<std::string> real_;
  std::mt19937 random_;
};

}  // namespace quillary
