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

}  // namespace quillary
