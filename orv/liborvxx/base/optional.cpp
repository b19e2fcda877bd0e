// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `BadOptionalAccess`.
#include "orv/liborvxx/base/optional.h"

namespace orv {

BadOptionalAccess::~BadOptionalAccess() = default;

const char* BadOptionalAccess::what() const noexcept {
    return "bad optional access";
}

} // namespace orv
