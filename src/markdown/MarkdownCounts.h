// How long a document is, as its writer counts.
#pragma once

#include <cstddef>
#include <string_view>

namespace tarnquill::Markdown {

struct Counts {
    std::size_t words = 0;      // runs without white space that hold a word character
    std::size_t characters = 0; // code points; line breaks count as one

    friend bool operator==(const Counts&, const Counts&) = default;
};

[[nodiscard]] Counts counts(std::string_view source);

} // namespace tarnquill::Markdown
