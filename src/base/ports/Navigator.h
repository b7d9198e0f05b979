#pragma once

#include <any>
#include <functional>
#include <stdexcept>
#include <typeindex>
#include <unordered_map>

namespace quillary {

/// Opens screens by request, so that no screen has to include another. A request is a plain struct;
/// one that brings an answer back names its type as `Result`. Each area registers what opens its
/// own requests.
class Navigator {
 public:
  template <typename Request, typename = void>
  struct ResultType {
    using type = void;
  };
  template <typename Request>
  struct ResultType<Request, std::void_t<typename Request::Result>> {
    using type = typename Request::Result;
  };
  template <typename Request>
  using ResultOf = typename ResultType<Request>::type;

  template <typename Request>
  void Register(std::function<ResultOf<Request>(const Request&)> opener) {
    openers_[typeid(Request)] = std::move(opener);
  }
  /// Whether the screen exists in this build; a command whose screen does not is disabled.
  template <typename Request>
  bool CanOpen() const {
    return openers_.contains(typeid(Request));
  }
  /// Throws std::logic_error when nothing is registered for the request.
  template <typename Request>
  ResultOf<Request> Open(const Request& request) const {
    const auto at = openers_.find(typeid(Request));
    if (at == openers_.end()) throw std::logic_error("No screen is registered for this request");
    return std::any_cast<const std::function<ResultOf<Request>(const Request&)>&>(at->second)(
        request);
  }

 private:
  std::unordered_map<std::type_index, std::any> openers_;
};

}  // namespace quillary
