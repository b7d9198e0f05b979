#pragma once

#include "data/Business.h"

namespace quillary::setup {

struct DemoOptions {
  int clients = 250;  // rows of Clients, of every status
  int months = 18;    // of past diary, invoices, payments and purchases
  quint32 seed = 1;
};

struct DemoCount {
  int clients = 0;
  int clientServices = 0;
  int diaryEntries = 0;
  int invoices = 0;
  int payments = 0;
  int purchases = 0;
  int quotes = 0;
};

/// Fills an empty business with an invented garden-care franchise: reference lists, clients with
/// their services, the past up to today, and a day's work on today in several states. The diary is
/// filled to the end of today, so that the first roll makes the future and leaves today as it is.
/// The same options and the same day give the same business on every machine. Happens whole or not
/// at all. Throws std::invalid_argument when the business has clients already.
DemoCount WriteDemoBusiness(Business& business, const DemoOptions& options = {});

}  // namespace quillary::setup
