#pragma once

#include "base/Money.h"
#include "data/Business.h"
#include "domain/TaxRate.h"

#include <QDate>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace quillary::roll {

/// The highest Sequence of each day, remembered for the length of a roll, so that numbering an
/// entry does not ask the file for every visit. Deletions need not be told: once a day is known,
/// its highest number is that of an entry which this roll has made, and a roll deletes none of
/// those.
class DaySequences {
 public:
  explicit DaySequences(Business& business) : business_(business) {}
  /// The number of the next entry of the day.
  int Next(QDate day);
  /// Others wrote to the day: the file is asked again.
  void Forget(QDate day) { highest_.remove(day.toJulianDay()); }
  /// Entries of this roll were undone.
  void ForgetAll() { highest_.clear(); }

 private:
  Business& business_;
  QHash<qint64, int> highest_;  // by Julian day
};

/// One service done on a visit.
struct VisitLine {
  std::optional<Id<Service>> service;
  QString serviceCode;
  Money price;  // includes tax
  QString notes;
  int frequency = 0;
};

/// Collects the visits of one client and writes them in one go. The rows are those that
/// SetUpDiaryEntryGetDiaryID and SetUpDiaryServiceEntry would give, called visit by visit, down to
/// keys, sequence and order of lines; but each entry is written once, and what already stands in
/// the client's diary is read once.
class VisitWriter {
 public:
  /// Visits before `from` are neither looked at nor made.
  VisitWriter(Business& business, DaySequences& sequences, Id<Client> client, QDate from);

  /// Whether a line of the service stands on that day, in the file or among the visits collected.
  bool IsScheduled(std::optional<Id<Service>> service, QDate day) const;
  /// Adds a line to the client's open job of that day and employee, collecting a new job when there
  /// is none.
  void AddVisit(std::optional<Id<Employee>> employee, QDate day, const VisitLine& line);
  /// Writes Diary and Diary_Services; returns how many entries are new.
  int Write();

 private:
  /// What is looked up for each visit: the number of a service or employee, 0 for none as the
  /// columns hold it, and the Julian day.
  using Place = std::pair<qint64, qint64>;

  struct Visit {
    std::optional<Id<Entry>> entry = {};  // nothing until it is written
    std::optional<Id<Employee>> employee = {};
    QDate day = {};
    int sequence = 0;
    QString description = {};
    QString notes = {};
    Money price = {};  // what the collected lines add
    Money gst = {};
    bool isChanged = false;
  };
  struct Line {
    size_t visit = 0;
    std::optional<Id<Service>> service;
    Money price;
    Money gst;
    int frequency = 0;
  };

  void LoadDiary(QDate from);
  int InsertNewVisits();
  void UpdateOldVisits();
  void InsertLines();

  Business& business_;
  DaySequences& sequences_;
  Id<Client> client_;
  TaxRate taxRate_;
  QSet<Place> scheduled_;
  QHash<Place, size_t> openJobs_;
  std::vector<Visit> visits_;
  std::vector<Line> lines_;
};

}  // namespace quillary::roll
