// The scanner gives every text the kinds that the rule table gives it, and sees nothing outside its range.
#include "FuzzInput.h"
#include "json/JSONSyntaxTokens.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnquill;
    const auto text = fuzz::text({data, size});
    const TextRange all{0, text.size()};
    const auto kinds = JSONSyntaxTokens::tokens(text, all);
    fuzz::require(kinds == JSONSyntaxTokens::tokensByRules(text, all));
    const auto surrounded = u"\"1" + text + u"\":";
    fuzz::require(kinds == JSONSyntaxTokens::tokens(surrounded, {2, text.size()}));
    return 0;
}
