#pragma once

#include <QString>

namespace quillary {

/// Sends one plain mail without asking the user; whether it left is the answer.
struct SendMail {
  using Result = bool;
  QString to;
  QString subject;
  QString body;
};
/// Lets the user choose an address and write a text, and mails a file with them; whether it left.
struct EmailFile {
  using Result = bool;
  QString subject;
  QString file;
};

}  // namespace quillary
