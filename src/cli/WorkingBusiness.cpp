#include "cli/WorkingBusiness.h"

#include "data/schema/Schema.h"

namespace quillary::cli {
namespace {

void RequireCurrentVersion(Business& business) {
  const qint64 version =
      business.LookupField(QStringLiteral("infSystem.Database_Version")).ToLong();
  if (version >= kSchemaVersion) return;
  throw CommandFailure(QStringLiteral("%1 is of version %2; it has to be brought to version %3 "
                                      "before anything works on it")
                           .arg(business.DatabaseFile())
                           .arg(version)
                           .arg(kSchemaVersion));
}

}  // namespace

std::unique_ptr<Business> OpenAnyBusiness(const Call& call) {
  auto business = std::make_unique<Business>(call.world.Ports(), call.File());
  business->ConnectToDatabase();
  return business;
}

std::unique_ptr<Business> OpenCurrentBusiness(const Call& call) {
  auto business = OpenAnyBusiness(call);
  business->OnRefusedStatement([](const RefusedStatement& refused) {
    throw CommandFailure(QStringLiteral("refused: ") + refused.reason);
  });
  RequireCurrentVersion(*business);
  LoadSharedValues(*business);
  return business;
}

void ThrowIf(const std::optional<Refusal>& refusal) {
  if (refusal) throw CommandFailure(refusal->message);
}

}  // namespace quillary::cli
