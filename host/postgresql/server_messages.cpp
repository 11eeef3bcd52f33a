#include "host/postgresql/server_messages.h"

#include <algorithm>
#include <array>

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

/// The first line, without what libpq adds to it.
std::string inOneLine(std::string_view why) {
  std::string text(why.substr(0, why.find('\n')));
  for (const std::string_view before : {"FATAL:  ", "ERROR:  "}) {
    if (const std::size_t at = text.find(before); at != std::string::npos) {
      text.erase(at, before.size());
    }
  }
  while (!text.empty() && (text.back() == '.' || text.back() == ' ')) text.pop_back();
  return text.empty() ? "it gave no reason" : text;
}

bool isOf(std::string_view code, std::string_view group) { return code.starts_with(group); }

struct Answer {
  Kind kind;
  std::string text;
};

Answer answerTo(std::string_view code, const std::string& why) {
  if (code == "53100") {
    return {Kind::disk_full,
            " cannot be written: the server's disk is full. Nothing was changed; have room made "
            "there and try again."};
  }
  if (code == "42501") {
    return {Kind::read_only, " refused: " + why +
                                 ". Nothing was changed. Whoever looks after the server gives "
                                 "rights with `depcalc server grant`."};
  }
  if (code == "25006") {
    return {Kind::read_only,
            " can only be read: the server is a replica, or has been made read-only. Nothing was "
            "changed. Use the address of the primary server."};
  }
  if (code == "57014") {
    return {Kind::failed, " did not finish: " + why + ". Nothing was changed; try again."};
  }
  if (isOf(code, "40") || code == "55P03") {
    return {Kind::failed,
            " is being changed by somebody else: " + why + ". Nothing was changed; try again."};
  }
  if (isOf(code, "53")) {
    return {Kind::failed, " cannot be used: the server is short of something (" + why +
                              "). Nothing was changed; try again later."};
  }
  return {Kind::failed, " cannot be used: the server said: " + why + "."};
}

}  // namespace

bool endsSession(std::string_view code) {
  // An administrator, a crash, a server that stops, and sessions idle for too long.
  constexpr std::array<std::string_view, 6> codes{"57P01", "57P02", "57P03",
                                                  "57P04", "57P05", "25P03"};
  return isOf(code, "08") || std::find(codes.begin(), codes.end(), code) != codes.end();
}

ServerTrouble cannotConnect(const std::string& address, std::string_view why) {
  return {Kind::failed,
          address + " cannot be reached: " + inOneLine(why) +
              ". Check the address, the network and whether the server runs.",
          ""};
}

ServerTrouble passwordWanted(const std::string& address) {
  return {Kind::failed,
          address +
              " wants a password. Put it into the password file (~/.pgpass, readable by you "
              "alone) or a service file (~/.pg_service.conf).",
          ""};
}

ServerTrouble connectionLost(const std::string& address, std::string_view why) {
  return {Kind::failed, "The connection to " + address + " was lost: " + inOneLine(why) + ".", ""};
}

ServerTrouble refusedByServer(const std::string& address, const std::string& code,
                              std::string_view why) {
  Answer answer = answerTo(code, inOneLine(why));
  return {answer.kind, address + answer.text, code};
}

}  // namespace depcalc
