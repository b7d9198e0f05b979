#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <memory>
#include <set>
#include <vector>

namespace quillary {

/// Names of tables, whatever their case.
class Tables {
 public:
  Tables() = default;
  Tables(std::initializer_list<const char*> names) {
    for (const char* name : names) Add(QString::fromUtf8(name));
  }
  void Add(const QString& name) { names_.insert(name.toLower()); }
  void Add(const Tables& others) { names_.insert(others.names_.begin(), others.names_.end()); }
  bool Contains(const QString& name) const { return names_.contains(name.toLower()); }
  bool HaveAnyOf(const Tables& others) const;
  bool IsEmpty() const { return names_.empty(); }

  bool operator==(const Tables&) const = default;

 private:
  std::set<QString> names_;  // in lower case
};

/// A listener listens for as long as this is kept.
using Subscription = std::shared_ptr<const void>;

/// Tells listeners after each commit which tables it wrote.
class Changes {
 public:
  using Listener = std::function<void(const Tables&)>;

  [[nodiscard]] Subscription Listen(Listener listener);
  void Tell(const Tables& tables);

 private:
  std::vector<std::weak_ptr<const Listener>> listeners_;
};

}  // namespace quillary
