// Records on their way to a server, many a statement.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/postgresql/connection.h"
#include "host/stored/stored_table.h"

namespace depcalc {

/// Gathers the records of a company and sends them before they take too much memory. What was
/// gathered last is sent by `finish`.
class RecordRows final : public RecordSink {
 public:
  RecordRows(Connection& connection, std::int64_t company)
      : connection_(connection), company_(company) {}

  void put(std::int64_t id, std::string_view text, std::uint64_t digest) override;
  void remove(std::int64_t id) override;
  void finish();

 private:
  void sendPut();
  void sendRemoved();

  Connection& connection_;
  std::int64_t company_;
  std::vector<std::int64_t> put_tables_;
  std::vector<std::int64_t> put_indexes_;
  std::vector<std::optional<std::string>> texts_;
  std::vector<std::optional<std::string>> readable_;
  std::vector<std::int64_t> digests_;
  std::size_t bytes_ = 0;
  std::vector<std::int64_t> removed_tables_;
  std::vector<std::int64_t> removed_indexes_;
};

}  // namespace depcalc
