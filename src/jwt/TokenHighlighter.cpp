#include "jwt/TokenHighlighter.h"

#include "jwt/TokenSyntax.h"

namespace tarnquill {

namespace {

SyntaxStyle styleOf(SyntaxKind kind) {
    using TokenSyntax::Kind;
    switch (static_cast<Kind>(kind)) {
    case Kind::dot:
        return {.color = ColorRole::text, .bold = true};
    case Kind::header:
        return {.color = ColorRole::segmentHeader};
    case Kind::payload:
        return {.color = ColorRole::segmentPayload};
    case Kind::signature:
        return {.color = ColorRole::segmentSignature};
    case Kind::other:
        return {.color = ColorRole::muted};
    case Kind::plain:
        break;
    }
    return {};
}

} // namespace

std::unique_ptr<SyntaxHighlighter> makeTokenHighlighter() {
    return std::make_unique<SyntaxHighlighter>(TokenSyntax::kinds, styleOf, SyntaxHighlighter::Scope::text);
}

} // namespace tarnquill
