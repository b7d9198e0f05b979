#pragma once

#include "cli/Command.h"

#include <QDate>
#include <QStringList>

#include <optional>
#include <vector>

namespace quillary::cli {

/// A whole command line, taken apart.
struct CommandLine {
  const Command* command = nullptr;  // none: only help was asked for
  Arguments arguments;
  bool help = false;
  bool json = false;
  bool yes = false;
  bool version = false;
  std::optional<QDate> today;
};

/// The options that every command knows.
const std::vector<Option>& GlobalOptions();

/// Options may stand before and behind the command and its arguments; "--" ends them. Throws
/// WrongUsage, and CommandFailure for a day that does not exist.
CommandLine ParseCommandLine(const QStringList& words, const std::vector<Command>& commands);

}  // namespace quillary::cli
