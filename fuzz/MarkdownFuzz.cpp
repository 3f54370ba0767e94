// Whatever the document, the HTML holds the converter's own tags only, their attributes hold what they may,
// and what reads it back finds the same.
#include "FuzzInput.h"
#include "common/Regex.h"
#include "common/UnicodeText.h"
#include "markdown/Markdown.h"
#include "markdown/MarkdownAddress.h"
#include "markdown/MarkdownImages.h"
#include "markdown/MarkdownOutline.h"

#include <algorithm>
#include <string>

using namespace tarnquill;

namespace {

// The lines of a block are groups 1 and 2, the address of a link is group 3.
const Regex& tag() {
    static const Regex kTag(
        uR"~(</(?:h[1-6]|p|pre|code|blockquote|table|thead|tbody|tr|t[hd]|[uo]l|li|strong|em|del|a)>)~"
        uR"~(|<(?:table|thead|tbody|[uo]l|strong|em|del|code)>)~"
        uR"~(|<(?:h[1-6r]|p|pre|blockquote|tr|li(?: class="task-list-item")?))~"
        uR"~( data-line="([0-9]+)" data-end="([0-9]+)">)~"
        uR"~(|<t[hd](?: style="text-align:(?:left|center|right)")?>)~"
        uR"~(|<input type="checkbox" disabled(?: checked)?>)~"
        uR"~(|<code class="language-[^"<>]+">)~"
        uR"~(|<img (?:src="[^"<>]*" )?alt="[^"<>]*">)~"
        uR"~(|<a href="([^"<>]*)">)~");
    return kTag;
}

std::string group(const RegexMatches& matches, const std::u16string& text, int number) {
    const auto range = matches.group(number);
    return range ? *utf8FromUTF16(std::u16string_view(text).substr(range->location, range->length)) : "";
}

void checkTags(const std::u16string& html, std::size_t lineCount) {
    std::size_t end = 0;
    const auto requireText = [&](std::size_t next) {
        const auto text = std::u16string_view(html).substr(end, next - end);
        fuzz::require(text.find_first_of(u"<>") == std::u16string_view::npos);
    };
    for (auto matches = tag().matches(html); matches.next();) {
        requireText(matches.range().location);
        end = matches.range().end();
        if (const auto first = group(matches, html, 1); !first.empty()) {
            const auto last = std::stoul(group(matches, html, 2));
            fuzz::require(std::stoul(first) >= 1 && std::stoul(first) <= last && last <= lineCount);
        }
        // A bare address is a link whatever it goes on with.
        const auto address = group(matches, html, 3);
        fuzz::require(address.starts_with("http") ||
                      Markdown::isAllowedAddress(address, Markdown::AddressUse::link));
    }
    requireText(html.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::text({data, size});
    const auto html = Markdown::html(lossyUTF8FromUTF16(text));
    const auto lineCount = static_cast<std::size_t>(std::ranges::count_if(
                               text, [](char16_t unit) { return unit == u'\n' || unit == u'\r'; })) +
                           1;
    checkTags(*utf16FromUTF8(html), lineCount);
    for (const auto& address : Markdown::imageAddresses(html)) {
        fuzz::require(Markdown::isAllowedAddress(address, Markdown::AddressUse::image));
    }
    const auto bare = Markdown::withoutLineAttributes(html);
    fuzz::require(Markdown::withoutLineAttributes(bare) == bare && Markdown::outline(bare).empty());
    return 0;
}
