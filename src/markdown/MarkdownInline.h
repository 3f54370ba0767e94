// Turns the text of one block into HTML: code spans, images, links, bare addresses, strong, emphasis and
// deletion.
//
// The rules are those of a few regular expressions applied one after the other (they stand beside the
// functions that do their work). Hand-written scanners take their place, so that no text, however hostile,
// takes more than linear time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::Markdown {

// Keeps its working memory between calls, so one renderer serves a whole document.
class InlineRenderer {
public:
    // Appends the HTML of the text (UTF-8), which lasts during the call.
    void render(std::string_view text, std::string& output);

private:
    void takeOutCode(std::string_view text);
    void takeOutImages();
    void takeOutLinks();
    void takeOutAddresses();
    void putBack(std::string_view text, std::string& output) const;
    void protect(std::string html);
    [[nodiscard]] std::string plainAlternative(std::string_view text) const;

    std::string m_source; // the block's text when it had to be cleaned
    std::string m_text;   // the block's text, escaped, with placeholders for what is protected
    std::string m_next;   // what the present step makes of it
    std::vector<std::string_view> m_code;
    std::vector<std::string> m_spans;
};

} // namespace tarnquill::Markdown
