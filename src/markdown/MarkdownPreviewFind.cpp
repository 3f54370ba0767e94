#include "markdown/MarkdownPreviewFind.h"

#include "chrome/FindBar.h"
#include "chrome/SearchBar.h"
#include "common/SearchMatches.h"
#include "markdown/MarkdownPreviewView.h"
#include "markdown/MarkdownScrollSync.h"

#include <QJsonArray>
#include <QPointer>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

// The web view marks its matches without telling where they are. This selects the one of that number, found
// by the same rules: case and accents do not matter, and no match runs from one block into the next.
constexpr auto kSelectMatch = R"(
// The view scrolls to its match a little later; in a page that is not seen there are no frames.
await Promise.race([
    new Promise(done => requestAnimationFrame(() => requestAnimationFrame(() => requestAnimationFrame(done)))),
    new Promise(done => setTimeout(done, 100))
]);
const fold = text => text.replace(/[^\0-\x7f]/g, unit => unit.normalize('NFD')[0]).toLowerCase();
const plain = text => fold(text.replace(/\s/g, ' '));
const walker = document.createTreeWalker(content, NodeFilter.SHOW_TEXT);
const nodes = [];
let text = '';
let block = null;
while (walker.nextNode()) {
    const node = walker.currentNode;
    const around = node.parentElement.closest('[data-line], th, td');
    if (around !== block) {
        text += '\u0001';
        block = around;
    }
    nodes.push({ node, start: text.length });
    text += node.data;
}
const searched = plain(text);
const wanted = plain(query);
let start = -1;
for (let count = 0; count <= index; ++count) {
    const next = searched.indexOf(wanted, start < 0 ? 0 : start + wanted.length);
    if (next < 0) {
        break;
    }
    start = next;
}
if (start >= 0) {
    const place = position => {
        const { node, start } = nodes.findLast?.(each => each.start <= position)
            ?? nodes.filter(each => each.start <= position).at(-1);
        return [node, Math.min(position - start, node.length)];
    };
    const end = place(start + wanted.length - 1);
    window.getSelection().setBaseAndExtent(...place(start), end[0], end[1] + 1);
}
return findMatchTop()
)";

} // namespace

MarkdownPreviewFind::MarkdownPreviewFind(MarkdownPreviewView& preview, FindBar& bar, MarkdownScrollSync& sync)
    : m_preview(preview), m_bar(bar), m_sync(sync) {
    auto& field = bar.search();
    connect(&field, &SearchBar::textChanged, this, &MarkdownPreviewFind::next);
    connect(&field, &SearchBar::nextRequested, this, &MarkdownPreviewFind::next);
    connect(&field, &SearchBar::previousRequested, this, &MarkdownPreviewFind::previous);
    connect(&bar, &FindBar::openChanged, this, [this](bool isOpen) {
        if (isOpen) {
            next();
        } else {
            clear();
            m_preview.setFocus();
        }
    });
}

void MarkdownPreviewFind::find(WebPage::FindDirection direction) {
    const auto query = m_bar.isOpen() ? m_bar.search().text() : QString();
    if (query.isEmpty()) {
        clear();
        return;
    }
    // The scroll to the match is the page's own, which it has to know before.
    m_preview.call(u"holdOwnScroll();"_s, {}, [self = QPointer(this), query, direction](const auto&) {
        if (self) {
            self->m_preview.find(query, direction, [self](int count, int active) {
                if (self) {
                    self->show(count, active);
                }
            });
        }
    });
}

void MarkdownPreviewFind::show(int count, int active) {
    m_count = count;
    const auto selected = active > 0 ? std::optional(static_cast<std::size_t>(active) - 1) : std::nullopt;
    m_bar.search().setCount(QString::fromStdString(SearchMatches::statusText(
                                static_cast<std::size_t>(std::max(m_count, 0)), selected)),
                            canNavigate());
    const QJsonObject match{{u"query"_s, m_bar.search().text()}, {u"index"_s, std::max(active - 1, 0)}};
    m_preview.call(QString::fromLatin1(kSelectMatch), match, [self = QPointer(this)](const auto& answer) {
        if (self && self->canNavigate() && answer && answer->isArray()) {
            const auto heights = answer->toArray();
            self->m_sync.previewFound(heights[0].toDouble() * self->m_preview.zoomFactor());
        }
    });
}

void MarkdownPreviewFind::clear() {
    m_count = 0;
    m_bar.search().setCount({}, false);
    m_preview.endFind();
    m_preview.run(u"window.getSelection().removeAllRanges()"_s);
}

} // namespace tarnquill
