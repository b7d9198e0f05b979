#pragma once

#include "base/ports/BusyPointer.h"
#include "base/ports/Prompter.h"

namespace quillary {

/// Questions and messages as boxes over the window the user works in.
class MessageBoxPrompter : public Prompter {
 public:
  Answer Ask(const QString& text, const QString& title) override;
  Answer AskBeforeLosing(const QString& text, const QString& title) override;
  void Tell(Tone tone, const QString& text, const QString& title) override;
  std::optional<QString> AskText(const QString& title, const QString& prompt,
                                 const QString& current) override;

 private:
  Answer AskWith(Answer byEnter, const QString& text, const QString& title);
};

/// The pointer of the whole display. Calls nest.
class CursorBusyPointer : public BusyPointer {
 public:
  void ShowBusyPointer(bool on) override;
};

}  // namespace quillary
