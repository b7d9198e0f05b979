#include "setup/demo/DemoBusiness.h"

#include "setup/demo/DemoModel.h"

#include <stdexcept>

namespace quillary::setup {

DemoCount WriteDemoBusiness(Business& business, const DemoOptions& options) {
  if (business.RunSQL(Sql("SELECT TOP 1 Client_ID FROM Clients")).HasRows()) {
    throw std::invalid_argument("A demo business is written into an empty business only");
  }
  Transaction whole(business);
  demo::Model model;
  model.today = business.Today();
  model.begin = model.today.addMonths(-options.months);
  demo::Dice dice(options.seed);

  demo::WriteReferenceData(business, model.today);
  LoadHolidaysIntoArray(business);
  demo::InventClients(model, options, dice);
  demo::InventVisits(model, business, dice);
  demo::InventMoney(model, dice);
  DemoCount count = demo::WriteModel(business, model);
  demo::WriteBankings(business, model);
  count.purchases = demo::WritePurchases(business, model, dice);
  whole.Commit();
  return count;
}

}  // namespace quillary::setup
