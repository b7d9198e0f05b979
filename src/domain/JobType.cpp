#include "domain/JobType.h"

#include <array>

namespace quillary {
namespace {

constexpr std::array kJobTypes = {
    JobTypeFacts{JobType::Casual, u"Casual", {JobTypeGroup::OfferedByHand}},
    JobTypeFacts{JobType::Regular, u"Regular", {JobTypeGroup::OfferedByHand}},
    JobTypeFacts{JobType::QuoteOnly, u"Quote only", {JobTypeGroup::OfferedByHand}},
    JobTypeFacts{JobType::Cancelled, u"Cancelled", {}},
};
static_assert(IsInOrder(kJobTypes));

}  // namespace

std::span<const JobTypeFacts> TableOf(JobType) {
  return kJobTypes;
}

}  // namespace quillary
