#pragma once

#include "data/Business.h"
#include "shell/Ports.h"
#include "shell/Program.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace quillary::shell {

/// Renders the screens of the program, each into a picture of its own.
class Shots {
 public:
  /// Makes a demo business and its pictures in `folder`.
  explicit Shots(const QString& folder);
  /// `only` names one group, such as "diary"; empty makes the pictures of all.
  void Run(const QString& only);
  /// Keeps only these pictures, under their bare names. Run() throws when one of them was not made.
  void SaveOnly(const QStringList& names) { wanted_ = names; }

 private:
  void Save(QWidget* widget, const QString& name);
  void Store(const QPixmap& picture, const QString& name);
  /// The main window with what lies over it.
  void SaveWithOverlays(const QString& name);
  void StartUpScreens();
  void Today();
  void Diary();
  void Clients();
  void ClientDialogs(Id<Client> client);
  void ScheduleLists();
  void ScheduleDialogs();
  void Invoices();
  void InvoiceDialogs();
  void Payments();
  void PaymentDialogs();
  void Accounts();
  void PurchaseDialogs();
  void Quotes();
  void Documents();
  void Reports();
  void Mails();
  /// The dialog that `open` opens, a picture for each of its pages.
  void SaveDialog(const std::function<void()>& open);
  template <typename Request>
  void SaveRequest(const Request& request) {
    SaveDialog([&] { program_.MainMenu()->Tools().navigator.Open(request); });
  }
  void FirstDay();
  void SetupDialogs();
  void ShowClientOfBackup();
  void CloseScreen();
  void Menus();
  void Help();
  void Dialogs();
  void Boxes();

  QString folder_;
  DesktopPorts ports_;
  Program program_;
  int number_ = 0;
  QStringList wanted_;
  QStringList made_;
};

}  // namespace quillary::shell
