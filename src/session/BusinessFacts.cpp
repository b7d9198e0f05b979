#include "session/BusinessFacts.h"

namespace quillary::session {

BusinessFacts ReadBusinessFacts(Business& business) {
  BusinessFacts facts;
  facts.companyName =
      business.FirstField(Sql("SELECT Company_Name FROM infPersonalDetails; ")).ToText();
  facts.scheduleFilledTo =
      business.LookupField(QStringLiteral("infSystem.Last_Schedule_Ending")).ToDate();
  return facts;
}

}  // namespace quillary::session
