#include "shell/tools/JWTTool.h"

#include "jwt/JWTToolView.h"
#include "shell/PastedText.h"
#include "shell/ToolHost.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

JWTTool::JWTTool() : Tool(u"jwt"_s, u"JWT"_s, u"key.horizontal"_s, ToolCategory::encoding) {}

ToolView* JWTTool::makeView(ToolHost& host) const {
    return new JWTToolView(host.jwt());
}

void JWTTool::paste(const PastedText& pasted, ToolHost& host) const {
    host.jwt().replaceToken(pasted.buffer);
}

} // namespace tarnquill
