#pragma once

#include "base/Id.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>

/// What the business says of itself: the one row of infPersonalDetails, which heads every document.
namespace quillary::setup {

struct PersonalInformation {
  QString fseCode;
  std::optional<Id<Division>> divisionId;
  QString companyName;
  QString firstName;
  QString surname;
  QString streetNumber;
  QString street;
  QString suburb;
  QString postCode;
  std::optional<Id<Country>> countryId;
  QString phone1;
  QString phone2;
  QString fax;
  QString email;
  QString abn;
  QString acn;
  QString provider;
  QString accountName;
  QString bsbAccountNumber;
};

PersonalInformation LoadPersonalInformation(Business& business);

/// Refuses a business without division or code; otherwise writes the row, making it when it is
/// missing, and the division's name among the shared values. Throws WriteFailed.
std::optional<Refusal> SavePersonalInformation(Business& business, const PersonalInformation& info);

/// The label of the business's tax number in that country: "ABN:".
QString RegistrationLabelOf(Business& business, std::optional<Id<Country>> countryId);
/// The picture of the division, in the folder Files of the program; empty when there is none.
QString LogoOfDivision(Business& business, std::optional<Id<Division>> divisionId,
                       const QString& programFolder);

}  // namespace quillary::setup
