#pragma once

#include "base/DateTime.h"
#include "base/Errors.h"
#include "link/EasyXML.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <memory>
#include <variant>
#include <vector>

namespace quillary::link {

/// A value that cannot be sent, mostly a file that cannot be read.
class FormError : public ProgramError {
 public:
  using ProgramError::ProgramError;
};

/// A file whose bytes go out as Base64, read as they are sent.
struct FileContent {
  QString path;
};
using FormValue = std::variant<QString, DateTime, EasyXML, FileContent>;
struct FormField {
  QString name;
  FormValue value;
};
using Parameters = std::vector<FormField>;

/// zlib's own form of deflate.
QByteArray CompressBytes(const QByteArray& bytes);
/// The text as UTF-8, compressed.
QByteArray CompressString(const QString& text);
/// Letters and digits stay, a blank becomes "+", every other byte "%" and two upper-case digits.
QByteArray URLEncode(const QByteArray& bytes);

/// Names and values for the trace: of secrets, letters and files only how long they are.
QString ForTrace(const Parameters& parameters);

/// The form data of one request, produced piece by piece: a file in it takes no more memory than a
/// piece, however large it is.
class FormBody {
 public:
  /// Throws FormError when a file cannot be read.
  explicit FormBody(const Parameters& parameters);

  qint64 Size() const { return size_; }
  /// The next bytes, at most `most` of them; 0 at the end, -1 when a file failed or has changed.
  qint64 Read(char* into, qint64 most);
  /// Back to the first byte, for a second try.
  bool Rewind();

 private:
  struct Piece {
    QByteArray text;  // sent as it is
    QString file = {};
  };
  QByteArray NextOfFile();
  bool OpenPiece();

  std::vector<Piece> pieces_;
  qint64 size_ = 0;
  size_t piece_ = 0;
  std::unique_ptr<QFile> file_;
  QByteArray ready_;
  qsizetype given_ = 0;
  qint64 sent_ = 0;
};

}  // namespace quillary::link
