#include "shell/tools/CodecTool.h"

#include "codec/CodecToolView.h"
#include "shell/PastedText.h"
#include "shell/ToolHost.h"

#include <QUrl>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

Codec::Scheme schemeOf(ClipboardKinds::Kind kind) {
    switch (kind) {
    case ClipboardKinds::Kind::hex:
        return Codec::Scheme::hex;
    case ClipboardKinds::Kind::percentEncoding:
        return Codec::Scheme::url;
    case ClipboardKinds::Kind::htmlEntities:
        return Codec::Scheme::html;
    default:
        return Codec::Scheme::base64;
    }
}

} // namespace

CodecTool::CodecTool()
    : Tool(u"codec"_s, u"Encode / Decode"_s, u"arrow.left.arrow.right"_s, ToolCategory::encoding) {}

ToolView* CodecTool::makeView(ToolHost& host) const {
    return new CodecToolView(host.codec());
}

void CodecTool::open(const QUrl& url, ToolHost& host) const {
    host.codec().open(url.toLocalFile());
}

void CodecTool::paste(const PastedText& pasted, ToolHost& host) const {
    host.codec().setScheme(schemeOf(pasted.kind));
    host.codec().setDirection(Codec::Direction::decode);
    host.codec().replaceInput(pasted.buffer);
}

} // namespace tarnquill
