#include "data/Changes.h"

#include <algorithm>

namespace quillary {

bool Tables::HaveAnyOf(const Tables& others) const {
  return std::any_of(names_.begin(), names_.end(),
                     [&](const QString& name) { return others.names_.contains(name); });
}

Subscription Changes::Listen(Listener listener) {
  auto kept = std::make_shared<const Listener>(std::move(listener));
  listeners_.push_back(kept);
  return kept;
}

void Changes::Tell(const Tables& tables) {
  std::erase_if(listeners_, [](const auto& listener) { return listener.expired(); });
  // A listener may bring others or let them go.
  for (const auto& listener : std::vector(listeners_)) {
    if (const auto kept = listener.lock()) (*kept)(tables);
  }
}

}  // namespace quillary
