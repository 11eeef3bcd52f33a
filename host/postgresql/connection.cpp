#include "host/postgresql/connection.h"

#include <charconv>
#include <cstdlib>
#include <new>
#include <utility>

#include "host/postgresql/server_messages.h"

namespace depcalc {
namespace {

// The numbers by which the protocol knows types, and the form of an array in it.
constexpr unsigned type_bigint = 20;
constexpr unsigned type_text = 25;
constexpr unsigned type_bigints = 1016;
constexpr unsigned type_texts = 1009;

void appendBigEndian(std::string& bytes, std::uint64_t value, int size) {
  for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) {
    bytes += static_cast<char>(value >> static_cast<unsigned>(shift) & 0xFFU);
  }
}

/// What stands before the elements of an array of one dimension, from 1.
std::string arrayHeader(std::size_t count, unsigned element_type, bool has_null) {
  std::string bytes;
  appendBigEndian(bytes, 1, 4);
  appendBigEndian(bytes, has_null ? 1 : 0, 4);
  appendBigEndian(bytes, element_type, 4);
  appendBigEndian(bytes, count, 4);
  appendBigEndian(bytes, 1, 4);
  return bytes;
}

void appendElement(std::string& bytes, std::string_view element) {
  appendBigEndian(bytes, element.size(), 4);
  bytes += element;
}

}  // namespace

// --- Parameters ----------------------------------------------------------------------------------

Parameters& Parameters::add(unsigned type, std::string bytes) {
  types_.push_back(type);
  bytes_.push_back(std::move(bytes));
  return *this;
}

Parameters& Parameters::text(std::string_view value) { return add(type_text, std::string(value)); }

Parameters& Parameters::integer(std::int64_t value) {
  std::string bytes;
  appendBigEndian(bytes, static_cast<std::uint64_t>(value), 8);
  return add(type_bigint, std::move(bytes));
}

Parameters& Parameters::integers(const std::vector<std::int64_t>& values) {
  std::string bytes = arrayHeader(values.size(), type_bigint, false);
  for (const std::int64_t value : values) {
    appendBigEndian(bytes, 8, 4);
    appendBigEndian(bytes, static_cast<std::uint64_t>(value), 8);
  }
  return add(type_bigints, std::move(bytes));
}

Parameters& Parameters::texts(const std::vector<std::string_view>& values) {
  std::string bytes = arrayHeader(values.size(), type_text, false);
  for (const std::string_view value : values) appendElement(bytes, value);
  return add(type_texts, std::move(bytes));
}

