// The arguments of a command, described once: what is read, where it goes and what is wrong with it.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace metrisk::cli {

/// Raised where arguments that are each right do not fit together; the text is shown and the exit status
/// is that of wrong usage.
struct WrongUsage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What is wrong with the text of an argument; empty if nothing is.
using Check = std::function<std::string(const std::string&)>;

/// One argument; a handle, to be copied.
class Argument {
  public:
    explicit Argument(CLI::Option* option) : option_(option) {}

    const Argument& shownAs(const std::string& placeholder) const;
    const Argument& required(bool isRequired = true) const;
    const Argument& check(const Check& wrong) const;
    const Argument& oneOf(const std::vector<std::string>& words) const;
    /// In letters of any case.
    const Argument& oneOfAnyCase(const std::vector<std::string>& words) const;
    /// The name of a file.
    const Argument& isPath() const;
    const Argument& existingFolder() const;
    const Argument& separatedBy(char delimiter) const;
    /// Of a list: one value behind each mention of its name.
    const Argument& oneEach() const;
    const Argument& excludes(const Argument& other) const;
    const Argument& needs(const Argument& other) const;
    bool given() const;
    /// "--json".
    std::string name() const;
    /// The heading below which help shows it.
    const Argument& under(const std::string& heading) const;

  private:
    CLI::Option* option_;
};

/// The arguments of a program or a command. A target must stay where it is until the command has run.
class Arguments {
  public:
    explicit Arguments(CLI::App* app);

    Arguments command(const char* name, const char* about) const;
    /// No more than one of these may be given, and one must be if that is required.
    void alternatives(const std::vector<Argument>& all, bool required) const;
    /// One of the commands must be given.
    void needsCommand() const;

    Argument text(const char* name, std::string& target, const char* about) const;
    Argument text(const char* name, std::optional<std::string>& target, const char* about) const;
    Argument texts(const char* name, std::vector<std::string>& target, const char* about) const;
    Argument number(const char* name, double& target, const char* about) const;
    Argument number(const char* name, std::optional<double>& target, const char* about) const;
    Argument percent(const char* name, double& target, const char* about) const;
    Argument percent(const char* name, std::optional<double>& target, const char* about) const;
    Argument ratio(const char* name, double& target, const char* about) const;
    Argument count(const char* name, unsigned& target, const char* about) const;
    Argument count(const char* name, std::size_t& target, const char* about, std::size_t least,
                   std::size_t most) const;
    /// `take` keeps the text or says what is wrong with it.
    Argument read(const char* name, const Check& take, const char* about) const;
    Argument flag(const char* name, bool& target, const char* about) const;

    /// What the help page shows at its end, each a command line without the program's name.
    void examples(const std::vector<std::string>& lines) const;

    /// What follows once the arguments have been read; may raise WrongUsage.
    void then(std::function<void()> work) const;

  private:
    /// Raises WrongUsage.
    using Rule = std::function<void()>;

    CLI::App* app_;
    std::shared_ptr<std::vector<Rule>> rules_; // kept before what follows
};

/// The program with its commands, and the reading of a command line.
class Program {
  public:
    /// Tells about itself, its version, and at the end of each help page.
    Program(const char* name, const char* about, const char* version, const char* footer);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    Arguments arguments() const;

    /// Reads the command line and does what follows; "help COMMAND" is "COMMAND --help". Where that was to
    /// tell something, or is wrong, it has been told, and the exit status is given; otherwise none.
    std::optional<int> read(int argc, char** argv);

    /// Whether the command that was read has such a flag, and it was given.
    bool given(const char* flag) const;

  private:
    std::optional<int> helpOf(const std::vector<std::string>& commands);

    std::unique_ptr<CLI::App> app_;
};

} // namespace metrisk::cli
