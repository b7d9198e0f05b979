#pragma once

#include <QStringList>

namespace quillary {

/// The word lists that the program and its files share. Their words and order are stored in old
/// files and shown back, so they stay as they are: the noon hour of the times is marked AM, and two
/// months keep their spellings.
struct FixedLists {
  QStringList paymentTerms;
  QStringList glAccountTypes;
  QStringList statementTypes;
  QStringList clientStatuses;
  QStringList weekDays;
  QStringList times;
  QStringList months;
};

const FixedLists& Lists();

}  // namespace quillary
