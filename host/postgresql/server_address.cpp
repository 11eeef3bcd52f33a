#include "host/postgresql/server_address.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "host/file_trouble.h"
#include "values/text.h"
#include "values/utf8.h"

namespace depcalc {
namespace {

constexpr std::array<std::string_view, 2> schemes{"postgresql://", "postgres://"};
constexpr std::string_view form = "postgresql://[user@]host[:port]/database#Company";

[[noreturn]] void refuse(const std::string& why) {
  throw FileTrouble(FileTrouble::Kind::failed, why);
}

[[noreturn]] void refusePassword() {
  refuse(
      "The address has a password in it, which everybody on this computer could read in the list "
      "of processes. Leave it out of the address and put it into the password file (~/.pgpass) or "
      "a service file (~/.pg_service.conf).");
}

[[noreturn]] void refuseForm() {
  refuse("This is not the address of a company on a server. Addresses have the form " +
         std::string(form) + ", with %20 for each space.");
}

std::size_t schemeLength(std::string_view text) {
  for (const std::string_view scheme : schemes) {
    if (text.starts_with(scheme)) return scheme.size();
  }
  return 0;
}

/// The byte that `text` has written as %XX; nothing is -1.
int encodedByte(std::string_view text) {
  unsigned byte = 0;
  if (text.size() < 3) return -1;
  const auto end = std::from_chars(text.data() + 1, text.data() + 3, byte, 16);
  return end.ptr == text.data() + 3 ? static_cast<int>(byte) : -1;
}

std::string decoded(std::string_view text) {
  std::string bytes;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (text.front() != '%') {
      bytes += text.front();
      continue;
    }
    const int byte = encodedByte(text);
    if (byte < 0) refuseForm();
    bytes += static_cast<char>(byte);
    text.remove_prefix(2);
  }
  return bytes;
}

/// What stands for itself in the name of a company, and in a part of the server's address. A colon
/// in a user is left to be refused: what stands behind it is a password.
constexpr std::string_view marks_of_company = "-._~!$&'()*+,;=:@/?";
constexpr std::string_view marks_of_part = "-._~";
constexpr std::string_view marks_of_user = "-._~:";

bool isPlain(char c, std::string_view marks) {
  return static_cast<unsigned char>(c) >= 0x80 || (c >= '0' && c <= '9') ||
         (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         marks.find(c) != std::string_view::npos;
}

std::string encoded(std::string_view name, std::string_view marks) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const char c : name) {
    if (isPlain(c, marks)) {
      text += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    text.append({'%', digits[byte / 16], digits[byte % 16]});
  }
  return text;
}

/// user@host:port,host:port. A port that is no number may be the beginning of a password.
void requireNoPassword(std::string_view authority) {
  const std::size_t at = authority.find('@');
  const std::string_view user = at == std::string_view::npos ? "" : authority.substr(0, at);
  if (user.find(':') != std::string_view::npos) refusePassword();
  if (authority.find('@', at + 1) != std::string_view::npos && !user.empty()) refuseForm();
  std::string_view hosts = at == std::string_view::npos ? authority : authority.substr(at + 1);
  while (!hosts.empty()) {
    std::string_view host = hosts.substr(0, hosts.find(','));
    hosts.remove_prefix(std::min(hosts.size(), host.size() + 1));
    if (host.starts_with('[')) host.remove_prefix(std::min(host.size(), host.find(']')));
    const std::size_t colon = host.find(':');
    if (colon == std::string_view::npos) continue;
    if (host.find_first_not_of("0123456789", colon + 1) != std::string_view::npos) refuseForm();
  }
}

/// name=value&name=value. Whatever name says that its value is secret.
void requireNoSecret(std::string_view options) {
  while (!options.empty()) {
    const std::string_view option = options.substr(0, options.find('&'));
    options.remove_prefix(std::min(options.size(), option.size() + 1));
    const std::string name = toLower(decoded(option.substr(0, option.find('='))));
    const bool secret =
        name.find("password") != std::string::npos || name.find("secret") != std::string::npos;
    if (secret) refusePassword();
  }
}

void requireName(const std::string& company) {
  Utf8Check utf8;
  const bool good = std::all_of(company.begin(), company.end(), [&utf8](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && utf8.accepts(byte);
  });
  if (!good || !utf8.atBoundary() || company.size() > 255) {
    refuse(
        "The name of the company in the address must be a single line of UTF-8 text of up to 255 "
        "bytes.");
  }
}

/// A number of IPv6 is in brackets, to keep its colons from the port's.
std::string encodedHost(const std::string& host) {
  const bool number = host.find_first_of("[,") == std::string::npos &&
                      std::count(host.begin(), host.end(), ':') > 1;
  return number ? '[' + host + ']' : encoded(host, "-._~[]:,");
}

}  // namespace

