#pragma once

#include "base/DateRange.h"
#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"
#include "domain/EntryStatus.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The list of jobs over a period. Its cells are edited through ChangeJobStatus() and
/// ChangeSequence().
namespace quillary::diary {

/// In the order of JobFilterWords().
enum class JobFilter { AllJobs, UncancelledJobs, NotDone, Done, Cancelled, DueForInvoice };
QStringList JobFilterWords();

struct JobsListQuery {
  DateRange days;
  JobFilter filter = JobFilter::AllJobs;
};

struct JobsListRow {
  Id<Entry> entry;
  Id<Client> client;
  int sequence = 0;
  QDate scheduleDate;
  QString displayName;
  QString address;  // suburb, post code, street, number
  QString description;
  Money totalPrice;  // tax included
  Money totalGST;
  StoredEntryStatus status;
  bool isPaid = false;  // added to a payment
};

struct JobsList {
  std::vector<JobsListRow> rows;  // by date, the newest entry of a day first
  // Over the rows that are not cancelled.
  int totalNoOfJobs = 0;
  Money totalAmountOfJobs;
  Money totalAmountOfGST;
};

/// From the first to the last day of the month that `today` lies in, all jobs.
JobsListQuery JobsOfMonth(QDate today);
/// The entries of the period, each once. Uncancelled takes in visits and quotes too; every other
/// filter lists jobs alone.
JobsList LoadJobsList(Business& business, const JobsListQuery& query);

enum class JobsListCommand { EditCell, ViewJob, ClientDetails, Delete };
/// What the list says when a command has no job to work on.
std::optional<Refusal> CheckJobSelected(JobsListCommand command, std::optional<Id<Entry>> entry);

/// Asks by the job's name, then deletes it with its lines; the balance of its payer follows.
/// False when the user declined.
bool DeleteJobAfterAsking(Business& business, Prompter& prompter, Id<Entry> entry);

}  // namespace quillary::diary
