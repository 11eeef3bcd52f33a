#include "host/postgresql/record_rows.h"

#include "host/file_trouble.h"
#include "host/postgresql/server_text.h"

namespace depcalc {
namespace {

constexpr std::size_t most_bytes_at_once = 4'194'304;

/// No company file has a longer text, and a company may become one.
constexpr std::size_t most_text_bytes = 4'194'304;

}  // namespace

void RecordRows::put(std::int64_t id, std::string_view text, std::uint64_t digest) {
  if (text.size() > most_text_bytes) {
    throw FileTrouble(FileTrouble::Kind::failed, "A company cannot hold text of more than " +
                                                     std::to_string(most_text_bytes) + " bytes.");
  }
  put_tables_.push_back(id / records_per_table);
  put_indexes_.push_back(id % records_per_table);
  texts_.emplace_back(serverText(text));
  readable_.push_back(readableText(*texts_.back()));
  digests_.push_back(static_cast<std::int64_t>(digest));
  bytes_ += text.size();
  if (bytes_ >= most_bytes_at_once) sendPut();
}

void RecordRows::remove(std::int64_t id) {
  removed_tables_.push_back(id / records_per_table);
  removed_indexes_.push_back(id % records_per_table);
}

void RecordRows::finish() {
  if (!put_tables_.empty()) sendPut();
  if (!removed_tables_.empty()) sendRemoved();
}

void RecordRows::sendPut() {
  Parameters parameters;
  parameters.integer(company_).integers(put_tables_).integers(put_indexes_).texts(texts_);
  parameters.texts(readable_).integers(digests_);
  connection_.run(
      "INSERT INTO depcalc.record (company_id, table_id, index, fields, readable, digest)"
      " SELECT $1, n.t, n.i, n.f, n.r::json, n.d FROM unnest($2, $3, $4, $5, $6)"
      " AS n (t, i, f, r, d) ON CONFLICT (company_id, table_id, index) DO UPDATE"
      " SET fields = excluded.fields, readable = excluded.readable, digest = excluded.digest",
      parameters);
  put_tables_.clear();
  put_indexes_.clear();
  texts_.clear();
  readable_.clear();
  digests_.clear();
  bytes_ = 0;
}

void RecordRows::sendRemoved() {
  connection_.run(
      "DELETE FROM depcalc.record AS r USING unnest($2, $3) AS gone (t, i) WHERE r.company_id = $1"
      " AND r.table_id = gone.t::smallint AND r.index = gone.i::smallint",
      Parameters().integer(company_).integers(removed_tables_).integers(removed_indexes_));
  removed_tables_.clear();
  removed_indexes_.clear();
}

}  // namespace depcalc
