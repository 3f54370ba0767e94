#include "shell/PasteAnywhere.h"

#include "common/UnicodeText.h"
#include "shell/AppShellView.h"
#include "shell/ChoicePanel.h"
#include "shell/PastedText.h"
#include "shell/ToolCatalogue.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using ClipboardKinds::Extent;
using ClipboardKinds::Kind;

namespace {

std::u16string_view view(QStringView text) {
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

QString toolFor(Kind kind) {
    switch (kind) {
    case Kind::jwt:
        return u"jwt"_s;
    case Kind::mermaid:
        return u"mermaid"_s;
    case Kind::json:
        return u"json"_s;
    case Kind::time:
        return u"timestamp"_s;
    case Kind::hex:
    case Kind::base64:
    case Kind::percentEncoding:
    case Kind::htmlEntities:
        return u"codec"_s;
    case Kind::csv:
        return u"csv"_s;
    case Kind::markdown:
    case Kind::plainText:
        return u"markdown"_s;
    }
    std::unreachable();
}

} // namespace

PasteAnywhere::PasteAnywhere(AppShellView& window)
    : QObject(&window),
      m_window(window),
      m_panel(new ChoicePanel(tr("Paste Anywhere"), tr("Open the clipboard's text with…"), window)) {
    // Whoever goes to another tool meanwhile does not want the text any more.
    connect(&m_window, &AppShellView::selectedToolChanged, &m_handover, &LatestTask::cancel);
}

void PasteAnywhere::offer() {
    const auto* const held = QGuiApplication::clipboard()->mimeData();
    if (held == nullptr || held->formats().isEmpty()) {
        m_panel->offer({}, tr("There is nothing on the clipboard."));
    } else if (const auto urls = held->urls();
               !urls.isEmpty() && std::ranges::all_of(urls, &QUrl::isLocalFile)) {
        m_panel->offer(
            {{.title = urls.size() == 1 ? tr("Open “%1”").arg(lastPathComponent(urls.first()))
                                        : tr("Open %n files", nullptr, static_cast<int>(urls.size())),
              .detail = tr("Copied from a folder"),
              .symbol = u"folder-open"_s,
              .shortcut = {},
              .choose = [this, urls] { m_window.open(urls); }}});
    } else if (const auto text = held->text(); !text.isEmpty()) {
        offerToolsFor(text);
    } else {
        m_panel->offer({}, held->hasImage() ? tr("The clipboard holds a picture, and tools take text.")
                                            : tr("The clipboard holds no text."));
    }
}

void PasteAnywhere::offerToolsFor(const QString& text) {
    const auto head = view(text).substr(0, ClipboardKinds::kHeadSize);
    const auto fits = ClipboardKinds::fitting(lossyUTF8FromUTF16(head),
                                              head.size() < view(text).size() ? Extent::head : Extent::whole);
    QList<Choice> choices;
    for (const auto& fit : fits) {
        const auto* const tool = m_window.catalogue().tool(toolFor(fit.kind));
        if (tool == nullptr) {
            continue;
        }
        choices.append(
            {.title = tool->name,
             .detail = QString::fromStdString(fit.reason),
             .symbol = tool->symbol,
             .shortcut = {},
             .choose = [this, text, kind = fit.kind, toolID = tool->id] { paste(text, kind, toolID); }});
    }
    const bool isNothingSpecial = fits.size() == 1 && fits.front().kind == Kind::plainText;
    m_panel->offer(choices, fits.empty()       ? tr("The text on the clipboard is blank.")
                            : isNothingSpecial ? tr("This text fits no tool in particular.")
                                               : QString());
}

void PasteAnywhere::paste(const QString& text, Kind kind, const QString& toolID) {
    m_window.selectTool(toolID);
    m_handover.start(
        std::chrono::milliseconds(0),
        [text](const std::stop_token& /*stop*/) { return TextBuffer(view(text)); },
        [this, text, kind, toolID](TextBuffer&& buffer) {
            m_window.catalogue().tool(toolID)->paste(
                {.text = text, .buffer = std::move(buffer), .kind = kind}, m_window.host());
            m_window.focusToolView();
        });
}

} // namespace tarnquill
