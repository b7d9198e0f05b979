#include "lists/screens/ListScreens.h"

#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Setup.h"
#include "data/Business.h"
#include "lists/screens/frmCountries.h"
#include "lists/screens/frmDivisions.h"
#include "lists/screens/frmHoliday.h"
#include "lists/screens/frmPaymentMethods.h"
#include "lists/screens/frmServices.h"
#include "lists/screens/frmSuburb_Position.h"
#include "lists/screens/frmVisitFrequencies.h"

namespace quillary::lists {

void RegisterListScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<EditSuburbPositions>([&business, tools](const EditSuburbPositions&) {
    return frmSuburb_Position(business, tools).exec() == QDialog::Accepted;
  });
  navigator.Register<OpenServices>([&business, tools](const OpenServices&) {
    ShowTab(tools, "frmServices", [&] { return new frmServices(business, tools); });
  });
  navigator.Register<OpenVisitFrequencies>([&business, tools](const OpenVisitFrequencies&) {
    ShowTab(tools, "frmVisitFrequencies", [&] {
      return new RecordListScreen(VisitFrequenciesList(business), tools, business.World());
    });
  });
  navigator.Register<OpenHoliday>([&business, tools](const OpenHoliday&) {
    ShowTab(tools, "frmHoliday", [&] { return new frmHoliday(business, tools); });
  });
  navigator.Register<OpenDivisions>([&business, tools](const OpenDivisions&) {
    ShowTab(tools, "frmDivisions",
            [&] { return new RecordListScreen(DivisionsList(business), tools, business.World()); });
  });
  navigator.Register<OpenCountries>([&business, tools](const OpenCountries&) {
    ShowTab(tools, "frmCountries",
            [&] { return new RecordListScreen(CountriesList(business), tools, business.World()); });
  });
  navigator.Register<OpenPaymentMethods>(
      [&business, tools](const OpenPaymentMethods&) { OpenPaymentMethodsList(business, tools); });
}

}  // namespace quillary::lists
