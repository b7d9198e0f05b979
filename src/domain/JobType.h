#pragma once

#include "domain/Vocabulary.h"

namespace quillary {

/// What becomes of a service that a client has: the roll makes one visit of a casual one, visits in
/// a rhythm of a regular one, and a quote visit for a client who is quoted only.
enum class JobType { Casual, Regular, QuoteOnly, Cancelled };

enum class JobTypeGroup { OfferedByHand };

struct JobTypeFacts {
  JobType value;
  QStringView word;
  Groups<JobTypeGroup> groups;
};
std::span<const JobTypeFacts> TableOf(JobType);

using StoredJobType = Stored<JobType>;

}  // namespace quillary
