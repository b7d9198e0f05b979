#include "domain/EntryStatus.h"

#include <array>

namespace quillary {
namespace {

constexpr auto MakeEntryStatuses() {
  using enum EntryStatus;
  using enum EntryGroup;
  using enum EntryKind;
  constexpr Groups<EntryGroup> kOpen = {LiveJobs, RebuiltByRoll, OnDaySheet};
  constexpr Groups<EntryGroup> kBilled = {WorkDone, LiveJobs, Finished, OnDaySheet};
  constexpr Groups<EntryGroup> kOff = {Finished};
  constexpr Groups<EntryGroup> kDone = {WorkDone, LiveJobs, NotYetBilled, Finished, OnDaySheet};
  return std::array<EntryStatusFacts, 13>{{
      {JobOpen, u"J", Job, u"Job NOT DONE", u"Job NOT DONE", Hue::Neutral, kOpen},
      {JobDone, u"JD", Job, u"Job DONE", u"Job DONE", Hue::Green, kDone},
      {JobDoneUnpaid, u"JU", Job, u"Job DONE NOT PAID", u"Job DONE NOT PAID", Hue::Green, kDone},
      {JobDonePaid, u"JP", Job, u"Job DONE AND PAID", u"Job DONE AND PAID", Hue::Green, kDone},
      {JobInvoiced, u"JI", Job, u"Job INVOICED", u"Job Invoiced", Hue::Green, kBilled},
      {JobCancelled, u"JC", Job, u"Job CANCELLED", u"Job CANCELLED", Hue::Red, kOff},
      {VisitOpen, u"V", Visit, u"Visit", u"Visit NOT DONE", Hue::Yellow, {OnDaySheet}},
      {VisitDone, u"VD", Visit, u"Visit DONE", u"Visit DONE", Hue::Yellow, {Finished, OnDaySheet}},
      {VisitCancelled, u"VC", Visit, u"Visit CANCELLED", u"Visit CANCELLED", Hue::Yellow, kOff},
      {QuoteOpen, u"Q", Quote, u"QUOTE", u"QUOTE", Hue::Green, {RebuiltByRoll}},
      {QuotePending, u"QP", Quote, u"Quote PENDING", u"Quote PENDING", Hue::Green, {}},
      {QuoteAccepted, u"QA", Quote, u"Quote ACCEPTED", u"Quote ACCEPTED", Hue::Green, {}},
      {QuoteRejected, u"QR", Quote, u"Quote REJECTED", u"Quote REJECTED", Hue::Green, {}},
  }};
}
constexpr auto kEntryStatuses = MakeEntryStatuses();
static_assert(IsInOrder(kEntryStatuses));

/// With whose code all codes of the kind begin.
EntryStatus FirstOf(EntryKind kind) {
  switch (kind) {
    case EntryKind::Visit:
      return EntryStatus::VisitOpen;
    case EntryKind::Quote:
      return EntryStatus::QuoteOpen;
    case EntryKind::Job:
      break;
  }
  return EntryStatus::JobOpen;
}

QString WordsOr(const StoredEntryStatus& status, QStringView EntryStatusFacts::*words) {
  if (!status.Known()) return status.Text();
  return (FactsOf(*status.Known()).*words).toString();
}

}  // namespace

std::span<const EntryStatusFacts> TableOf(EntryStatus) {
  return kEntryStatuses;
}

Sql IsInGroup(const char* column, EntryGroup group) {
  return Sql("NOT ({} NOT IN {})", Sql(column), CodesOf(group));
}

Sql IsOfKind(const char* column, EntryKind kind) {
  return Sql("LEFT({}, 1) = {}", Sql(column), FirstOf(kind));
}

std::optional<EntryKind> KindOf(const StoredEntryStatus& status) {
  if (status.Known()) return FactsOf(*status.Known()).kind;
  const StoredEntryStatus letter(status.Text().left(1));
  if (!letter.Known()) return std::nullopt;
  return FactsOf(*letter.Known()).kind;
}

StoredEntryStatus Folded(const StoredEntryStatus& status) {
  return status.IsIn(EntryGroup::NotYetBilled) ? StoredEntryStatus(EntryStatus::JobDone) : status;
}

QString WordsOf(const StoredEntryStatus& status) {
  return WordsOr(status, &EntryStatusFacts::words);
}

QString FoldedWordsOf(const StoredEntryStatus& status) {
  return WordsOf(Folded(status));
}

QString ListedWordsOf(const StoredEntryStatus& status) {
  return WordsOr(status, &EntryStatusFacts::listed);
}

Hue HueOf(const StoredEntryStatus& status, bool isPaid) {
  if (isPaid) return Hue::Blue;
  if (status.Known()) return FactsOf(*status.Known()).hue;
  return IsVisit(status) ? Hue::Yellow : Hue::Green;
}

}  // namespace quillary