bool isServerAddress(std::string_view text) { return schemeLength(text) > 0; }

ServerAddress ServerAddress::of(std::string_view text) {
  const std::size_t begin = schemeLength(text);
  if (begin == 0) refuseForm();
  const std::size_t end_of_hosts = std::min(text.find_first_of("/?#", begin), text.size());
  requireNoPassword(text.substr(begin, end_of_hosts - begin));
  const std::size_t hash = std::min(text.find('#'), text.size());
  // Behind the hosts a bare @ can only be the rest of a password with a / or # in it.
  const std::string_view behind = text.substr(end_of_hosts);
  if (behind.substr(0, behind.starts_with('#') ? behind.size() : hash - end_of_hosts).find('@') !=
      std::string_view::npos) {
    refuseForm();
  }
  const std::size_t question = std::min(text.find('?'), hash);
  requireNoSecret(text.substr(std::min(question + 1, hash), hash - std::min(question + 1, hash)));
  ServerAddress address;
  address.server = text.substr(0, hash);
  return address.withCompany(decoded(text.substr(std::min(hash + 1, text.size()))));
}

ServerAddress ServerAddress::ofCompany(std::string_view text) {
  ServerAddress address = of(text);
  if (address.company.empty()) {
    refuse(address.text + " names no company. Add it behind a number sign, as in " + address.text +
           "#Nine%20Oaks. `depcalc server list` lists the companies of a server.");
  }
  return address;
}

ServerAddress ServerAddress::withCompany(std::string_view name) const {
  ServerAddress address{server, std::string(name), server};
  requireName(address.company);
  if (!name.empty()) address.text += '#' + encoded(name, marks_of_company);
  return address;
}

ServerAddress ServerAddress::ofParts(const ServerParts& parts) {
  std::string text(schemes.front());
  if (!parts.user.empty()) text += encoded(parts.user, marks_of_user) + '@';
  text += encodedHost(parts.host);
  if (!parts.port.empty()) text += ':' + encoded(parts.port, marks_of_part);
  return of(text + '/' + encoded(parts.database, marks_of_part));
}

ServerParts ServerAddress::parts() const {
  ServerParts parts;
  std::string_view rest = std::string_view(server).substr(schemeLength(server));
  rest = rest.substr(0, rest.find('?'));
  const std::size_t slash = std::min(rest.find('/'), rest.size());
  std::string_view hosts = rest.substr(0, slash);
  parts.database = decoded(rest.substr(std::min(slash + 1, rest.size())));
  if (const std::size_t at = hosts.find('@'); at != std::string_view::npos) {
    parts.user = decoded(hosts.substr(0, at));
    hosts.remove_prefix(at + 1);
  }
  const std::size_t colon = hosts.find(':', hosts.starts_with('[') ? hosts.find(']') : 0);
  const bool several = hosts.find(',') != std::string_view::npos;
  if (!several && colon < hosts.size()) parts.port = hosts.substr(colon + 1);
  parts.host = decoded(several ? hosts : hosts.substr(0, colon));
  return parts;
}

}  // namespace depcalc
