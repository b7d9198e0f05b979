#include "mail/Mime.h"

#include "base/Text.h"

#include <QDateTime>
#include <QFile>
#include <QMimeDatabase>

#include <memory>
#include <stdexcept>

// Qt's word of that name stands in the way of glib's field.
#pragma push_macro("signals")
#undef signals
#include <gmime/gmime.h>
#pragma pop_macro("signals")

namespace quillary::mail {
namespace {

struct Unreference {
  void operator()(void* object) const { g_object_unref(object); }
};
template <typename Type>
using Owned = std::unique_ptr<Type, Unreference>;

void StartMimeLibrary() {
  static const bool started = [] {
    g_mime_init();
    return true;
  }();
  static_cast<void>(started);
}

/// On one line and without control characters, since a line end would begin another header.
QByteArray OnOneLine(const QString& text) {
  QString line = text;
  for (QChar& sign : line)
    if (sign.category() == QChar::Other_Control || sign == QChar::LineSeparator ||
        sign == QChar::ParagraphSeparator)
      sign = u' ';
  return line.simplified().toUtf8();
}

Owned<GMimeObject> TextPart(const QString& text) {
  GMimeTextPart* part = g_mime_text_part_new();
  g_mime_text_part_set_charset(part, "utf-8");
  QString lines = text;
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  g_mime_text_part_set_text(part, lines.toUtf8().constData());
  g_mime_part_set_content_encoding(GMIME_PART(part), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
  return Owned<GMimeObject>(GMIME_OBJECT(part));
}

Owned<GMimeObject> FilePart(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw std::runtime_error(QStringLiteral("The file %1 cannot be read, so it was not mailed.")
                                 .arg(path)
                                 .toStdString());
  const QByteArray bytes = file.readAll();
  const QByteArray type = QMimeDatabase().mimeTypeForFile(path).name().toLatin1();
  GMimePart* part = g_mime_part_new_with_type(type.split('/').value(0, "application"),
                                              type.split('/').value(1, "octet-stream"));
  const Owned<GMimeStream> stream(
      g_mime_stream_mem_new_with_buffer(bytes.constData(), static_cast<size_t>(bytes.size())));
  const Owned<GMimeDataWrapper> content(
      g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
  g_mime_part_set_content(part, content.get());
  g_mime_part_set_content_encoding(part, GMIME_CONTENT_ENCODING_BASE64);
  g_mime_part_set_filename(part, OnOneLine(FileNameOfPath(path)).constData());
  return Owned<GMimeObject>(GMIME_OBJECT(part));
}

void SetHeaders(GMimeMessage* mail, const Message& message) {
  const auto add = [mail](GMimeAddressType type, const QString& name, const QString& address) {
    const QByteArray words = OnOneLine(name);
    g_mime_message_add_mailbox(mail, type, words.isEmpty() ? nullptr : words.constData(),
                               OnOneLine(address).constData());
  };
  add(GMIME_ADDRESS_TYPE_FROM, message.fromName, message.from);
  // A name that is the address itself says nothing.
  add(GMIME_ADDRESS_TYPE_TO, message.toName == message.to ? QString() : message.toName, message.to);
  g_mime_message_set_subject(mail, OnOneLine(message.subject).constData(), "utf-8");
  const QDateTime moment(message.date.date, message.date.time);
  GDateTime* date = g_date_time_new_from_unix_local(moment.toSecsSinceEpoch());
  g_mime_message_set_date(mail, date);
  g_date_time_unref(date);
  g_mime_message_set_message_id(mail, OnOneLine(message.messageId).constData());
}

}  // namespace

QByteArray MimeOf(const Message& message) {
  StartMimeLibrary();
  const Owned<GMimeMessage> mail(g_mime_message_new(TRUE));
  SetHeaders(mail.get(), message);
  const Owned<GMimeObject> text = TextPart(message.text);
  if (message.attachment.isEmpty()) {
    g_mime_message_set_mime_part(mail.get(), text.get());
  } else {
    const Owned<GMimeMultipart> parts(g_mime_multipart_new_with_subtype("mixed"));
    g_mime_multipart_add(parts.get(), text.get());
    g_mime_multipart_add(parts.get(), FilePart(message.attachment).get());
    g_mime_message_set_mime_part(mail.get(), GMIME_OBJECT(parts.get()));
  }
  const std::unique_ptr<GMimeFormatOptions, decltype(&g_mime_format_options_free)> lines(
      g_mime_format_options_new(), g_mime_format_options_free);
  g_mime_format_options_set_newline_format(lines.get(), GMIME_NEWLINE_FORMAT_DOS);
  const std::unique_ptr<char, decltype(&g_free)> bytes(
      g_mime_object_to_string(GMIME_OBJECT(mail.get()), lines.get()), g_free);
  return QByteArray(bytes.get());
}

}  // namespace quillary::mail