Parameters& Parameters::texts(const std::vector<std::optional<std::string>>& values) {
  std::string bytes = arrayHeader(values.size(), type_text, true);
  for (const auto& value : values) {
    if (value) {
      appendElement(bytes, *value);
    } else {
      appendBigEndian(bytes, 0xFFFF'FFFF, 4);
    }
  }
  return add(type_texts, std::move(bytes));
}

// --- Rows ----------------------------------------------------------------------------------------

bool Rows::isNull(int row, int column) const {
  return libpq_->isNull(result_.get(), row, column) != 0;
}

std::string_view Rows::text(int row, int column) const {
  return {libpq_->value(result_.get(), row, column),
          static_cast<std::size_t>(libpq_->length(result_.get(), row, column))};
}

std::int64_t Rows::integer(int row, int column) const {
  const std::string_view digits = text(row, column);
  std::int64_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

// --- Connecting ----------------------------------------------------------------------------------

namespace {

/// The options of a connection, as libpq takes them.
class ConnectionOptions {
 public:
  void set(std::string name, std::string value) {
    names_.push_back(std::move(name));
    values_.push_back(std::move(value));
  }
  [[nodiscard]] bool has(std::string_view name) const {
    for (const std::string& known : names_) {
      if (known == name) return true;
    }
    return false;
  }

  PGconn* connect(const Libpq& libpq) const {
    std::vector<const char*> names;
    std::vector<const char*> values;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      names.push_back(names_[i].c_str());
      values.push_back(values_[i].c_str());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    return libpq.connect(names.data(), values.data(), 0);
  }

 private:
  std::vector<std::string> names_;
  std::vector<std::string> values_;
};

/// What libpq reads out of the address. Why it cannot is not repeated: there may be a password in
/// it.
ConnectionOptions optionsOf(const Libpq& libpq, const ServerAddress& address) {
  char* reason = nullptr;
  PQconninfoOption* const options = libpq.parse(address.server.c_str(), &reason);
  if (reason != nullptr) libpq.freeMemory(reason);
  if (options == nullptr) {
    throw ServerTrouble(FileTrouble::Kind::failed,
                        "The address of the server cannot be read. Addresses have the form "
                        "postgresql://[user@]host[:port]/database#Company.",
                        "");
  }
  ConnectionOptions read;
  for (const PQconninfoOption* option = options; option->keyword != nullptr; ++option) {
    if (option->val != nullptr) read.set(option->keyword, option->val);
  }
  libpq.freeOptions(options);
  return read;
}

/// A server that does not answer is given up in seconds, and one that has gone away is noticed.
void addDefaults(ConnectionOptions& options, const std::string& program) {
  const auto setUnlessGiven = [&options](const char* name, const char* value) {
    if (!options.has(name)) options.set(name, value);
  };
  if (std::getenv("PGCONNECT_TIMEOUT") == nullptr) setUnlessGiven("connect_timeout", "10");
  setUnlessGiven("keepalives_idle", "30");
  setUnlessGiven("keepalives_interval", "10");
  setUnlessGiven("keepalives_count", "3");
  setUnlessGiven("tcp_user_timeout", "60000");
  setUnlessGiven("application_name", program.c_str());
  options.set("client_encoding", "UTF8");
}

void ignoreNotice(void* /*nobody*/, const char* /*text*/) {}

}  // namespace

Connection::Connection(const Libpq& libpq, const ServerAddress& address, const std::string& program)
    : libpq_(&libpq), shown_(address.text), handle_(nullptr, {libpq.finish}) {
  ConnectionOptions options = optionsOf(libpq, address);
  addDefaults(options, program);
  handle_.reset(options.connect(libpq));
  if (handle_ == nullptr) throw std::bad_alloc();
  if (libpq_->status(handle_.get()) != CONNECTION_OK) failConnecting();
  libpq_->setNoticeProcessor(handle_.get(), ignoreNotice, nullptr);
}

void Connection::failConnecting() const {
  if (libpq_->needsPassword(handle_.get()) != 0) throw passwordWanted(shown_);
  throw cannotConnect(shown_, libpq_->errorMessage(handle_.get()));
}

// --- Statements ----------------------------------------------------------------------------------

Rows Connection::run(const char* sql, const Parameters& parameters) {
  std::vector<const char*> values;
  std::vector<int> lengths;
  for (const std::string& bytes : parameters.bytes_) {
    values.push_back(bytes.data());
    lengths.push_back(static_cast<int>(bytes.size()));
  }
  const std::vector<int> binary(values.size(), 1);
  PGresult* const result =
      libpq_->execute(handle_.get(), sql, static_cast<int>(values.size()), parameters.types_.data(),
                      values.data(), lengths.data(), binary.data(), 0);
  Rows rows(*libpq_, result);
  const ExecStatusType status = libpq_->resultStatus(result);
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) fail(result);
  return rows;
}

void Connection::attempt(const char* sql) noexcept {
  libpq_->clear(libpq_->execute(handle_.get(), sql, 0, nullptr, nullptr, nullptr, nullptr, 0));
}

void Connection::fail(const PGresult* result) {
  const auto field = [&](int name) {
    const char* const text = result != nullptr ? libpq_->errorField(result, name) : nullptr;
    return std::string(text != nullptr ? text : "");
  };
  const std::string code = field(PG_DIAG_SQLSTATE);
  // An error without a code is not the server's.
  const bool gone = libpq_->status(handle_.get()) != CONNECTION_OK || endsSession(code) ||
                    (result != nullptr && code.empty());
  // Without an answer nothing is known, and what comes next must not be taken for it.
  lost_ = lost_ || gone || result == nullptr;
  if (gone) {
    const std::string why = field(PG_DIAG_MESSAGE_PRIMARY);
    throw connectionLost(shown_, why.empty() ? libpq_->errorMessage(handle_.get()) : why);
  }
  if (result == nullptr) throw std::bad_alloc();
  throw refusedByServer(shown_, code, field(PG_DIAG_MESSAGE_PRIMARY));
}

}  // namespace depcalc
