#include "cli/Parsing.h"

#include "base/DateTime.h"

namespace quillary::cli {
namespace {

QDate ParseDate(const QString& text) {
  const auto moment = FromIsoText(text);
  if (!moment || text.size() != 10) {
    throw CommandFailure(
        QStringLiteral("%1 is no date; dates are written YYYY-MM-DD and must exist").arg(text));
  }
  return moment->date;
}

const Command* FindCommand(const QString& name, const std::vector<Command>& commands) {
  for (const Command& command : commands) {
    if (name == QLatin1String(command.name)) return &command;
  }
  throw WrongUsage(QStringLiteral("there is no command %1").arg(name));
}

const Option* FindOption(const QString& name, const std::vector<Option>& options) {
  for (const Option& option : options) {
    if (name == QLatin1String(option.name)) return &option;
  }
  return nullptr;
}

/// Sorts the words into options and the rest. What an option is depends on the command, so the
/// first word that is no option of all commands names it.
class Parser {
 public:
  Parser(const QStringList& words, const std::vector<Command>& commands)
      : words_(words), commands_(commands) {}

  CommandLine Parse() {
    for (at_ = 0; at_ < words_.size(); ++at_) {
      const QString& word = words_[at_];
      if (optionsEnded_ || !word.startsWith(QStringLiteral("--"))) {
        TakePlain(word);
      } else if (word == QStringLiteral("--")) {
        optionsEnded_ = true;
      } else {
        TakeOption(word.mid(2));
      }
    }
    ReadGlobals();
    return line_;
  }

 private:
  void TakePlain(const QString& word) {
    if (line_.command == nullptr) {
      line_.command = FindCommand(word, commands_);
    } else {
      line_.arguments.positional += word;
    }
  }

  void TakeOption(const QString& text) {
    const QString name = text.section(u'=', 0, 0);
    const Option* option = FindOption(name, GlobalOptions());
    if (option == nullptr && line_.command != nullptr) {
      option = FindOption(name, line_.command->options);
    }
    if (option == nullptr) throw WrongUsage(QStringLiteral("there is no option --%1").arg(name));
    const bool hasValue = text.contains(u'=');
    if (option->value == nullptr) {
      if (hasValue) throw WrongUsage(QStringLiteral("--%1 takes no value").arg(name));
      line_.arguments.options[name] = QString();
      return;
    }
    if (!hasValue && at_ + 1 >= words_.size()) {
      throw WrongUsage(QStringLiteral("--%1 needs a value").arg(name));
    }
    const QString value = hasValue ? text.section(u'=', 1) : words_[++at_];
    line_.arguments.options[name] = value;
    line_.arguments.repeated[name] += value;
  }

  void ReadGlobals() {
    line_.help = line_.arguments.Has("help");
    line_.json = line_.arguments.Has("json");
    line_.yes = line_.arguments.Has("yes");
    line_.version = line_.arguments.Has("version");
    if (line_.help || line_.version) return;
    line_.today = line_.arguments.Date("today");
    if (line_.command == nullptr) throw WrongUsage(QStringLiteral("a command is missing"));
    const auto given = line_.arguments.positional.size();
    if (given < line_.command->fewest) {
      throw WrongUsage(
          QStringLiteral("%1 needs %2").arg(line_.command->name, line_.command->usage));
    }
    if (given > line_.command->most) {
      throw WrongUsage(
          QStringLiteral("%1 has nothing to do with \"%2\"")
              .arg(line_.command->name, line_.arguments.positional[line_.command->most]));
    }
  }

  const QStringList& words_;
  const std::vector<Command>& commands_;
  qsizetype at_ = 0;
  bool optionsEnded_ = false;
  CommandLine line_;
};

}  // namespace

std::optional<QDate> Arguments::Date(const char* option) const {
  if (!Has(option)) return std::nullopt;
  return ParseDate(options[QLatin1String(option)]);
}

std::optional<qint64> Arguments::Number(const char* option, qint64 least, qint64 most) const {
  if (!Has(option)) return std::nullopt;
  const QString& text = options[QLatin1String(option)];
  bool isNumber = false;
  const qint64 number = text.toLongLong(&isNumber);
  if (!isNumber || number < least || number > most) {
    throw WrongUsage(QStringLiteral("--%1 takes a whole number from %2 to %3, not \"%4\"")
                         .arg(QLatin1String(option))
                         .arg(least)
                         .arg(most)
                         .arg(text));
  }
  return number;
}

qint64 ParseKey(const QString& text) {
  bool isNumber = false;
  const qint64 key = text.toLongLong(&isNumber);
  if (!isNumber || key < 1) throw WrongUsage(QStringLiteral("\"%1\" is no number").arg(text));
  return key;
}

const std::vector<Option>& GlobalOptions() {
  static const std::vector<Option> options = {
      {"today", "YYYY-MM-DD", "take that day for today"},
      {"json", nullptr, "print JSON"},
      {"yes", nullptr, "answer questions with Yes instead of No"},
      {"version", nullptr, "print which version this is, and do nothing"},
      {"help", nullptr, "print help, also on a command, and do nothing"},
  };
  return options;
}

CommandLine ParseCommandLine(const QStringList& words, const std::vector<Command>& commands) {
  return Parser(words, commands).Parse();
}

}  // namespace quillary::cli
