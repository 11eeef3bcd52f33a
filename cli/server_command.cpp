// depcalc server: what is done at a server beside working on a company.
#include <memory>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/company.h"
#include "host/postgresql/server.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

class ServerCommand final : public Command {
 public:
  [[nodiscard]] std::string_view name() const override { return "server"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Prepare a PostgreSQL server for companies, list them, give rights";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc server init postgresql://office/books
      make room for companies in the database "books"
  depcalc server list postgresql://office/books
      the companies there, and who has which open
  depcalc server grant postgresql://office/books#Workshop anna --edit
      let the role "anna" change one company
)";
  }

  void declare(Arguments& arguments) override {
    arguments.positional("ACTION", action_, "init, list, grant or revoke")
        .required()
        .oneOf({"init", "list", "grant", "revoke"});
    arguments.positional("ADDRESS", address_, "postgresql://[user@]host[:port]/database[#Company]")
        .required();
    arguments.positional("ROLE", role_, "With grant and revoke: a role of the server");
    arguments.flag("--edit", edit_, "With grant: also the right to change companies");
    arguments.footer(
        R"(Rights are to one company, or to all where the address names none. A right replaces the one that
the role had before. Passwords belong into the password file (~/.pgpass) or a service file
(~/.pg_service.conf), never into an address.
Exit status: 0 success, 2 wrong usage, 3 the server cannot be reached or refuses.)");
  }

  ExitStatus run(Surroundings& surroundings) override {
    const bool gives = action_ == "grant" || action_ == "revoke";
    if (gives == role_.empty() || (edit_ && action_ != "grant")) {
      surroundings.errors.write(gives ? "depcalc: server " + action_ +
                                            " needs an ADDRESS and a ROLE\n"
                                      : "depcalc: server " + action_ + " takes an ADDRESS only\n");
      return exit_usage;
    }
    try {
      act(surroundings.out);
      return exit_success;
    } catch (const FileTrouble& trouble) {
      return reportTrouble(trouble, surroundings.errors);
    }
  }

 private:
  void act(Output& out) const {
    if (action_ == "init") {
      out.write(initServer(address_) ? "The server is ready for companies.\n"
                                     : "The server was ready for companies already.\n");
    } else if (action_ == "list") {
      list(out);
    } else {
      const ServerRight right = edit_ ? ServerRight::edit : ServerRight::read;
      giveRight(address_, role_, action_ == "grant" ? right : ServerRight::none);
    }
  }

  void list(Output& out) const {
    for (const ServerCompany& company : companiesOf(address_)) {
      const std::string in_use = company.in_use.empty() ? "" : "  in use" + company.in_use;
      out.write(company.address + printableText(in_use) + '\n');
    }
  }

  std::string action_;
  std::string address_;
  std::string role_;
  bool edit_ = false;
};

}  // namespace

std::unique_ptr<Command> serverCommand() { return std::make_unique<ServerCommand>(); }

}  // namespace depcalc
