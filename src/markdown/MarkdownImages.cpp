#include "markdown/MarkdownImages.h"

#include "markdown/MarkdownText.h"

#include <unordered_set>

namespace tarnquill::Markdown {

namespace {

constexpr std::string_view kImage = "<img src=\"";

struct Found {
    std::size_t start = std::string_view::npos; // of the address as it is written
    std::size_t end = std::string_view::npos;
};

// No text holds a <, and no address a quotation mark.
Found nextImage(std::string_view html, std::size_t from) {
    const auto image = html.find(kImage, from);
    if (image == std::string_view::npos) {
        return {};
    }
    return {.start = image + kImage.size(), .end = html.find('"', image + kImage.size())};
}

} // namespace

std::vector<std::string> imageAddresses(std::string_view html) {
    std::vector<std::string> addresses;
    std::unordered_set<std::string> known;
    for (auto image = nextImage(html, 0); image.start != std::string_view::npos;
         image = nextImage(html, image.end)) {
        std::string address;
        appendUnescaped(address, html.substr(image.start, image.end - image.start));
        if (known.insert(address).second) {
            addresses.push_back(std::move(address));
        }
    }
    return addresses;
}

std::string withImageAddresses(std::string_view html,
                               const std::map<std::string, std::string>& replacements) {
    std::string output;
    std::size_t copied = 0;
    for (auto image = nextImage(html, 0); image.start != std::string_view::npos;
         image = nextImage(html, image.end)) {
        std::string address;
        appendUnescaped(address, html.substr(image.start, image.end - image.start));
        if (const auto found = replacements.find(address); found != replacements.end()) {
            output += html.substr(copied, image.start - copied);
            appendEscaped(output, found->second, Quotes::escape);
            copied = image.end;
        }
    }
    return output.append(html.substr(copied));
}

} // namespace tarnquill::Markdown
