// What a company file holds, as far as it can be undone.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/company_info.h"
#include "host/host.h"

namespace depcalc {

/// A data table whose records are followed.
struct FollowedTable {
  std::string name;
  /// Record 0 sums the others up and is refreshed whenever a program likes: it comes along with
  /// what is undone, and is no change of its own.
  bool first_is_summary = false;

  [[nodiscard]] bool counts(std::int32_t index) const { return index > 0 || !first_is_summary; }
};

/// How a company's own data are read and written.
struct CompanyInfoAccess {
  std::function<CompanyInfo()> read;
  /// Part of the unit of work that is open.
  std::function<void(const CompanyInfo&)> write;
};

/// The text of record `index`, whether or not the table has it at hand. Not found: error 9.
std::string recordTextIn(HostTable& table, std::int16_t index);

using RecordTexts = std::map<std::int16_t, std::string>;

struct Content {
  CompanyInfo info;
  std::vector<RecordTexts> tables;  ///< by the places of the followed tables
};

/// All there is. Errors of the host reach the caller.
Content contentOf(HostCompanyFile& file, const CompanyInfo& info,
                  const std::vector<FollowedTable>& tables);

/// The share of a record, or of the company's own data, in the digest of a state, which is the sum
/// of all: records that come and go change it by theirs.
std::uint64_t digestOfRecord(std::size_t table, std::int16_t index, std::string_view text);
std::uint64_t digestOfInfo(const CompanyInfo& info);

/// The digest of a company's state: the same where all that counts is the same.
std::uint64_t digestOfState(HostCompanyFile& file, const CompanyInfo& info,
                            const std::vector<FollowedTable>& tables);
std::uint64_t digestOfState(const Content& content, const std::vector<FollowedTable>& tables);

}  // namespace depcalc
