#pragma once

#include "base/Errors.h"

#include <QString>

#include <limits>

namespace quillary {

/// How many rows a write has to hit for the rule that makes it to go on.
class Rows {
 public:
  static constexpr Rows Any() { return Rows(0, kNoLimit); }
  static constexpr Rows Exactly(qint64 count) { return Rows(count, count); }
  static constexpr Rows AtLeast(qint64 count) { return Rows(count, kNoLimit); }

  constexpr bool AreAny() const { return least_ == 0 && most_ == kNoLimit; }
  constexpr bool Fit(qint64 hit) const { return least_ <= hit && hit <= most_; }
  /// "1", "2 or more".
  QString InWords() const;

 private:
  static constexpr qint64 kNoLimit = std::numeric_limits<qint64>::max();
  constexpr Rows(qint64 least, qint64 most) : least_(least), most_(most) {}
  qint64 least_;
  qint64 most_;
};

/// A write that a rule depends on was refused, or hit other rows than it must. The description is
/// for the user; statement, reason and table are told as further information.
class WriteFailed : public ProgramError {
 public:
  explicit WriteFailed(const RefusedStatement& refused);
  WriteFailed(const QString& statement, Rows wanted, qint64 hit);

  QString FurtherInformation() const override { return what_.InLines(); }
  const RefusedStatement& What() const { return what_; }

 private:
  RefusedStatement what_;
};

/// The table that a statement of the dialect names first; empty when it names none.
QString FirstTableOf(const QString& statement);

}  // namespace quillary
