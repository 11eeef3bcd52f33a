#include "tests/host/postgresql/test_server.h"

#include <variant>

namespace depcalc::testing_support {

PostgresServer& testServer() {
  static const std::unique_ptr<PostgresServer> server = [] {
    auto started = std::make_unique<PostgresServer>();
    initServer(started->address());
    return started;
  }();
  return *server;
}

std::string newAddress(const std::string& user) {
  static int number = 0;
  return testServer().address("postgres", user) + "#Company%20" + std::to_string(++number);
}

PostgresCompanyFile::Options serverOptions() {
  PostgresCompanyFile::Options options;
  options.opening.today = [] { return Date::carrying(2024, 6, 1); };
  options.program = "test";
  options.patience = std::chrono::milliseconds(2'000);
  return options;
}

ServerFile openOf(const PostgresCompanyFile::Opened& answer) {
  if (const auto* trouble = std::get_if<FileTrouble>(&answer)) throw FileTrouble(*trouble);
  return std::get<ServerFile>(answer);
}

std::string troubleOf(const PostgresCompanyFile::Opened& answer) {
  const auto* trouble = std::get_if<FileTrouble>(&answer);
  return trouble != nullptr ? trouble->description() : "";
}

}  // namespace depcalc::testing_support
