#include "mermaid/MermaidTemplates.h"

#include "mermaid/MermaidVocabulary.h"

#include <gtest/gtest.h>

#include <set>

namespace tarnquill {

TEST(MermaidTemplates, BeginADiagramOfEveryKindOnce) {
    std::multiset<std::u16string_view> types;
    for (const auto& starter : MermaidTemplates::all()) {
        types.insert(starter.source.substr(0, starter.source.find_first_of(u" \n")));
    }
    const auto& known = MermaidVocabulary::kDiagramTypes;
    EXPECT_EQ(types, std::multiset<std::u16string_view>(known.begin(), known.end()));
}

} // namespace tarnquill
