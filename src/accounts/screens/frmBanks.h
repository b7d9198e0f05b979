#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::accounts {

/// The banks that the payment screen offers for cheques.
RecordList BanksList(Business& business);
/// The accounts that the business banks to.
RecordList BankAccountsList(Business& business);

}  // namespace quillary::accounts
