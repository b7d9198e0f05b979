#pragma once

#include "base/Errors.h"
#include "base/Value.h"
#include "data/access/wire/AccessTable.h"

#include <QString>

#include <vector>

/// Reading genuine Access files. A damaged one can make the library below crash, loop, or report
/// success with tables missing. So a process of its own reads it, under limits, and whatever
/// becomes of that process, the caller gets either all there is or an AccessFailure that says what
/// happened.
namespace quillary {

/// The file cannot be read as an Access file, in words for the user that name the file.
class AccessFailure : public ProgramError {
 public:
  explicit AccessFailure(const QString& description) : ProgramError(kNumber, description) {}

 private:
  static constexpr int kNumber = 3343;
};

/// What the reading process may take before it is ended.
struct AccessLimits {
  quint64 memoryBytes = 512ULL << 20;
  int processorSeconds = 60;
  int silentSeconds = 30;  // without saying anything
};

/// Takes what a file holds: all its tables first, then each table's rows in turn.
class AccessVisitor {
 public:
  virtual ~AccessVisitor() = default;
  virtual void OnTables(const std::vector<AccessTable>& tables) = 0;
  /// Cells in the order of the table's columns.
  virtual void OnRow(const AccessTable& table, const std::vector<Value>& cells) = 0;
  /// A row that cannot be taken, and why.
  virtual void OnBadRow(const AccessTable& table, const QString& reason) = 0;
  /// Called for each table, also for an empty one.
  virtual void OnTableEnd(const AccessTable& table) = 0;
};

/// Whether the first bytes of the file are those of an Access file, of whatever version.
bool IsAccessFile(const QString& path);

/// Whether it is of the oldest kind that is read, Jet 3. Its texts are in a code page of which the
/// file says nothing reliable; all later kinds hold Unicode.
bool NeedsCodePage(const QString& path);
/// The code page of nearly all such files, for Western languages.
inline const QString kUsualCodePage = QStringLiteral("CP1252");
/// Whether texts of that code page can be read.
bool IsCodePage(const QString& name);

/// Reads the whole file, which stays as it is. `codePage` matters only to one that needs it; empty
/// means the usual one. Throws AccessFailure; what the visitor was given
/// until then is not to be kept.
void ReadAccessFile(const QString& path, AccessVisitor& visitor, const AccessLimits& limits = {},
                    const QString& codePage = {});

}  // namespace quillary
