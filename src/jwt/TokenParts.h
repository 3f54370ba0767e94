// A pasted token without what people paste around it, cut at its dots.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarnquill {

// The token without white space, matching quotation marks around it, and an "Authorization:" or "Bearer"
// before it.
[[nodiscard]] std::string cleanedToken(std::string_view pasted);

// The parts of a cleaned token, which they are views into.
class TokenParts {
public:
    static constexpr std::size_t kSigned = 3;    // JWS, RFC 7515
    static constexpr std::size_t kEncrypted = 5; // JWE, RFC 7516

    explicit TokenParts(std::string_view cleaned);

    // How many parts the dots make. Empty parts count.
    [[nodiscard]] std::size_t count() const { return m_count; }

    // One of the first kEncrypted parts; empty when there is none.
    [[nodiscard]] std::string_view operator[](std::size_t index) const { return m_parts.at(index); }

    // What the signature of a signed token is over: header, dot and payload as they stand.
    [[nodiscard]] std::string_view signingInput() const { return m_signingInput; }

private:
    std::array<std::string_view, kEncrypted> m_parts;
    std::size_t m_count = 1;
    std::string_view m_signingInput;
};

} // namespace tarnquill
