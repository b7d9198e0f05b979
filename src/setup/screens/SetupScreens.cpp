#include "setup/screens/SetupScreens.h"

#include "base/ports/requests/Setup.h"
#include "setup/screens/SheetScreen.h"
#include "setup/screens/frmEmployees.h"
#include "setup/screens/frmMiscellaneousSettings.h"
#include "setup/screens/frmPersonalInformation.h"

namespace quillary::setup {

void RegisterSetupScreens(Business& business, const ScreenTools& tools,
                          const QString& programFolder) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenPersonalInformation>(
      [&business, tools, programFolder](const OpenPersonalInformation&) {
        frmPersonalInformation(business, tools, programFolder).exec();
      });
  navigator.Register<OpenMiscellaneousSettings>(
      [&business, tools, programFolder](const OpenMiscellaneousSettings&) {
        frmMiscellaneousSettings(business, tools, programFolder).exec();
      });
  navigator.Register<OpenEmployees>([&business, tools](const OpenEmployees&) {
    ShowTab(tools, "frmEmployees",
            [&] { return new RecordListScreen(EmployeesList(business), tools, business.World()); });
  });
  navigator.Register<OpenFixClientDetails>([&business, tools](const OpenFixClientDetails&) {
    ShowTab(tools, "frmInitialSetup_ClientDetails",
            [&] { return new SheetScreen(ClientDetailsSheet(business), business, tools); });
  });
  navigator.Register<OpenScheduleClients>([&business, tools](const OpenScheduleClients&) {
    ShowTab(tools, "frmInitialSetup_Schedules",
            [&] { return new SheetScreen(SchedulesSheet(business), business, tools); });
  });
}

}  // namespace quillary::setup
