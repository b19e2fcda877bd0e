// SPDX-License-Identifier: Apache-2.0
/// \file
/// \brief `URISyntaxError`, thrown for bad URI text and bad components.
#ifndef ORV_LIBORVXX_NET_URI_SYNTAX_ERROR_H
#define ORV_LIBORVXX_NET_URI_SYNTAX_ERROR_H

#include "orv/liborvxx/base/error.h"
#include "orv/liborvxx/base/platform.h"
#include "orv/liborvxx/text/ustring.h"

#include <memory>
#include <string>

namespace orv::net {

/// A text is no URI reference, or a component cannot be part of one. Copies share their texts, so
/// copying does not fail.
class ORVXX_API URISyntaxError : public RuntimeError {
public:
    /// \p index is the unit of \p input that is wrong, or -1 for none. What `what()` gives is the
    /// reason, " at index " and the index if there is one, ": " and the input, in the default
    /// character set. \exception std::invalid_argument "index: out of range" if \p index is below
    /// -1
    URISyntaxError(ustring input, ustring reason, int index);
    /// Without an index.
    URISyntaxError(ustring input, ustring reason);

    URISyntaxError(const URISyntaxError&) noexcept = default;
    URISyntaxError& operator=(const URISyntaxError&) noexcept = default;
    ~URISyntaxError() override;

    /// The text, or the component alone if one was bad.
    const ustring& getInput() const noexcept { return *input_; }
    const ustring& getReason() const noexcept { return *reason_; }
    /// The unit that is wrong, or -1.
    int getIndex() const noexcept { return index_; }

    const char* what() const noexcept override;

private:
    ORVXX_LOCAL static std::string constructMessage(const ustring& input, const ustring& reason,
                                                    int index);

    std::shared_ptr<const std::string> message_;
    std::shared_ptr<const ustring> input_;
    std::shared_ptr<const ustring> reason_;
    int index_;
};

} // namespace orv::net

#endif
