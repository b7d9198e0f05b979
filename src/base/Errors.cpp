#include "base/Errors.h"

#include <QStringList>

namespace quillary {

QString RefusedStatement::InLines() const {
  if (statement.isEmpty()) return {};
  QStringList lines = {QStringLiteral("Statement: ") + statement,
                       QStringLiteral("Reason: ") + reason};
  if (!table.isEmpty()) lines += QStringLiteral("Table: ") + table;
  return lines.join(u'\n');
}

NoRecordset::NoRecordset(const RefusedStatement& refused)
    : ProgramError(91, QStringLiteral("The statement gave no recordset")), refused_(refused) {}

QString ErrorLine(const std::exception& error) {
  constexpr int kInvalidCall = 5;
  const auto* numbered = dynamic_cast<const ProgramError*>(&error);
  return QStringLiteral("Error: %1 - %2")
      .arg(numbered ? numbered->Number() : kInvalidCall)
      .arg(QString::fromUtf8(error.what()));
}

QString FurtherInformation(const std::exception& error) {
  const auto* ours = dynamic_cast<const ProgramError*>(&error);
  return ours ? ours->FurtherInformation() : QString();
}

}  // namespace quillary
