#pragma once

#include <QtGlobal>

/// Requests that open the screens of clients, their services and quotes.
namespace quillary {

struct OpenClientList {};
/// Inserts a client and opens it.
struct AddClient {};
struct OpenClient {
  qint64 clientId = 0;
};
struct OpenCreateAQuote {};

}  // namespace quillary
