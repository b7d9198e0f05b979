#pragma once

#include <QString>

#include <stdexcept>

namespace quillary {

/// A failure that nobody expected, with the number and the words that the error screen shows as
/// "Error: <number> - <description>".
class ProgramError : public std::runtime_error {
 public:
  ProgramError(int number, const QString& description)
      : std::runtime_error(description.toStdString()), number_(number) {}
  int Number() const { return number_; }
  /// What helps those who are to mend it, a line each; empty when the description says it all.
  virtual QString FurtherInformation() const { return {}; }

 private:
  int number_;
};

/// A statement that was not done, and why.
struct RefusedStatement {
  QString statement;
  QString reason;
  QString table;  // the first that it names

  /// A line each, for those who are to mend it.
  QString InLines() const;
};

/// A recordset was read although its statement had failed.
class NoRecordset : public ProgramError {
 public:
  explicit NoRecordset(const RefusedStatement& refused = {});
  QString FurtherInformation() const override { return refused_.InLines(); }

 private:
  RefusedStatement refused_;
};

/// A field was read before the first or after the last row, or does not exist.
class NoCurrentRecord : public ProgramError {
 public:
  explicit NoCurrentRecord(const QString& field)
      : ProgramError(3021, QStringLiteral("No current record for the field ") + field) {}
};

/// "Error: <number> - <description>" of any exception; one that is no ProgramError has number 5.
QString ErrorLine(const std::exception& error);
/// That of a ProgramError; empty for any other exception.
QString FurtherInformation(const std::exception& error);

}  // namespace quillary
