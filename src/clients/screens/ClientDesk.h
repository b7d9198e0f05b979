#pragma once

#include "clients/ClientCommands.h"
#include "clients/ClientJobs.h"
#include "clients/ClientMoney.h"
#include "kit/Screen.h"

#include <functional>

class QAbstractButton;

namespace quillary::clients {

inline constexpr char kClientScreen[] = "frmClients";

/// What the pages of one client's screen share: the client on it, and the few things that one page
/// asks of the others. The screen owns it and fills in the functions.
struct ClientDesk {
  ClientDesk(Business& of, const ScreenTools& with) : business(of), tools(with) {}

  Business& business;
  ScreenTools tools;
  /// `client` as the fields stood when takeFields() ran last, `loaded` as they would be taken if
  /// the user had touched nothing.
  ClientEdit edit = NewClientEdit();

  std::function<void()> takeFields;   // from all pages into the client
  std::function<void()> showRecord;   // what a save or a load made of the client
  std::function<void()> showIfSaved;  // after a command that may have saved the record
  std::function<void()> loadJobs;     // future and past
  std::function<void()> loadMoney;    // invoices and payments
  std::function<void()> showBalance;  // after it was computed anew
  std::function<bool(const std::optional<Refusal>&)> accepted;  // tells a refusal, mends the focus

  Prompter& Prompt() const { return business.World().prompter; }
  /// A click runs the command under the screen's name.
  void OnClick(QAbstractButton* button, std::function<void()> command) const {
    tools.runner.OnClick(button, QString::fromLatin1(kClientScreen), std::move(command));
  }
  void Run(const char* procedure, const std::function<void()>& command) const {
    tools.runner.Run(QString::fromLatin1(kClientScreen), QString::fromLatin1(procedure), command);
  }
};

}  // namespace quillary::clients
