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

 private:
  int number_;
};

/// A recordset was read although its statement had failed.
class NoRecordset : public ProgramError {
 public:
  NoRecordset() : ProgramError(91, QStringLiteral("The statement gave no recordset")) {}
};

/// A field was read before the first or after the last row, or does not exist.
class NoCurrentRecord : public ProgramError {
 public:
  explicit NoCurrentRecord(const QString& field)
      : ProgramError(3021, QStringLiteral("No current record for the field ") + field) {}
};

/// "Error: <number> - <description>" of any exception; one that is no ProgramError has number 5.
QString ErrorLine(const std::exception& error);

}  // namespace quillary
