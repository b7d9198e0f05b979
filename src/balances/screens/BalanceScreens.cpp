#include "balances/screens/BalanceScreens.h"

#include "balances/ClientBalance.h"
#include "balances/screens/frmDebtors.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Billing.h"

namespace quillary::balances {

void RegisterBalanceScreens(Business& business, const ScreenTools& tools) {
  tools.navigator.Register<OpenDebtors>([&business, tools](const OpenDebtors& request) {
    auto* debtors =
        qobject_cast<frmDebtors*>(tools.host.BringToFront(QStringLiteral("frmDebtors")));
    if (!debtors) {
      debtors = new frmDebtors(business, tools);
      tools.host.ShowScreen(debtors);
    }
    std::optional<DebtAge> age;
    for (const DebtAge one : kDebtAges)
      if (request.age == static_cast<int>(one)) age = one;
    debtors->ShowYourself(age);
  });
  tools.navigator.Register<RecomputeAmountOwing>([&business](const RecomputeAmountOwing&) {
    RecomputeAmountOwingAfterAsking(business, business.World().prompter);
  });
}

}  // namespace quillary::balances
