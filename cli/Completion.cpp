#include "cli/Completion.h"

namespace metrisk::cli {

namespace {

// Finds the command that stands before the word, then what the word may be. Names with blanks survive,
// since candidates are parted by line ends.
constexpr const char* head = R"(# Completion of metrisk-cli for bash.
_metrisk_cli() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
  local command= candidates= kind= values= i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case "$command/${COMP_WORDS[i]}" in
)";
constexpr const char* middle = R"(    esac
  done
  case "$command" in
)";
constexpr const char* tail = R"(  esac
  case "$command/$previous" in
)";
constexpr const char* end = R"(  esac
  COMPREPLY=()
  [ "$kind" = none ] && return
  [ -n "$values" ] && candidates=$values kind=
  case "$kind" in
    path) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
    folder) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
  esac
  # Options stand beside files only once a dash asks for them.
  if [ -z "$kind" ] || [[ $word == -* ]]; then
    mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$candidates" -- "$word")
  fi
}
complete -F _metrisk_cli metrisk-cli
)";

} // namespace

std::string completionScript(const std::vector<CompletedCommand>& commands) {
    std::string descent, choices, values;
    for (const CompletedCommand& command : commands) {
        std::string candidates;
        for (const std::string& name : command.commands) {
            candidates += " " + name;
            const std::string below = command.path.empty() ? name : command.path + " " + name;
            descent += "      '" + command.path + "/" + name + "') command='" + below + "' ;;\n";
        }
        for (const CompletedOption& option : command.options) {
            for (const std::string& name : option.names) {
                candidates += " " + name;
                if (!option.hasValue) continue;
                values += "    '" + command.path + "/" + name + "') ";
                if (!option.words.empty())
                    values += "values='" + option.words + "'";
                else
                    values += option.kind == ValueKind::Path     ? "kind=path candidates="
                              : option.kind == ValueKind::Folder ? "kind=folder candidates="
                                                                 : "kind=none";
                values += " ;;\n";
            }
        }
        choices += "    '" + command.path + "') candidates='" +
                   candidates.substr(candidates.empty() ? 0 : 1) + "'" +
                   (command.takesPaths ? " kind=path" : "") + " ;;\n";
    }
    return head + descent + middle + choices + tail + values + end;
}

} // namespace metrisk::cli
