#include "cli/arguments.h"

#include <CLI/CLI.hpp>

namespace depcalc {
namespace {

using Reader = std::function<void(const std::string&)>;

/// How the parser is told where a value goes.
class Adding {
 public:
  Adding(CLI::App& command, std::string name, std::string description)
      : command_(&command), name_(std::move(name)), description_(std::move(description)) {}

  template <typename Value>
  CLI::Option* operator()(std::reference_wrapper<Value> value) const {
    return command_->add_option(name_, value.get(), description_);
  }
  CLI::Option* operator()(const Reader& read) const {
    return command_->add_option_function<std::string>(name_, read, description_);
  }

 private:
  CLI::App* command_;
  std::string name_;
  std::string description_;
};

}  // namespace

Argument& Argument::required() {
  option_->required();
  return *this;
}

Argument& Argument::check(const ValueCheck& complaint, const std::vector<std::string>& offered) {
  option_->check(complaint, offered.empty() ? "" : CLI::detail::generate_set(offered));
  return *this;
}

Argument& Argument::oneOf(const std::vector<std::string>& names, LetterCase letters) {
  if (letters == LetterCase::ignored) {
    option_->transform(CLI::IsMember(names, CLI::ignore_case));
  } else {
    option_->check(CLI::IsMember(names));
  }
  return *this;
}

Argument& Argument::range(int lowest, int highest, ToldLimits limits) {
  CLI::Range range(lowest, highest);
  if (limits == ToldLimits::only_when_passed) range.description("");
  option_->check(range);
  return *this;
}

Argument& Argument::needs(const Argument& other) {
  option_->needs(other.option_);
  return *this;
}

Argument& Argument::excludes(const Argument& other) {
  option_->excludes(other.option_);
  return *this;
}

Argument Arguments::positional(const std::string& name, const Destination& destination,
                               const std::string& description) {
  // Anything here keeps the type of the value out of the help.
  return Argument(*std::visit(Adding(*command_, name, description), destination)->option_text(" "));
}

Argument Arguments::option(const std::string& form, const Destination& destination,
                           const std::string& description) {
  const std::size_t space = form.find(' ');
  const Adding adding(*command_, form.substr(0, space), description);
  return Argument(*std::visit(adding, destination)->option_text(form.substr(space + 1)));
}

Argument Arguments::flag(const std::string& name, bool& on, const std::string& description) {
  return Argument(*command_->add_flag(name, on, description));
}

void Arguments::footer(const std::string& text) { command_->footer(text); }

void Arguments::refuse(const std::function<std::optional<Misuse>(const Arguments& given)>& misuse) {
  command_->callback([misuse, given = *this] {
    if (const auto found = misuse(given)) throw CLI::ValidationError(found->option, found->why);
  });
}

bool Arguments::has(const std::string& name) const {
  return command_->get_option(name)->count() > 0;
}

const CLI::App& Arguments::program() const { return *command_->get_parent(); }

}  // namespace depcalc
