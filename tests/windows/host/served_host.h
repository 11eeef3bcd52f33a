// Any host behind automation objects, as an application would hand them out.
#pragma once

#include <memory>
#include <vector>

#include "host/host.h"
#include "tests/windows/host/served_object.h"

namespace depcalc::testing_support {

/// `application` with all that is reached through it; its openings are events. It also has the
/// members of `more`.
Microsoft::WRL::ComPtr<IDispatch> servedApplication(std::shared_ptr<HostApplication> application,
                                                    std::vector<ServedMember> more = {});

/// A company file; its closing is an event.
Microsoft::WRL::ComPtr<IDispatch> servedCompanyFile(std::shared_ptr<HostCompanyFile> file);

/// How often a palette was handed out.
LONG servedPaletteCount();

}  // namespace depcalc::testing_support
