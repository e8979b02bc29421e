#include "cli/Arguments.h"

#include "base/NearestWord.h"
#include "cli/Completion.h"
#include "cli/Output.h"
#include "cli/Readers.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <iostream>
#include <system_error>

namespace metrisk::cli {

namespace {

// What a value is, for its completion, stands in the type name of an option: nobody else reads it, since all
// have a text of their own in the help.
constexpr const char* pathType = "PATH";
constexpr const char* folderType = "FOLDER";

template <class Target, class Value>
Check taking(Target& target, std::optional<Value> (*read)(std::string_view),
             std::string (*wrong)(const std::string&)) {
    return [&target, read, wrong](const std::string& text) {
        if (const auto value = read(text)) target = *value;
        return wrong(text);
    };
}

/// The command that has been read, or as much of it as was known.
const CLI::App* innermost(const CLI::App* app) {
    while (!app->get_subcommands().empty()) app = app->get_subcommands().front();
    return app;
}

std::vector<std::string> commandsOf(const CLI::App* app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app->get_subcommands([](const CLI::App*) { return true; }))
        if (!command->get_name().empty()) names.push_back(command->get_name());
    return names;
}

std::vector<std::string> optionNamesOf(const CLI::App* app) {
    std::vector<std::string> names;
    for (const CLI::Option* option : app->get_options())
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    return names;
}

std::string noCommandText(const CLI::App* app, const std::string& word) {
    const std::string near = nearestWord(word, commandsOf(app));
    const std::string help = near.empty() ? "; --help lists them." : "; did you mean " + near + "?";
    return printable(word) + " is no command of metrisk-cli" + help + "\n";
}

/// What the library says, and what it does not: which word is no command, what it may have meant, and how to
/// name a file that looks like an option.
std::string failureText(const CLI::App* app, const CLI::Error& error) {
    const std::vector<std::string> unknown = app->remaining(true);
    const CLI::App* command = innermost(app);
    const bool wantsCommand = !commandsOf(command).empty();
    if (wantsCommand && !unknown.empty() && !unknown[0].starts_with('-'))
        return noCommandText(command, unknown[0]);
    std::string text = CLI::FailureMessage::simple(app, error);
    for (const std::string& word : unknown) {
        if (!word.starts_with('-')) continue;
        const std::string near = nearestWord(word.substr(0, word.find('=')), optionNamesOf(command));
        if (!near.empty()) text += "Did you mean " + near + "?\n";
        return text + "If " + printable(word) + " is a file, put -- before it.\n";
    }
    return text;
}

CompletedCommand completed(const CLI::App* app, const std::string& path) {
    CompletedCommand command{path, commandsOf(app), {}, false};
    for (const CLI::Option* option : app->get_options()) {
        CompletedOption one;
        for (const std::string& name : option->get_snames()) one.names.push_back("-" + name);
        for (const std::string& name : option->get_lnames()) one.names.push_back("--" + name);
        one.hasValue = option->get_items_expected_max() > 0;
        const std::string full = option->get_type_name(); // what checks say of themselves follows a colon
        const std::string type = full.substr(0, full.find(':'));
        if (type == pathType)
            one.kind = ValueKind::Path;
        else if (type == folderType)
            one.kind = ValueKind::Folder;
        else if (one.hasValue && type.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == type.npos)
            one.words = type;
        if (one.names.empty())
            command.takesPaths = command.takesPaths || one.kind == ValueKind::Path;
        else
            command.options.push_back(one);
    }
    return command;
}

/// Of a command and of all below it.
void collect(const CLI::App* app, const std::string& path, std::vector<CompletedCommand>& commands) {
    commands.push_back(completed(app, path));
    for (const CLI::App* command : app->get_subcommands([](const CLI::App*) { return true; }))
        if (!command->get_name().empty())
            collect(command, path.empty() ? command->get_name() : path + " " + command->get_name(), commands);
}

/// What the library has printed must reach its place, as every other result.
int printed(int status) {
    std::cout.flush();
    std::cerr.flush();
    if (std::cout.good()) return status;
    return finish(
        {.diagnostics = "metrisk-cli: standard output: " + std::generic_category().message(errno) + "\n",
         .status = refused});
}

} // namespace

const Argument& Argument::shownAs(const std::string& placeholder) const {
    option_->option_text(placeholder);
    return *this;
}

const Argument& Argument::required(bool isRequired) const {
    option_->required(isRequired);
    return *this;
}

const Argument& Argument::check(const Check& wrong) const {
    option_->check(wrong);
    return *this;
}

const Argument& Argument::oneOf(const std::vector<std::string>& words) const {
    option_->check(CLI::IsMember(words))->type_name(CLI::detail::join(words, " "));
    return *this;
}

const Argument& Argument::oneOfAnyCase(const std::vector<std::string>& words) const {
    option_->check(CLI::IsMember(words, CLI::ignore_case))->type_name(CLI::detail::join(words, " "));
    return *this;
}

const Argument& Argument::isPath() const {
    option_->type_name(pathType);
    return *this;
}

const Argument& Argument::existingFolder() const {
    option_->check(CLI::ExistingDirectory)->type_name(folderType);
    return *this;
}

const Argument& Argument::separatedBy(char delimiter) const {
    option_->delimiter(delimiter);
    return *this;
}

const Argument& Argument::oneEach() const {
    option_->allow_extra_args(false);
    return *this;
}

const Argument& Argument::excludes(const Argument& other) const {
    option_->excludes(other.option_);
    return *this;
}

const Argument& Argument::needs(const Argument& other) const {
    option_->needs(other.option_);
    return *this;
}

