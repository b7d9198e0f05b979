#pragma once

#include "base/Value.h"
#include "base/ports/HeadOffice.h"

#include <QString>

namespace quillary {

/// What start-up loads once and the rest of the program reads. A new business object has the values
/// that an empty file would give.
struct SharedValues {
  QString emailOption = QStringLiteral("MAPI");
  QString invoicePrintingFormat = QStringLiteral("WORD");
  int daysToAdvanceSchedule = 0;
  float gstPercentage = 0;  // a fraction: 0.1 is ten percent
  QString accountingMethod = QStringLiteral("Cash");
  QString divisionName;
  QString taxName = QStringLiteral("GST");
  std::optional<Id<Employee>> defaultEmployee;  // the lowest
  std::optional<Id<Service>> defaultService;

  // Flags and texts of infOptions, for which old files may lack the column.
  bool enableLogging = false;
  QString adobePath;
  bool recalculateClientAmtsOwingOnPrint = false;
  QString ccEmailAddress;
  bool enableOstrel4WebServices = true;
  bool databaseUploaded = false;
  bool compactDatabaseBeforeUpload = false;

  MailServer mailServer;
};

}  // namespace quillary
