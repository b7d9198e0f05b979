#pragma once

#include "base/ports/Desktop.h"
#include "mail/Courier.h"

#include <functional>

namespace quillary::mail {

/// Opens the machine's own mail program with the mail filled in; the user looks at it and sends it
/// there. Sent means here that the program was started.
class LocalMailClient : public Courier {
 public:
  /// `findProgram` gives the full path of a program, empty when the machine has none of the name.
  LocalMailClient(Desktop& desktop, std::function<QString(const QString&)> findProgram);
  explicit LocalMailClient(Desktop& desktop);

  Route By() const override { return Route::LocalMailClient; }
  Delivery Send(const Message& message) override;

 private:
  Desktop& desktop_;
  std::function<QString(const QString&)> findProgram_;
};

}  // namespace quillary::mail
