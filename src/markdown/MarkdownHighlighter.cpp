#include "markdown/MarkdownHighlighter.h"

#include "markdown/MarkdownSyntaxTokens.h"

namespace tarnquill {
namespace {

using MarkdownSyntaxTokens::Colour;
using MarkdownSyntaxTokens::Font;

ColorRole roleOf(Colour colour) {
    switch (colour) {
    case Colour::secondary:
        return ColorRole::muted;
    case Colour::tertiary:
        return ColorRole::faint;
    case Colour::accent:
        return ColorRole::accent;
    case Colour::link:
        return ColorRole::link;
    case Colour::label:
        break;
    }
    return ColorRole::text;
}

// The editor's own face is monospaced, so code keeps it.
SyntaxStyle styleOf(SyntaxKind kind) {
    const auto style = MarkdownSyntaxTokens::styleOf(kind);
    return {.color = roleOf(style.colour), .bold = style.font == Font::heading};
}

} // namespace

std::unique_ptr<SyntaxHighlighter> makeMarkdownHighlighter() {
    return std::make_unique<SyntaxHighlighter>(MarkdownSyntaxTokens::tokens, styleOf);
}

} // namespace tarnquill
