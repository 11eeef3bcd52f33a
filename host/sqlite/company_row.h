// The row of a company file that says what company it is, and covers all others.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/company_info.h"
#include "host/sqlite/database.h"

namespace depcalc {

inline constexpr std::string_view single_user = "single-user";
inline constexpr std::string_view multi_user = "multi-user";

/// The digest over the company's own data and a line for each of its tables.
std::uint64_t companyDigest(const CompanyInfo& info, std::string_view table_lines);

/// Puts the row into its place.
void putCompany(Database& database, const CompanyInfo& info, std::uint64_t digest);

/// Makes the content of a new company file in an empty database.
void writeNewCompany(Database& database, const CompanyInfo& info);

}  // namespace depcalc
