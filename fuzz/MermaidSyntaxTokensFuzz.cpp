// The scanner gives every text the kinds that the rule table gives it.
#include "FuzzInput.h"
#include "mermaid/MermaidSyntaxTokens.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnquill;
    const auto text = fuzz::text({data, size});
    fuzz::require(MermaidSyntaxTokens::tokens(text) == MermaidSyntaxTokens::tokensByRules(text));
    return 0;
}
