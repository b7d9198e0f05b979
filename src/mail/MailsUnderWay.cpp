#include "mail/MailsUnderWay.h"

#include "mail/Outbox.h"

#include <algorithm>
#include <iterator>

namespace quillary::mail {

int MailsUnderWay::InDoubt() {
  if (!Outbox::Exists(business_)) return 0;
  try {
    return static_cast<int>(Outbox(business_).In(State::InDoubt).size());
  } catch (const StorageFailure&) {
    return 0;
  }
}

std::vector<Id<Invoice>> MailsUnderWay::NotMailed(const std::vector<Id<Invoice>>& invoices) {
  if (!Outbox::Exists(business_)) return invoices;
  std::vector<Id<Invoice>> notMailed;
  try {
    Outbox outbox(business_);
    std::ranges::copy_if(invoices, std::back_inserter(notMailed), [&](Id<Invoice> invoice) {
      return !outbox.FindDocument(Contents::Invoice, invoice);
    });
  } catch (const StorageFailure&) {
    return {};
  }
  return notMailed;
}

}  // namespace quillary::mail
