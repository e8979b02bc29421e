#include "cli/Arguments.h"

#include "cli/Output.h"

#include <CLI/CLI.hpp>

namespace metrisk::cli {

namespace {

/// What the library says, and what it does not: which word is no command, and how to name a file that
/// looks like an option.
std::string failureText(const CLI::App* app, const CLI::Error& error) {
    const std::vector<std::string> unknown = app->remaining(true);
    if (app->get_subcommands().empty() && !unknown.empty() && !unknown[0].starts_with('-'))
        return printable(unknown[0]) + " is no command of metrisk-cli; --help lists them.\n";
    std::string text = CLI::FailureMessage::simple(app, error);
    for (const std::string& word : unknown)
        if (word.starts_with('-')) return text + "If " + printable(word) + " is a file, put -- before it.\n";
    return text;
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
    option_->check(CLI::IsMember(words));
    return *this;
}

const Argument& Argument::existingFile() const {
    option_->check(CLI::ExistingFile);
    return *this;
}

const Argument& Argument::existingFolder() const {
    option_->check(CLI::ExistingDirectory);
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

Arguments Arguments::command(const char* name, const char* about) const {
    return Arguments(app_->add_subcommand(name, about));
}

Arguments Arguments::group(const char* name, std::size_t least, std::size_t most) const {
    CLI::App* group = app_->add_option_group(name);
    group->require_option(least, most);
    return Arguments(group);
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
    return Argument(app_->add_option(name, target, about));
}

Argument Arguments::number(const char* name, std::optional<double>& target, const char* about) const {
    return Argument(app_->add_option(name, target, about));
}

Argument Arguments::count(const char* name, unsigned& target, const char* about) const {
    return Argument(app_->add_option(name, target, about));
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

void Arguments::then(std::function<void()> work) const {
    app_->callback([work = std::move(work)] {
        try {
            work();
        } catch (const WrongUsage& fault) {
            throw CLI::ValidationError(fault.what());
        }
    });
}

Program::Program(const char* name, const char* about, const char* version, const char* footer)
    : app_(std::make_unique<CLI::App>(about, name)) {
    app_->set_version_flag("--version", version, "Print the version and exit");
    app_->require_subcommand(1);
    app_->footer(footer);
    app_->failure_message(failureText);
}

Program::~Program() = default;

Arguments Program::arguments() const {
    return Arguments(app_.get());
}

std::optional<int> Program::read(int argc, char** argv) {
    try {
        app_->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app_->exit(error) == 0 ? allDone : wrongUsage;
    }
    return std::nullopt;
}

} // namespace metrisk::cli
