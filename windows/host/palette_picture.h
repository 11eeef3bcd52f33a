// The picture whose colours serve as palette.
#pragma once

#include <memory>

#include "host/host.h"
#include "windows/host/owned_variant.h"

namespace depcalc {

/// The colours of what a host answered: those of a picture object's palette or, where it has none,
/// of its bitmap's colour table; or an array of colours, 0x00BBGGRR each, from a host that has no
/// pictures. Nothing, and a picture that names no colours, is a picture without any. An answer of
/// another type: error 13.
std::shared_ptr<const HostPicture> pictureIn(const OwnedVariant& answer);

}  // namespace depcalc
