#include "shell/MainSearch.h"

#include "base/Text.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Scheduling.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QTimer>

#include <algorithm>

namespace quillary::shell {

namespace {

constexpr size_t kMostCommands = 6;
constexpr size_t kMostClients = 6;
constexpr size_t kClientsWithJobs = 2;
constexpr int kWidestOffer = 600;
constexpr int kRoomBesideWords = 40;

bool HasAllWords(const QString& text, const QString& typed) {
  const QStringList words = FoldedForSearch(typed).split(u' ', Qt::SkipEmptyParts);
  const QString searched = FoldedForSearch(text);
  return std::ranges::all_of(words, [&](const QString& word) { return searched.contains(word); });
}

}  // namespace

MainSearch::MainSearch(Business& business, const std::vector<MenuCommand>& commands,
                       Navigator& navigator, CommandRunner& runner)
    : business_(business),
      commands_(commands),
      navigator_(navigator),
      runner_(runner),
      offered_(new QStandardItemModel(this)),
      completer_(new QCompleter(offered_, this)) {
  setObjectName(QStringLiteral("txtFind"));
  setPlaceholderText(tr("Find a client, job or command Ctrl+K"));
  setAccessibleName(tr("Find a client, job or command"));
  setProperty("kind", QStringLiteral("search"));
  setMinimumWidth(180);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  completer_->setMaxVisibleItems(16);
  setCompleter(completer_);
  connect(this, &QLineEdit::textEdited, this, &MainSearch::Offer);
  // A line that loses the focus cuts whatever connects its completer to itself, so another
  // receives.
  connect(completer_, QOverload<const QModelIndex&>::of(&QCompleter::activated), offered_,
          [this](const QModelIndex& offer) { OpenAt(offer); });
}

void MainSearch::Offer(const QString& typed) {
  offered_->clear();
  opens_.clear();
  if (typed.trimmed().isEmpty()) return;
  OfferCommands(typed);
  runner_.Run(objectName(), QStringLiteral("txtFind_Change"), [&] { OfferClients(typed); });
  setAccessibleDescription(opens_.empty()
                               ? tr("Nothing found")
                               : tr("%n found", nullptr, static_cast<int>(opens_.size())));
  if (opens_.empty()) Add(tr("Nothing found"), {});
  // After the completer has laid its list under the box, as wide as that.
  QTimer::singleShot(0, this, &MainSearch::ShowOffers);
}

void MainSearch::ShowOffers() {
  auto* popup = completer_->popup();
  if (!popup->isVisible()) return;
  {
    // The first offer is what Enter opens. Nobody hears of it, or its words would take the place of
    // what is typed.
    const QSignalBlocker quiet(popup->selectionModel());
    popup->setCurrentIndex(completer_->completionModel()->index(0, 0));
  }
  popup->viewport()->update();
  QRect place = popup->geometry();
  const int wanted = popup->sizeHintForColumn(0) + kRoomBesideWords;
  place.setLeft(place.right() + 1 - std::clamp(wanted, width(), std::max(width(), kWidestOffer)));
  popup->setGeometry(place);
}

void MainSearch::OfferCommands(const QString& typed) {
  for (const MenuCommand& command : commands_) {
    if (opens_.size() == kMostCommands) return;
    if (!command.action->isEnabled() || !command.action->property("opens").toBool()) continue;
    QString words = command.path.last();
    if (command.path.size() > 1)
      words += QStringLiteral("  –  ") +
               command.path.mid(0, command.path.size() - 1).join(QStringLiteral(" › "));
    if (HasAllWords(words, typed)) Add(words, [action = command.action] { action->trigger(); });
  }
}

void MainSearch::OfferClients(const QString& typed) {
  if (!finder_) finder_.emplace(business_);
  const auto clients = finder_->Clients(typed, kMostClients);
  for (const clients::FoundClient& client : clients) {
    Add(client.address.isEmpty() ? client.name
                                 : client.name + QStringLiteral("  –  ") + client.address,
        [this, id = client.client] { navigator_.Open(OpenClient{id}); });
    if (clients.size() > kClientsWithJobs) continue;
    for (const clients::FoundJob& job : finder_->Jobs(client.client))
      Add(client.name + QStringLiteral("  –  ") + job.words,
          [this, id = job.entry] { navigator_.Open(EditJob{id}); });
  }
}

void MainSearch::Add(const QString& words, std::function<void()> open) {
  offered_->appendRow(new QStandardItem(words));
  opens_.push_back(std::move(open));
}

void MainSearch::OpenAt(const QModelIndex& offer) {
  const auto at = static_cast<size_t>(offer.row());
  if (!offer.isValid() || at >= opens_.size() || !opens_[at]) return;
  // After the completer has put the chosen words into the field.
  QTimer::singleShot(0, this, [this, open = opens_[at]] {
    clear();
    runner_.Run(objectName(), QStringLiteral("txtFind_Click"), open);
  });
}

void MainSearch::focusInEvent(QFocusEvent* event) {
  // Back from its own list is no new search; otherwise clients may have changed meanwhile.
  if (event->reason() != Qt::PopupFocusReason) finder_.reset();
  QLineEdit::focusInEvent(event);
}

void MainSearch::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !text().isEmpty() && !completer_->popup()->isVisible()) {
    Offer(text());
    OpenAt(offered_->index(0, 0));
    return;
  }
  if (event->key() == Qt::Key_Escape) clear();
  QLineEdit::keyPressEvent(event);
}

}  // namespace quillary::shell
