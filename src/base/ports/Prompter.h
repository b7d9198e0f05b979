#pragma once

#include <QString>

#include <optional>

namespace quillary {

inline QString SystemTitle() {
  return QStringLiteral("Quillary System");
}

enum class Answer { Yes, No, Cancel };
enum class Tone { Information, Exclamation, Stop };

/// Asks the user and tells the user. The desktop shows boxes, the companion prints, tests answer
/// from a script.
class Prompter {
 public:
  virtual ~Prompter() = default;
  /// A question with Yes and No.
  virtual Answer Ask(const QString& text, const QString& title = SystemTitle()) = 0;
  /// A question whose Yes loses something: Enter in passing answers it with No.
  virtual Answer AskBeforeLosing(const QString& text, const QString& title = SystemTitle()) {
    return Ask(text, title);
  }
  virtual void Tell(Tone tone, const QString& text, const QString& title = SystemTitle()) = 0;
  /// A line to type, proposing `current`; nothing when the user cancels.
  virtual std::optional<QString> AskText(const QString& title, const QString& prompt,
                                         const QString& current) = 0;
};

}  // namespace quillary
