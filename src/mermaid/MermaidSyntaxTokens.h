// Token kinds of Mermaid source: shapes, labels, arrows, keywords, diagram types and comments.
#pragma once

#include "common/SyntaxRules.h"

#include <cstdint>
#include <string_view>

namespace tarnquill::MermaidSyntaxTokens {

enum class Token : SyntaxKind { plain, punctuation, label, arrow, keyword, diagramType, comment };

// The kind of every UTF-16 unit of some whole lines, as a number of Token. Takes time in proportion to their
// length.
[[nodiscard]] SyntaxKinds tokens(std::u16string_view lines);

// The same kinds from the table of patterns that defines them, which is slower.
[[nodiscard]] SyntaxKinds tokensByRules(std::u16string_view lines);

[[nodiscard]] std::string_view name(Token token);

} // namespace tarnquill::MermaidSyntaxTokens
