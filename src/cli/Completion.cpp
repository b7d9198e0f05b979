#include "cli/Completion.h"

#include "cli/Parsing.h"

namespace quillary::cli {
namespace {

QString Words(const std::vector<Option>& options) {
  QStringList words;
  for (const Option& option : options) words += QStringLiteral("--") + QLatin1String(option.name);
  return words.join(u' ');
}

}  // namespace

void PrintCompletion(const std::vector<Command>& commands, QTextStream& out) {
  QStringList names;
  for (const Command& command : commands) names += QLatin1String(command.name);
  out << "# What bash offers behind quillaryctl.\n"
         "_quillaryctl() {\n"
         "  local word=\"${COMP_WORDS[COMP_CWORD]}\" command= at\n"
         "  local names=\""
      << names.join(u' ')
      << "\"\n"
         "  local options=\""
      << Words(GlobalOptions())
      << "\"\n"
         "  for ((at = 1; at < COMP_CWORD; at++)); do\n"
         "    [[ \" $names \" == *\" ${COMP_WORDS[at]} \"* ]] && command=\"${COMP_WORDS[at]}\" && "
         "break\n"
         "  done\n"
         "  case \"$command\" in\n";
  for (const Command& command : commands) {
    if (!command.options.empty())
      out << "    " << command.name << ") options+=\" " << Words(command.options) << "\" ;;\n";
  }
  out << "  esac\n"
         "  if [[ \"$word\" == -* ]]; then\n"
         "    COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n"
         "  elif [[ -z \"$command\" ]]; then\n"
         "    COMPREPLY=($(compgen -W \"$names\" -- \"$word\"))\n"
         "  else\n"
         "    COMPREPLY=($(compgen -f -- \"$word\"))\n"
         "  fi\n"
         "}\n"
         "complete -o filenames -F _quillaryctl quillaryctl\n";
}

}  // namespace quillary::cli
