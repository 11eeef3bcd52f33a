// Data tables taken over from one host to another, record by record.
#pragma once

#include <cstdint>

#include "host/host.h"
#include "host/record_values.h"
#include "host/stored_company_file.h"

namespace depcalc {

/// Adds record `index`, which is not there.
void putRecord(HostTable& table, std::int16_t index, const RecordValues::Entries& values);

/// Makes record `index` of `to` what it is in `from`, also where it is in one of them only.
void copyRecord(HostTable& from, HostTable& to, std::int32_t index);

/// Makes all data tables and the company's own data of `to` what they are in `from`, in one unit of
/// work: all of it or nothing. An error reaches the caller.
void copyCompany(StoredCompanyFile& from, StoredCompanyFile& to);

}  // namespace depcalc
