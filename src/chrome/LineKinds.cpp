#include "chrome/LineKinds.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <utility>

namespace tarnquill {

namespace {

// Where a position was before the edits; nothing for what they inserted.
std::optional<std::size_t> before(const std::vector<TextChange>& edits, std::size_t position) {
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
        if (position >= edit->location + edit->inserted) {
            position = position - edit->inserted + edit->removed;
        } else if (position >= edit->location) {
            return std::nullopt;
        }
    }
    return position;
}

std::size_t startOf(const LineKinds::Record& record) {
    return record.range().location;
}

} // namespace

LineKinds::Record::Record(TextRange line, SyntaxKinds kinds) : m_range(line), m_kinds(std::move(kinds)) {
    assert(m_kinds.size() == line.length);
}

SyntaxKinds LineKinds::Record::kinds(TextRange part) const {
    const auto offset = part.location - m_range.location;
    if (isCurrent()) {
        const auto first = m_kinds.begin() + static_cast<std::ptrdiff_t>(offset);
        return {first, first + static_cast<std::ptrdiff_t>(part.length)};
    }
    SyntaxKinds kinds(part.length);
    for (std::size_t at = 0; at < part.length; ++at) {
        const auto old = before(m_edits, offset + at);
        kinds[at] = old ? m_kinds[*old] : SyntaxKind{0};
    }
    return kinds;
}

void LineKinds::Record::edit(const TextChange& change) {
    const TextChange inLine{.location = change.location - m_range.location,
                            .removed = change.removed,
                            .inserted = change.inserted};
    m_range.length = m_range.length - change.removed + change.inserted;
    // Typing on makes one edit longer.
    if (!m_edits.empty() && inLine.removed == 0 &&
        inLine.location == m_edits.back().location + m_edits.back().inserted) {
        m_edits.back().inserted += inLine.inserted;
    } else {
        m_edits.push_back(inLine);
    }
}

const LineKinds::Record* LineKinds::find(std::size_t lineStart) const {
    const auto at = std::ranges::lower_bound(m_records, lineStart, {}, startOf);
    return at != m_records.end() && startOf(*at) == lineStart ? &*at : nullptr;
}

const LineKinds::Record& LineKinds::set(TextRange line, SyntaxKinds kinds) {
    const auto at = std::ranges::lower_bound(m_records, line.location, {}, startOf);
    if (at != m_records.end() && startOf(*at) == line.location) {
        *at = Record(line, std::move(kinds));
        return *at;
    }
    return *m_records.insert(at, Record(line, std::move(kinds)));
}

void LineKinds::apply(const TextChange& change, const TextBuffer& after, Edited edited) {
    const auto changeEnd = change.location + change.removed;
    std::erase_if(m_records, [&](Record& record) {
        auto& range = record.m_range;
        if (range.end() < change.location) {
            return false;
        }
        if (range.location > changeEnd) {
            range.location = range.location - change.removed + change.inserted;
            return false;
        }
        const auto inside = range.location <= change.location && changeEnd <= range.end();
        if (edited == Edited::forget || !inside) {
            return true;
        }
        record.edit(change);
        return edited == Edited::keepOneLine && after.lineRange(after.lineAt(range.location)) != range;
    });
}

} // namespace tarnquill
