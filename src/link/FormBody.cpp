#include "link/FormBody.h"

#include "base/Text.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

namespace quillary::link {
namespace {

constexpr qint64 kBytesAtOnce = 48 * 1024;  // divides by three, as Base64 asks
static_assert(kBytesAtOnce % 3 == 0);

bool StaysAsItIs(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

QByteArray TextOfValue(const FormValue& value) {
  if (const auto* text = std::get_if<QString>(&value)) return text->toUtf8();
  if (const auto* moment = std::get_if<DateTime>(&value))
    return (moment->date.toString(QStringLiteral("yyyy-MM-dd ")) +
            moment->time.toString(QStringLiteral("HH:mm:ss")))
        .toLatin1();
  return Base64Encode(CompressString(std::get<EasyXML>(value).ToString())).toLatin1();
}

std::unique_ptr<QFile> OpenForReading(const QString& path) {
  auto file = std::make_unique<QFile>(path);
  // Unbuffered: a block is read at once, and none of it is kept.
  if (!file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
    throw FormError(
        53, QStringLiteral("The file %1 cannot be read: %2").arg(path, file->errorString()));
  return file;
}

QByteArray EncodedBlock(QFile& file) {
  return URLEncode(file.read(kBytesAtOnce).toBase64());
}

qint64 EncodedSize(const QString& path) {
  const auto file = OpenForReading(path);
  qint64 size = 0;
  while (true) {
    const QByteArray block = EncodedBlock(*file);
    if (block.isEmpty()) break;
    size += block.size();
  }
  if (file->error() != QFileDevice::NoError)
    throw FormError(
        57, QStringLiteral("The file %1 cannot be read: %2").arg(path, file->errorString()));
  return size;
}

}  // namespace

QByteArray CompressBytes(const QByteArray& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  QByteArray packed(static_cast<qsizetype>(size), Qt::Uninitialized);
  if (compress(reinterpret_cast<Bytef*>(packed.data()), &size,
               reinterpret_cast<const Bytef*>(bytes.constData()),
               static_cast<uLong>(bytes.size())) != Z_OK)
    throw std::bad_alloc();
  packed.truncate(static_cast<qsizetype>(size));
  return packed;
}

QByteArray CompressString(const QString& text) {
  return CompressBytes(text.toUtf8());
}

QByteArray URLEncode(const QByteArray& bytes) {
  static const char kDigits[] = "0123456789ABCDEF";
  QByteArray encoded(bytes.size() * 3, Qt::Uninitialized);
  char* at = encoded.data();
  for (const char c : bytes) {
    if (StaysAsItIs(c)) {
      *at++ = c;
    } else if (c == ' ') {
      *at++ = '+';
    } else {
      const auto byte = static_cast<unsigned char>(c);
      *at++ = '%';
      *at++ = kDigits[byte >> 4];
      *at++ = kDigits[byte & 15];
    }
  }
  encoded.truncate(at - encoded.constData());
  return encoded;
}

QString ForTrace(const Parameters& parameters) {
  static const QStringList hidden{QStringLiteral("Password"), QStringLiteral("SMTP_Password"),
                                  QStringLiteral("Session_Key"), QStringLiteral("Message"),
                                  QStringLiteral("FileContent")};
  QStringList shown;
  for (const FormField& field : parameters) {
    const auto* text = std::get_if<QString>(&field.value);
    shown += field.name + u'=' +
             (!text                         ? QStringLiteral("...")
              : hidden.contains(field.name) ? QStringLiteral("(%1 characters)").arg(text->size())
                                            : *text);
  }
  return shown.join(QStringLiteral(", "));
}

FormBody::FormBody(const Parameters& parameters) {
  QByteArray text;
  for (const FormField& field : parameters) {
    if (&field != &parameters.front()) text += '&';
    text += URLEncode(field.name.toUtf8()) + '=';
    if (const auto* file = std::get_if<FileContent>(&field.value)) {
      pieces_.push_back({std::exchange(text, {}), {}});
      pieces_.push_back({{}, file->path});
      size_ += EncodedSize(file->path);
    } else {
      text += URLEncode(TextOfValue(field.value));
    }
  }
  pieces_.push_back({text, {}});
  for (const Piece& piece : pieces_) size_ += piece.text.size();
}

bool FormBody::OpenPiece() {
  const Piece& piece = pieces_[piece_];
  given_ = 0;
  if (piece.file.isEmpty()) {
    ready_ = piece.text;
    ++piece_;
    return true;
  }
  if (!file_) file_ = OpenForReading(piece.file);
  ready_ = EncodedBlock(*file_);
  if (!ready_.isEmpty()) return true;
  const bool isWhole = file_->error() == QFileDevice::NoError;
  file_.reset();
  ++piece_;
  return isWhole;
}

qint64 FormBody::Read(char* into, qint64 most) {
  while (given_ == ready_.size()) {
    // A file that has grown or shrunk since it was measured would break the announced length.
    if (piece_ == pieces_.size()) return sent_ == size_ ? 0 : -1;
    if (!OpenPiece()) return -1;
  }
  const qint64 count = std::min<qint64>(most, ready_.size() - given_);
  std::memcpy(into, ready_.constData() + given_, static_cast<size_t>(count));
  given_ += count;
  sent_ += count;
  return sent_ > size_ ? -1 : count;
}

bool FormBody::Rewind() {
  piece_ = 0;
  file_.reset();
  ready_.clear();
  given_ = 0;
  sent_ = 0;
  return true;
}

}  // namespace quillary::link
