#pragma once

#include "clients/ClientFinder.h"
#include "kit/CommandRunner.h"
#include "shell/MenuBuilder.h"

#include <QLineEdit>

#include <functional>
#include <optional>

class QCompleter;
class QStandardItemModel;

namespace quillary::shell {

/// Finds a command, a client or a client's job by words in any order, and opens it: the whole
/// program under the fingers.
class MainSearch : public QLineEdit {
  Q_OBJECT

 public:
  MainSearch(Business& business, const std::vector<MenuCommand>& commands, Navigator& navigator,
             CommandRunner& runner);

  /// Wide, but gives way to the commands beside it.
  QSize sizeHint() const override { return {280, QLineEdit::sizeHint().height()}; }

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Offer(const QString& typed);
  void OfferCommands(const QString& typed);
  void OfferClients(const QString& typed);
  void Add(const QString& words, std::function<void()> open);
  /// Chooses the first offer, and gives them the room that their words take, to the left of the
  /// box.
  void ShowOffers();
  void OpenAt(const QModelIndex& offer);

  Business& business_;
  const std::vector<MenuCommand>& commands_;
  Navigator& navigator_;
  CommandRunner& runner_;
  std::optional<clients::ClientFinder> finder_;
  QStandardItemModel* offered_;
  std::vector<std::function<void()>> opens_;  // of each row of offered_
  QCompleter* completer_;
};

}  // namespace quillary::shell