bool Argument::given() const {
    return option_->count() > 0;
}

std::string Argument::name() const {
    return option_->get_name();
}

const Argument& Argument::under(const std::string& heading) const {
    option_->group(heading);
    return *this;
}

Arguments::Arguments(CLI::App* app) : app_(app), rules_(std::make_shared<std::vector<Rule>>()) {}

Arguments Arguments::command(const char* name, const char* about) const {
    return Arguments(app_->add_subcommand(name, about));
}

// Not the library's groups: those take an empty argument for themselves, for ever.
void Arguments::alternatives(const std::vector<Argument>& all, bool required) const {
    for (const Argument& each : all) each.under(required ? "One of these" : "At most one of these");
    rules_->push_back([all, required] {
        std::string names;
        for (const Argument& each : all) names += (names.empty() ? "" : ", ") + each.name();
        const auto given = std::ranges::count_if(all, &Argument::given);
        if (given > 1) throw WrongUsage("only one of " + names + " may be given");
        if (given == 0 && required) throw WrongUsage("one of " + names + " is required");
    });
}

void Arguments::needsCommand() const {
    app_->require_subcommand(1);
}

Argument Arguments::text(const char* name, std::string& target, const char* about) const {
    return Argument(app_->add_option(name, target, about));
}

Argument Arguments::text(const char* name, std::optional<std::string>& target, const char* about) const {
    return Argument(app_->add_option(name, target, about));
}

Argument Arguments::texts(const char* name, std::vector<std::string>& target, const char* about) const {
    return Argument(app_->add_option(name, target, about));
}

Argument Arguments::number(const char* name, double& target, const char* about) const {
    return read(name, taking(target, numberOf, isNumber), about);
}

Argument Arguments::number(const char* name, std::optional<double>& target, const char* about) const {
    return read(name, taking(target, numberOf, isNumber), about);
}

Argument Arguments::percent(const char* name, double& target, const char* about) const {
    return read(name, taking(target, percentOf, isPercent), about);
}

Argument Arguments::percent(const char* name, std::optional<double>& target, const char* about) const {
    return read(name, taking(target, percentOf, isPercent), about);
}

Argument Arguments::ratio(const char* name, double& target, const char* about) const {
    return read(name, taking(target, ratioOf, isRatio), about);
}

Argument Arguments::count(const char* name, unsigned& target, const char* about) const {
    return read(name, taking(target, countOf, isCount), about);
}

Argument Arguments::count(const char* name, std::size_t& target, const char* about, std::size_t least,
                          std::size_t most) const {
    return Argument(app_->add_option(name, target, about)->check(CLI::Range(least, most)));
}

Argument Arguments::read(const char* name, const Check& take, const char* about) const {
    const auto keep = [take, name](const std::string& text) {
        if (const std::string wrong = take(text); !wrong.empty()) throw CLI::ValidationError(name, wrong);
    };
    return Argument(app_->add_option_function<std::string>(name, keep, about));
}

Argument Arguments::flag(const char* name, bool& target, const char* about) const {
    return Argument(app_->add_flag(name, target, about));
}

void Arguments::examples(const std::vector<std::string>& lines) const {
    std::string text = lines.size() == 1 ? "Example:\n" : "Examples:\n";
    for (const std::string& line : lines) text += "  metrisk-cli " + line + "\n";
    app_->footer(text + "\n" + app_->get_footer());
}

void Arguments::then(std::function<void()> work) const {
    app_->callback([rules = rules_, work = std::move(work)] {
        try {
            for (const Rule& rule : *rules) rule();
            work();
        } catch (const WrongUsage& fault) {
            throw CLI::ValidationError(fault.what());
        }
    });
}

Program::Program(const char* name, const char* about, const char* version, const char* footer)
    : app_(std::make_unique<CLI::App>(about, name)) {
    app_->set_version_flag("--version", version, "Print the version and exit");
    app_->add_flag_callback(
        "--bash-completion",
        [app = app_.get()] {
            std::vector<CompletedCommand> commands;
            collect(app, "", commands);
            throw CLI::CallForVersion(completionScript(commands), 0); // printed like the version
        },
        "Print the completions for bash and exit");
    app_->require_subcommand(1);
    app_->footer(footer);
    app_->failure_message(failureText);
}

Program::~Program() = default;

Arguments Program::arguments() const {
    return Arguments(app_.get());
}

std::optional<int> Program::read(int argc, char** argv) {
    if (argc > 1 && std::string_view(argv[1]) == "help") return helpOf({argv + 2, argv + argc});
    try {
        app_->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        errno = 0;
        return printed(app_->exit(error) == 0 ? allDone : wrongUsage);
    }
    return std::nullopt;
}

std::optional<int> Program::helpOf(const std::vector<std::string>& commands) {
    CLI::App* command = app_.get();
    for (const std::string& name : commands) {
        const std::vector<std::string> known = commandsOf(command);
        if (std::ranges::find(known, name) == known.end()) {
            std::cerr << noCommandText(command, name);
            return wrongUsage;
        }
        command = command->get_subcommand(name);
    }
    errno = 0;
    std::string path;
    for (const std::string& name : commands) path += " " + name;
    const std::size_t last = path.find_last_of(' ');
    const std::string before = last == path.npos ? "" : path.substr(0, last);
    std::cout << command->help(commands.empty() ? "" : app_->get_name() + before);
    return printed(allDone);
}

bool Program::given(const char* flag) const {
    const CLI::App* command = innermost(app_.get());
    const CLI::Option* option = command->get_option_no_throw(flag);
    return option && option->count() > 0;
}

} // namespace metrisk::cli
