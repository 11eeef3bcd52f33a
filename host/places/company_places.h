// Companies wherever they are: in files, and on servers.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/stored_company_file.h"

namespace depcalc {

/// How a company is opened, wherever it is.
struct PlaceOptions {
  OpeningOptions opening;
  std::string program = "depcalc";  ///< what others are told who find a company in use
};

/// For whoever gives up a change that cannot be written.
PlaceOptions placesOn(Date today, bool writable = true);

/// What a new company at this place is called unless its user says otherwise: a file's name without
/// its extension, or the name in an address.
std::string nameOfPlace(const std::string& place);

/// `place` is the path of a company file, or the address of a company on a server.
OpenedCompanyFile openCompany(const std::string& place, const PlaceOptions& options);

/// Makes a company and opens it. What is there already is left alone.
OpenedCompanyFile createCompany(const std::string& place, const CompanyInfo& info,
                                const PlaceOptions& options);

/// Makes a company of all that is in `from` and opens it: all of it, or it does not appear.
OpenedCompanyFile createCopy(const std::string& place, StoredCompanyFile& from,
                             const PlaceOptions& options);

}  // namespace depcalc
