// Orders texts as people read them (Unicode Collation Algorithm, UTS #10): by the customs of a language,
// without regard to case, and digits by their numeric value, so that "item 2" comes before "Item 10".
#pragma once

#include <unicode/coll.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill {

// Not to be shared between threads.
class Collation {
public:
    // The locale is an ICU name such as "de_DE"; an empty one is the user's.
    explicit Collation(const std::string& locale = {});

    // Appends the key of a UTF-8 text. Keys compared byte by byte order as their texts do, texts that count
    // as the same have the same key, and no key is the beginning of another.
    void appendKey(std::string_view text, std::string& keys);

private:
    std::unique_ptr<icu::Collator> m_collator;
    std::vector<char16_t> m_text; // the text whose key is being made
};

} // namespace tarnquill
