#include "data/Writes.h"

#include "data/schema/RowNames.h"

#include <QRegularExpression>

namespace quillary {
namespace {

// The number under which a change that could not be made is reported.
constexpr int kNotWritten = 3197;

enum class Deed { Add, Change, Delete };

Deed DeedOf(const QString& statement) {
  const QString trimmed = statement.trimmed();
  if (trimmed.startsWith(QStringLiteral("INSERT"), Qt::CaseInsensitive)) return Deed::Add;
  if (trimmed.startsWith(QStringLiteral("DELETE"), Qt::CaseInsensitive)) return Deed::Delete;
  return Deed::Change;
}

QString Participle(Deed deed) {
  switch (deed) {
    case Deed::Add:
      return QStringLiteral("added");
    case Deed::Delete:
      return QStringLiteral("deleted");
    case Deed::Change:
      break;
  }
  return QStringLiteral("changed");
}

QString RefusalInWords(const RefusedStatement& refused) {
  return QStringLiteral("The %1 could not be %2: %3. Nothing was changed.")
      .arg(RowInWords(refused.table), Participle(DeedOf(refused.statement)), refused.reason);
}

QString MissInWords(const QString& statement, Rows wanted, qint64 hit) {
  const QString row = RowInWords(FirstTableOf(statement));
  const QString deed = Participle(DeedOf(statement));
  if (hit == 0) {
    return QStringLiteral(
               "The %1 that was to be %2 is no longer there. It may have been deleted or made anew "
               "meanwhile. Nothing was changed.")
        .arg(row, deed);
  }
  return QStringLiteral("%1 rows would have been %2 where %3 was meant (%4). Nothing was changed.")
      .arg(QString::number(hit), deed, wanted.InWords(), row);
}

RefusedStatement MissOf(const QString& statement, Rows wanted, qint64 hit) {
  return {statement, QStringLiteral("it hit %1 rows instead of %2").arg(hit).arg(wanted.InWords()),
          FirstTableOf(statement)};
}

}  // namespace

QString Rows::InWords() const {
  const QString least = QString::number(least_);
  return most_ == kNoLimit ? least + QStringLiteral(" or more") : least;
}

WriteFailed::WriteFailed(const RefusedStatement& refused)
    : ProgramError(kNotWritten, RefusalInWords(refused)), what_(refused) {}

WriteFailed::WriteFailed(const QString& statement, Rows wanted, qint64 hit)
    : ProgramError(kNotWritten, MissInWords(statement, wanted, hit)),
      what_(MissOf(statement, wanted, hit)) {}

QString FirstTableOf(const QString& statement) {
  static const QRegularExpression named(
      QStringLiteral(R"(\b(?:UPDATE|INTO|FROM|TABLE)\s+[\s(]*\[?(\w+))"),
      QRegularExpression::CaseInsensitiveOption);
  return named.match(statement).captured(1);
}

}  // namespace quillary
