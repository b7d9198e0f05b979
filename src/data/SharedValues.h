#pragma once

#include "base/Value.h"
#include "base/ports/HeadOffice.h"
#include "data/Changes.h"

#include <QString>

namespace quillary {

/// What start-up loads once and the rest of the program reads. A new business object has the values
/// that an empty file would give.
struct SharedValues {
  QString emailOption = QStringLiteral("MAPI");
  QString invoicePrintingFormat = QStringLiteral("WORD");
  QString documentDesign = QStringLiteral("CLASSIC");  // of PDF files; or "CLEAN"
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

class Business;

/// Reads what the business's tables say of the shared values, holidays included. Throws NoRecordset
/// or NoCurrentRecord when a table that a file of the current version has is missing or empty.
void LoadSharedValues(Business& business);
/// The tables it reads.
const Tables& TablesOfSharedValues();

/// Its steps, for a start that makes room for them one by one. The flags are read as soon as a file
/// is open, whatever its version: a flag whose column it lacks keeps its value.
void LoadOptionFlags(Business& business);
void LoadHorizon(Business& business);
void LoadDivisionName(Business& business);
void LoadTaxRate(Business& business);
/// What is neither "Cash" nor "Accrual" is taken for "Cash".
void LoadAccountingMethod(Business& business);
void LoadDefaultEmployee(Business& business);
void LoadDefaultService(Business& business);
/// "GST" where the country has no name for its tax.
void LoadTaxName(Business& business);
/// Lets the process write as in the country of the business, or of the machine where it names none
/// that is known. True when that is another way than before.
bool LoadCountry(Business& business);
/// The tables that say which country it is.
const Tables& TablesOfCountry();

}  // namespace quillary
