#include "chrome/LineKinds.h"

#include <algorithm>
#include <cassert>

namespace tarnquill {

namespace {

std::size_t startOf(const LineKinds::Record& record) {
    return record.range.location;
}

} // namespace

const LineKinds::Record* LineKinds::find(std::size_t lineStart) const {
    const auto at = std::ranges::lower_bound(m_records, lineStart, {}, startOf);
    return at != m_records.end() && startOf(*at) == lineStart ? &*at : nullptr;
}

const LineKinds::Record& LineKinds::set(TextRange line, SyntaxKinds kinds) {
    assert(kinds.size() == line.length);
    const auto at = std::ranges::lower_bound(m_records, line.location, {}, startOf);
    if (at != m_records.end() && startOf(*at) == line.location) {
        *at = {.range = line, .kinds = std::move(kinds)};
        return *at;
    }
    return *m_records.insert(at, {.range = line, .kinds = std::move(kinds)});
}

void LineKinds::apply(const TextChange& change, const TextBuffer& after, Edited edited) {
    const auto changeEnd = change.location + change.removed;
    std::erase_if(m_records, [&](Record& record) {
        if (record.range.end() < change.location) {
            return false;
        }
        // A line feed in front of the change is not a part of it, one behind it is the change's own end.
        if (record.range.location > changeEnd) {
            record.range.location = record.range.location - change.removed + change.inserted;
            return false;
        }
        const auto inside = record.range.location <= change.location && changeEnd <= record.range.end();
        if (edited == Edited::forget || !inside) {
            return true;
        }
        const auto offset = static_cast<std::ptrdiff_t>(change.location - record.range.location);
        const auto at = record.kinds.begin() + offset;
        record.kinds.erase(at, at + static_cast<std::ptrdiff_t>(change.removed));
        record.kinds.insert(record.kinds.begin() + offset, change.inserted, SyntaxKind{0});
        record.range.length = record.kinds.size();
        record.current = false;
        return after.lineRange(after.lineAt(record.range.location)) != record.range;
    });
}

} // namespace tarnquill
